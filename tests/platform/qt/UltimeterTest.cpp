// SPDX-License-Identifier: GPL-3.0-or-later
// A weather station on a real serial line, and what its records become on the air.
#include "platform/qt/QtSerialDevice.h"
#include "support/StationTest.h"
#include "support/qt/Application.h"
#include "support/qt/Cable.h"

namespace halvern::test {
namespace {

/// A record of no more than a wind from this direction.
std::string Record(int direction)
{
    const char hex[] = {"0123456789ABCDEF"[direction / 16], "0123456789ABCDEF"[direction % 16], '\0'};
    return "$ULTW000000" + std::string(hex) + std::string(36, '0') + "\r\n";
}

TEST(Ultimeter, EachRecordOfALineBecomesOneReportHoweverTheLineIsCut)
{
    const Cable cable;
    if (cable.Device().empty()) GTEST_SKIP() << NoTerminal;
    Station station;
    station.SetUp();
    auto& main = station.halvern.ConMdiFrm;
    const QtSerialDevice device(main.WeatherCom, [&] { return std::map<int, std::string>{{1, cable.Device()}}; });
    station.OpenTnc();
    main.WeatherMenu.Click();
    ASSERT_TRUE(main.WeatherMenu.Checked());

    for (const char byte : "00FF00\r\n" + Record(1)) {
        cable.Send({&byte, 1});
        QApplication::processEvents();
    }
    Strings winds;
    const auto heard = [&](const char* last) {
        for (const auto& line : station.SentByRadio()) winds.push_back(line.substr(line.find('_') + 1, 3));
        return !winds.empty() && winds.back() == last;
    };
    cable.Send(Record(2) + Record(3) + Record(4) + "$ULTW0000--00\r" + Record(5).substr(0, 30));
    EXPECT_TRUE(RunUntil([&] { return heard("004"); }));
    cable.Send(Record(5).substr(30) + std::string(3000, '0') + "\xFF\xC0 noise \r" + "noise" + Record(6) + "$ULTW00" +
               Record(7) + Record(8));
    EXPECT_TRUE(RunUntil([&] { return heard("008"); }));
    EXPECT_THAT(winds, ElementsAre("001", "002", "003", "004", "005", "006", "008"));
}

} // namespace
} // namespace halvern::test
