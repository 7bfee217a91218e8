// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>

#include <sys/stat.h>

#include "state/Rows.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

const std::string Record = "$ULTW00A0005603090000279400000000000001FD00000000\r";
const std::string Weather = "086/009g009t077r...p000P...h50b10132";

struct WeatherSources : StationTest {
    WeatherSources() { station.OpenTnc(); }
    /// The weather file is this one from now on, opened a minute ago at a rate of one minute.
    void Write(const std::string& bytes)
    {
        folder.Put("wx.txt", bytes);
        setUp.WxSourceOpt.Select(1);
        setUp.TimeOpt.Select(0);
        setUp.File1.SetPath(folder.Path());
        setUp.File1.SetText("wx.txt");
        if (!main.WeatherMenu.Checked()) main.WeatherMenu.Click();
    }
    /// Information fields of what went out by radio within a tick of the file's timer.
    Strings Tick()
    {
        station.time.Wait(65000);
        auto sent = station.SentByRadio();
        for (auto& line : sent) line.erase(0, line.find(':') + 1);
        return sent;
    }
    TemporaryFolder folder;
};

TEST_F(WeatherSources, ReportGoesByEveryRoadUnderAWeatherSymbol)
{
    main.InternetSoc.Connect();
    main.Psk63Soc.Connect();
    setUp.UnPath.Preselect(1);
    main.WeatherMenu.Click();
    EXPECT_EQ(main.WeatherCom.Settings, "2400,n,8,1");
    station.time.SetUtc({2000, 1, 2, 3, 4, 5});
    for (const char byte : "\r\nnoise" + Record) main.WeatherCom.Arrived({&byte, 1});
    const auto report = "@020304z4049.14N/07308.41W_" + Weather;
    EXPECT_THAT(Air(),
                ElementsAre("radio Q0OWN>APHV01,WIDE2-2:" + report, "internet Q0OWN>APHV01,TCPIP*:" + report + "\r\n",
                            "psk63 Q0OWN>APHV01,WIDE2-2:" + report + "\r\n"));
    EXPECT_THAT(Raw(), ElementsAre("Q0OWN>APHV01:" + report + "02030405"));
    EXPECT_EQ(weatherRow::StampedDirection(report), "086");
    EXPECT_EQ(weatherRow::StampedSpeed(report), "009");
    EXPECT_EQ(ColumnAt(report, weatherRow::StampedCode), '_');

    const std::tuple<const char*, const char*, std::string, std::string> symbols[] = {
        {"House VHF /-", "", "N/0", "N/0"},
        {"Weather Station Digi Overlay \\_", " ", "N\\0", "N\\0"},
        {"Weather Station Digi Overlay \\_", "W", "NW0", "NW0"},
        {"Car Overlay \\>", "7", "N70", "N/0"}};
    for (const auto& [entry, overlay, port, file] : symbols) {
        setUp.SymbolCombo.Preselect(setUp.SymbolCombo.IndexOf(entry));
        setUp.OverlayChar = overlay;
        main.WeatherCom.Arrived(Record);
        EXPECT_THAT(station.SentByRadio(), ElementsAre(HasSubstr(port + "7308.41W_086"))) << entry;
        main.WeatherMenu.Click();
        Write("Jan\n220/004\n");
        EXPECT_THAT(Tick().at(0), HasSubstr(file + "7308.41W_220")) << entry;
        main.WeatherMenu.Click();
        setUp.WxSourceOpt.Select(0);
        main.WeatherMenu.Click();
        main.WxFileTicks = 0;
        station.SentByRadio();
    }
    EXPECT_THAT(station.SentBy(main.Psk63Soc), Contains(StartsWith("Q0OWN>APHV01:@"))) << "a file's line has no path";
}

TEST_F(WeatherSources, AFileThatCannotBeReadIsToldOnceAndSendsNothing)
{
    const auto wx = folder.Path() + "/wx.txt";
    const std::pair<std::function<void()>, const char*> cases[] = {
        {[&] { std::filesystem::remove(wx); }, "# 53 The weather file "},
        {[&] { ::mkfifo(wx.c_str(), 0600); }, "no plain file"},
        {[&] { folder.Put("wx.txt", ""); }, "# 62 The weather file "},
        {[&] { folder.Put("wx.txt", "_10090556c220s004g0"); }, "half written"}};
    for (const auto& [spoil, words] : cases) {
        Write("Jan\n220/004\n");
        EXPECT_THAT(Tick(), SizeIs(1));
        Said(); // the bell of a new station
        std::filesystem::remove(wx);
        spoil();
        for (int tick = 0; tick < 10; ++tick) EXPECT_THAT(Tick(), IsEmpty());
        EXPECT_THAT(Said(), ElementsAre(testing::AllOf(HasSubstr(words), HasSubstr(wx)))) << words;
        EXPECT_TRUE(main.WeatherMenu.Checked() && main.PortTnc.Checked());
        std::filesystem::remove(wx);
        main.WeatherMenu.Click(); // the beacons are back at once
        EXPECT_EQ(main.Timer2.Interval(), 1);
        main.WxFileTicks = 0;
        station.SentByRadio();
    }
}

TEST_F(WeatherSources, KeepTheBeaconsStillAndGoWithTheLastPort)
{
    for (const int source : {0, 1}) {
        setUp.WxSourceOpt.Select(source);
        main.WeatherMenu.Click();
        main.SoundCardMenu.Click();
        EXPECT_FALSE(main.Timer2.Running());
        setUp.WxSourceOpt.Select(1 - source); // changed while it runs
        main.WeatherMenu.Click();
        EXPECT_TRUE(main.Timer2.Running() && !main.WeatherCom.IsOpen() && !main.WXSoft.Running());
        main.WeatherMenu.Click();
        for (MenuItem* port : {&main.PortTnc, &main.SoundCardMenu}) port->Click();
        EXPECT_FALSE(main.WeatherMenu.Checked() || main.Timer2.Running());
        station.OpenTnc();
    }
    main.GpsMenu.SetChecked(true);
    main.WeatherMenu.Click();
    EXPECT_FALSE(main.WeatherMenu.Checked());
    EXPECT_THAT(Said(), ElementsAre(HasSubstr("You cannot open the Weather port while the GPS Port is open.")));
}

} // namespace
} // namespace halvern::test
