// SPDX-License-Identifier: GPL-3.0-or-later
// The PSK63 port on real sockets, in both dialects of modem programs.
#include "counterparts/ModemProgram.h"
#include "counterparts/Counterpart.h"
#include "platform/qt/QtSocketDevice.h"
#include "support/qt/Application.h"

namespace halvern::test {
namespace {

constexpr quint16 Characters = 3122, Lines = 3131;

struct Psk63 : StationTest, testing::WithParamInterface<quint16> {
    void SetUp() override
    {
        if (!WhyNoNetwork().empty()) GTEST_SKIP() << "Skipped: " << WhyNoNetwork();
        ASSERT_TRUE(modem.Listening);
        setUp.Psk63PortTxt.SetText(std::to_string(GetParam()));
        Open();
    }
    void Open()
    {
        main.Psk63Menu.Click();
        ASSERT_TRUE(main.Psk63Menu.Checked());
        ASSERT_TRUE(RunUntil([&] { return modem.Connected(); }));
    }
    bool Marks() const { return GetParam() == Characters; }
    std::string OnAir(const std::string& text) const { return Marks() ? "SSSSS" + text + "EEEEE" : text; }
    /// What the modem program sends for packets that go out together.
    bool Transmits(const Strings& texts)
    {
        Strings expected;
        for (const auto& text : texts)
            if (const auto sent = OnAir("Q0OWN>APHV01:" + text); Marks() && !expected.empty())
                expected.back() += "\r" + sent;
            else
                expected.push_back(sent);
        RunUntil([&] { return modem.Sent.size() >= expected.size(); });
        const auto sent = std::exchange(modem.Sent, {});
        EXPECT_EQ(sent, expected);
        return RunUntil([&] { return !Marks() || halvern.Engine.Psk63Reply == "DONE"; }) && sent == expected;
    }
    bool Hears(std::size_t raws)
    {
        return RunUntil([&] { return Raw().size() >= raws; });
    }

    ModemProgram modem{GetParam()};
    QtSocketDevice socket{main.Psk63Soc};
};

TEST_P(Psk63, CarriesAllThatTheStationSays)
{
    const std::string position = "=4049.14N/07308.41W-PHG5130 own", status = ">here";
    station.time.Wait(1);
    station.time.Wait(8000);
    EXPECT_TRUE(Transmits({position, status}));
    main.BeaconMenu.Click();
    EXPECT_TRUE(Transmits({position}));
    form.MailUnPath.SetText("PSK63");
    station.Type("Q1ABC", "How copy?");
    EXPECT_TRUE(Transmits({":Q1ABC    :How copy?{1"}));
    halvern.QueryFrm.QueryOpt.Select(2);
    halvern.QueryFrm.OkCmd.Click();
    EXPECT_TRUE(Transmits({"?IGATE?"}));
    for (const auto& [heard, answer] : std::vector<std::pair<std::string, Strings>>{
             {":Q0OWN    :Fine{9", {":Q1ABC    :ack9"}}, {"?APRS?", {position, status}}}) {
        modem.Hear(OnAir("Q1ABC>APRS:" + heard) + "\r\n", 5);
        EXPECT_TRUE(Transmits(answer)) << heard;
    }
}

TEST_P(Psk63, LosesNothingButTheHalfPacketWhenTheModemProgramEnds)
{
    modem.Hear(OnAir("Q1ABC>APRS:>one") + "\r\n" + OnAir("Q1ABC>APRS:>half").substr(0, 15), 3);
    EXPECT_TRUE(RunUntil([&] { return halvern.Engine.Psk63Busy == Marks() && Raw().size() == 1; }));
    modem.End();
    EXPECT_TRUE(RunUntil([&] { return !main.Psk63Menu.Checked(); }));
    EXPECT_THAT(Said(), Contains("message none \"Halvern\" \"Psk63 Disconnected!\""));
    EXPECT_FALSE(main.Timer2.Running() || main.Psk63Soc.Connected());

    Open();
    station.time.Wait(1);
    station.time.Wait(8000);
    EXPECT_TRUE(RunUntil([&] { return !modem.Sent.empty(); }));
    modem.Hear(OnAir("Q1ABC>APRS:>two") + "\r\n", 3);
    EXPECT_TRUE(Hears(6));
    EXPECT_THAT(Raw(), Contains("Q1ABC>APRS:>two"));
}

INSTANTIATE_TEST_SUITE_P(ByPort, Psk63, testing::Values(Characters, Lines), testing::PrintToStringParamName());

} // namespace
} // namespace halvern::test
