// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "protocol/UltimeterRecord.h"
#include "protocol/WeatherFileText.h"
#include "state/Rows.h"

namespace halvern::test {
namespace {

std::string Record(std::size_t column, const std::string& text, std::size_t length = 57)
{
    return ("$ULTW" + std::string(length - 5, '0')).replace(column - 1, text.size(), text);
}

TEST(Ultimeter, EveryFieldHasItsForm)
{
    using Forms = std::vector<std::pair<const char*, const char*>>; // no form: the record is dropped
    const std::pair<std::size_t, Forms> fields[] = {
        {12, {{"00", "000/000g000t000r...p000P000h00b00000"}, {"5A", "090/000g"}, {"FF", "255/000g"}}},
        {6, {{"00A0", "000/000g009t"}, {"3EDC", "g999t"}, {"3EE8", ""}}},
        {54, {{"00A0", "000/009g000t"}, {"FFFF", ""}}},
        {14, {{"0309", "g000t077r"}, {"FFFB", "t000r"}, {"FFF6", "t-01r"}, {"FC19", "t-99r"}, {"FC18", ""}}},
        {14, {{"2710", ""}, {"----", ""}, {"00ff", ""}}},
        {18, {{"0005", "p005P"}, {"0032", "p050P"}, {"0064", "p100P"}, {"0096", "p150P"}, {"03E7", "p999P"}}},
        {18, {{"03E8", "p100P"}, {"04C4", "p12.2P"}, {"04D2", "p12.34P"}, {"2710", "p100P"}}},
        {50, {{"0069", "p000P105h"}}},
        {22, {{"2794", "b10132"}, {"2703", "b09987"}, {"2792", "b01013"}, {"2706", "b00999"}}},
        {38, {{"01FD", "P000h50b"}, {"03E8", "h00b"}, {"03F2", ""}}}};
    const auto expect = [](const std::string& record, const std::string& form) {
        const auto weather = WeatherOfUltimeter(record);
        EXPECT_TRUE(form.empty() ? weather.empty() : Holds(weather, form)) << record << ": " << weather;
    };
    for (const auto& [column, forms] : fields)
        for (const auto& [hex, form] : forms) expect(Record(column, hex), form);
    const std::pair<std::size_t, const char*> lengths[] = {
        {40, ""},     {49, "/009g009t000r...p000P..."}, {53, "/009g009t000r...p000P000"},
        {55, "P..."}, {57, "/000g009t000r...p000P000"}, {58, ""}};
    for (const auto& [length, form] : lengths) expect(Record(6, "00A0", length), form);
}

TEST(Ultimeter, ARecordEndsAtItsReturnWhateverStandsAround)
{
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"noise $UL", "", " $UL"},
        {"noise\r$ULTW00", "", "$ULTW00"},
        {"0000\r\n$ULTW12\r$ULTW", "$ULTW12", ""},
        {"$ULTW1$ULTW2\r", "$ULTW1$ULTW2", ""},
        {"$ULTW" + std::string(100, '0'), "", "$ULTW" + std::string(53, '0')}};
    for (const auto& [waiting, record, left] : cases) {
        auto buffer = waiting;
        EXPECT_EQ(TakeUltimeterRecord(buffer).value_or(""), record);
        EXPECT_EQ(buffer, left);
    }
}

TEST(WeatherFile, SaysItsWeatherOrItsFault)
{
    const std::string plain = "220/004g005t077r000p000P000h50b09900";
    const std::pair<std::string, std::string> good[] = {
        {"_10090556c220s004g005t077r000p000P000h50b09900", plain},
        {"_10090556C220S004g005t-07s001 wXYZ\nmore", "220/004g005t-07s001 wXYZ"},
        {"_10090556c...s...\r\n", ".../..."},
        {"Jan 01 2025 12:00\r\n" + plain + "\r\nDec", plain},
        {"Dec\r" + plain, plain},
        {"Feb\n\xC3\xA9 as it is\n", "\xC3\xA9 as it is"}};
    for (const auto& [bytes, weather] : good) EXPECT_EQ(ReadWeatherFile(bytes).weather, weather) << bytes;
    using enum WeatherFileFault;
    const std::pair<WeatherFileFault, std::vector<std::string>> bad[] = {
        {OtherFile, {"JAN 01\n" + plain, "JAN", "\r\nJan\r\n" + plain}},
        {NoDirection, {"_10090556x220s004g005", "_10090556x", "_1009\n"}},
        {NoSpeed, {"_10090556c220g005s004", "_10090556c220g", "_10090556c22\n"}},
        {HalfWritten,
         {"", "_", "_10090556", "_10090556c220", "_10090556c220s00", "Ja", "_10090556c220s004g005t077r",
          "Jan 01 2025\r\n" + plain.substr(0, 35)}},
        {HalfWritten, {"Jan 01 2025\r\n", "Jan 01 2025\r\n\r\n", "Jan\n" + std::string(230, '0') + "\n"}},
        {HalfWritten, {"Jan\n220/004g" + std::string(3, '\0') + "\n"}}};
    for (const auto& [fault, files] : bad)
        for (const auto& bytes : files) {
            const auto read = ReadWeatherFile(bytes);
            EXPECT_TRUE(read.fault == fault && read.weather.empty()) << bytes;
        }
}

} // namespace
} // namespace halvern::test
