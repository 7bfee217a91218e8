// SPDX-License-Identifier: GPL-3.0-or-later
// A year of a station that nobody switches off, on the simulated clock: every port, gate and digipeater, own objects
// and messages, weather and GPS by turns, a log a day, views, saves and playbacks; ports that refuse and hang up, a
// full disk, a clock that is set. After every simulated hour it has to be in order: a fault ends it with the hour and
// the seed. On the standard output is a line for each 30 days.
//
//     soak [--hours N] [--seed S] [--lines FILE]
#include <malloc.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <utility>

#include "Invariants.h"
#include "SoakTraffic.h"
#include "app/StartUp.h"
#include "platform/simulated/FaultyFiles.h"
#include "protocol/OutMsg.h"
#include "protocol/UtcTime.h"
#include "state/Rows.h"
#include "support/Receiver.h"
#include "support/Station.h"

namespace halvern::soak {
namespace {

constexpr const char* OwnHead = "Q0OWN>APHV01";
constexpr int Hour = 3600;     // seconds, as all times here
constexpr int Month = 30 * 24; // hours: each ends at the same time of day

/// What a day is spent with. A GPS bars the Internet; weather and GPS keep the beacons still.
enum class Day { Beacons, Gps, WeatherPort, WeatherFile };
constexpr std::array<Day, 7> Week{Day::Beacons,     Day::Beacons, Day::Gps,        Day::Beacons,
                                  Day::WeatherPort, Day::Beacons, Day::WeatherFile};

struct Options {
    int hours = 366 * 24;
    std::uint64_t seed = 1;
    std::string lines;
};

/// A station on a disk that may be full.
struct World {
    World()
        : files(disk), halvern({time, dialogs, files}, folder.Path()), ports(halvern.All), map(halvern.MapFrm.Map1),
          picture(halvern.MapFrm.Pic1)
    {
        for (const auto& entry : std::filesystem::directory_iterator(test::DataFolder()))
            std::filesystem::create_symlink(entry.path(),
                                            std::filesystem::path(folder.Path()) / entry.path().filename());
        dialogs.PassTime = [this](int milliseconds) { time.Wait(milliseconds); };
        time.SetUtc({2027, 6, 1, 0, 0, 0});
        time.Drive(halvern.All);
        ConnectHandlers(halvern);
    }
    test::TemporaryFolder folder;
    SimulatedTime time;
    NotedDialogs dialogs;
    DiskFiles disk;
    FaultyFiles files;
    Halvern halvern;
    SimulatedPorts ports;
    NotedDrawing map, picture;
};

class Year : World {
public:
    explicit Year(const Options& options) : options(options), traffic(options.seed) { Start(); }
    void Run();

private:
    void Start();
    void Save();
    [[noreturn]] void Fail(const std::string& what) const;
    void Require(bool holds, const std::string& what) const
    {
        if (!holds) Fail(what);
    }

    // the operator
    struct Line {
        MenuItem& item;
        Port& port;
        bool (*up)(const MainForm&);
        int refusedUntil = 0;
    };
    bool Wanted(const Line& line) const;
    void Press(Line& line);
    void Mend();
    void ChangeDay();
    void ActOfTheHour();
    void PlayBack();
    void StartLog();
    void Answer(const std::string& file);
    void LookAround();

    // the faults
    void Trouble();
    void Meet(const char* fault) { ++faults[fault]; }

    // what is heard, and what goes out
    void Second(int packets);
    void HearOnTnc(const std::string& line);
    void HearFromServer(const std::string& line);
    void Sources();
    void Drain();
    void NoteOwn(const std::string& line);

    // what has to hold
    void CheckHour();
    void CheckTimers() const;
    void CheckOwnPackets();
    void CheckBounds() const;
    void CheckLog() const;
    void EndMonth(int number);

    const Options options;
    Traffic traffic;
    MainForm& main = halvern.ConMdiFrm;
    std::array<Line, 4> lines{
        {{main.PortTnc, main.MSComm1, [](const MainForm& m) { return m.MSComm1.IsOpen(); }},
         {main.PortIp, main.InternetSoc, [](const MainForm& m) { return m.InternetSoc.Connected(); }},
         {main.SoundCardMenu, main.SoundSoc, [](const MainForm& m) { return m.SoundSoc.Connected(); }},
         {main.Psk63Menu, main.Psk63Soc, [](const MainForm& m) { return m.Psk63Soc.Connected(); }}}};
    Day day = Day::Beacons;
    int now = 0;     ///< seconds since the start; the clock on the wall is set now and then, this is not
    int shifted = 0; ///< seconds that the wall is ahead
    int fullUntil = 0, gpsSilentUntil = 0;
    int disturbed = 0; ///< when a port was opened or closed last, or the day changed
    int radioDown = 0; ///< when the TNC was last not up
    int lastBeacon = 0, beacons = 0, reports = 0, records = 0, objectSent = 0, objectSince = 0;
    bool retriesRest = false; ///< the transmitter was stopped with messages in the queue
    long packets = 0, repeats = 0, gated = 0, saves = 0, views = 0, drawn = 0, messages = 0;
    std::string saved;
    std::vector<std::string> said;
    std::map<std::string, long> faults;
    struct Memory {
        double emptied, most; ///< MB
    };
    std::vector<Memory> months;
    double most = 0;
    std::size_t descriptors = 0;
    std::chrono::steady_clock::time_point begun = std::chrono::steady_clock::now();
};

// --- the machine -----------------------------------------------------------------------------------------------------

double Resident()
{
    double all = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * 4096 / 1e6;
}

/// MB that the program has asked for and not given back, whatever the allocator keeps besides.
double InUse()
{
    const auto info = ::mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1e6;
}

std::size_t Descriptors()
{
    const std::filesystem::directory_iterator folder("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(folder), end(folder)));
}

void Year::Fail(const std::string& what) const
{
    std::cout << "broken in hour " << now / Hour << " (second " << now << ") of seed " << options.seed << ": " << what
              << std::endl;
    for (const auto& line : said) std::cout << "  said: " << line << "\n";
    std::exit(1);
}

// --- the operator ----------------------------------------------------------------------------------------------------

void Year::Start()
{
    if (!options.lines.empty()) traffic.TakeRecorded(options.lines);
    dialogs.Say = [this](const std::string& line) { said.push_back(line); };
    auto& setUp = halvern.SetUpfrm;
    dialogs.RunModal = [&](Form& form) {
        if (&form == &halvern.AddPathFrm) return halvern.AddPathFrm.CancelCmd.Click();
        if (&form == &halvern.CreateObjectsFrm) {
            auto& dialog = halvern.CreateObjectsFrm;
            dialog.ObjectNameTxt.SetText("LEADER");
            dialog.SymbolCombo.Select(dialog.SymbolCombo.IndexOf("Car />"));
            dialog.SetTexts({"40", "51", "00", "N", "073", "10", "00", "W"});
            return dialog.OkCmd.Click();
        }
        const std::pair<TextField*, const char*> texts[] = {
            {&setUp.CallSignTxt, "Q0OWN"}, {&setUp.LatDegtxt, "40"},  {&setUp.LatMintxt, "49"},
            {&setUp.LatDectxt, "14"},      {&setUp.LatSigntxt, "N"},  {&setUp.LonDegtxt, "073"},
            {&setUp.LonMintxt, "08"},      {&setUp.LonDectxt, "41"},  {&setUp.LonSigntxt, "W"},
            {&setUp.CommentTXT, "own"},    {&setUp.StatusTXT, "here"}};
        for (const auto& [field, text] : texts) field->SetText(text);
        setUp.SymbolCombo.Preselect(setUp.SymbolCombo.IndexOf("House VHF /-"));
        setUp.TabOkCmd.Click();
    };
    StartProgram(halvern);
    main.SetupMenu.Click();
    setUp.UnPath.Select(1);
    setUp.MyAliasOpt.Select(1);
    setUp.PortLst.Select(0), setUp.WXPortCombo.Select(1), setUp.GpsPortLst.Select(2);
    setUp.IntDomainCombo.SetText("server");
    setUp.GpsSentanceLst.Select(setUp.GpsSentanceLst.IndexOf("GPRMC"));
    setUp.IgateOpt.Select(1);
    setUp.IgateBIOpt.Select(1);
    setUp.IgateTimeLbl.SetNumber(3);
    setUp.IgateHopOpt.Select(2);
    halvern.Engine.IgateOn = true;
    Save();
    Require(halvern.Engine.ConfigLoaded && setUp.MyAlias == "WIDE1-1", "the station is set up");
    Mend();
    descriptors = Descriptors();
}

bool Year::Wanted(const Line& line) const
{
    return day != Day::Gps || &line.item != &main.PortIp;
}

void Year::Press(Line& line)
{
    if (now < line.refusedUntil) ports.Line(line.port)->Refuse(1, "refused");
    line.item.Click();
    disturbed = now;
    Drain();
}

/// Opens what should be open and closes what should not.
void Year::Mend()
{
    for (auto& line : lines) {
        if (line.item.Checked() && (!line.up(main) || !Wanted(line))) Press(line);
        if (Wanted(line) && !line.item.Checked()) Press(line);
        if (line.up(main) && &line.item == &main.PortIp && !main.ServerLoggedIn) HearFromServer("# server");
    }
    const bool weather = day == Day::WeatherPort || day == Day::WeatherFile;
    if (weather != main.WeatherMenu.Checked() && halvern.AnyMainPortOpen()) {
        halvern.SetUpfrm.WxSourceOpt.Select(day == Day::WeatherFile ? 1 : 0);
        main.WeatherMenu.Click();
        disturbed = now;
    }
    if ((day == Day::Gps) != main.GpsMenu.Checked() && halvern.AnyRadioPortOpen() && !main.InternetSoc.Connected()) {
        halvern.SetUpfrm.GpsOpt.Select(0);
        main.GpsMenu.SetEnabled(true);
        main.GpsMenu.Click();
        disturbed = now;
    }
    if (!main.Log.Checked() && now >= fullUntil) StartLog();
}

void Year::ChangeDay()
{
    if (main.GpsMenu.Checked()) main.GpsMenu.Click();
    if (main.WeatherMenu.Checked()) main.WeatherMenu.Click();
    day = Week[static_cast<std::size_t>(now / (24 * Hour)) % Week.size()];
    disturbed = now;
    auto& setUp = halvern.SetUpfrm;
    setUp.File1.SetPath(folder.Path());
    setUp.File1.SetText("wx.txt");
    setUp.TimeOpt.Select(3);
    folder.Put("wx.txt", "Jan\n220/004g005t077r000p000P000h50b09900\n");
    if (main.Log.Checked()) main.Log.Click();
    Mend();
}

void Year::Answer(const std::string& file)
{
    dialogs.Answers.clear();
    if (!file.empty()) dialogs.Answers.push_back({file});
}

void Year::StartLog()
{
    Answer(folder.Path() + "/day.log");
    main.Log.Click();
    Require(halvern.Engine.LogOpen, "the log opens");
}

void Year::Save()
{
    const bool room = now >= fullUntil;
    main.SetupMenu.Click();
    halvern.SetUpfrm.CommentTXT.SetText("own " + std::to_string(now));
    said.clear();
    halvern.SetUpfrm.TabSaveCmd.Click();
    const auto ini = disk.Read(folder.Path() + "/Halvern.INI").value_or("");
    const bool told = std::ranges::any_of(said, [](const auto& line) { return Holds(line, "is now Saved"); });
    Require(told == room, room ? "what can be saved is told as saved" : "a full disk is not told as saved");
    Require(room || ini == saved, "a save that failed leaves the file as it was");
    Require(!room || Holds(ini, "own " + std::to_string(now)), "what is told as saved is in the file");
    saved = ini;
    halvern.SetUpfrm.Hide();
    ++saves;
}

/// Today's log so far, played and left again; with no room for the lists that are put aside nothing may change.
void Year::PlayBack()
{
    const auto stations = test::Station::Rows(halvern.PositionFrm.PosLst);
    const auto queue = test::Station::Rows(halvern.MessageFrm.OutMsg);
    const auto file = folder.Path() + "/day.log", copy = folder.Path() + "/played.log";
    std::filesystem::copy_file(file, copy, std::filesystem::copy_options::overwrite_existing);
    Answer(copy);
    main.ImportLog.Click();
    Require(halvern.Engine.ReviewMode == (now >= fullUntil), "a playback needs room for the lists");
    if (halvern.Engine.ReviewMode) {
        Require(BrokenInvariant(halvern) == nullptr, "a playback's rows and plots are parallel");
        main.RestoreMenu.Click();
    }
    Require(!halvern.Engine.ReviewMode, "the way back ends the playback");
    Require(test::Station::Rows(halvern.MessageFrm.OutMsg) == queue, "the queue came back");
    const auto killed = [](const std::string& row) { return ColumnAt(row, positionRow::State) == mark::Killed; };
    std::size_t kept = 0;
    for (const auto& row : stations) kept += killed(row) ? 0 : 1;
    const auto back = halvern.PositionFrm.PosLst.Count();
    Require(back == static_cast<int>(now >= fullUntil ? kept : stations.size()), "the stations came back");
    ++views;
}

void Year::LookAround()
{
    switch (traffic.Pick(6)) {
    case 0:
        main.ScaleCombo.Select(traffic.Pick(main.ScaleCombo.Count()));
        break;
    case 1:
        main.ZoomLastMenu.Click();
        break;
    case 2:
        main.ZoomUSAmenu.Click();
        break;
    case 3:
        main.HomeMenu.Click();
        break;
    case 4:
        main.RefreshMnu.Click();
        break;
    default:
        main.FrmMenu(1 + traffic.Pick(10)).Click();
        break;
    }
    ++views;
}

void Year::ActOfTheHour()
{
    LookAround();
    if (traffic.OneIn(3)) Save();
    if (traffic.OneIn(24)) PlayBack();
    if (traffic.OneIn(200)) main.ClearMenu.Click();
    if (main.MyObjectLst.Count() == 0 && main.MyObjectsMenu.Visible()) {
        main.CreateMyObjectsMenu.Click();
        objectSince = objectSent = now;
    }
    auto& form = halvern.MessageFrm;
    form.SendCallTxt.SetText(traffic.Caller(now / (24 * Hour)));
    form.MsgTxt.SetText("how are you");
    form.MsgTxt.Press('\r');
    ++messages;
}

// --- the faults ------------------------------------------------------------------------------------------------------

/// Once a minute.
void Year::Trouble()
{
    auto& line = lines[static_cast<std::size_t>(traffic.Pick(4))];
    if (traffic.OneIn(300)) {
        line.refusedUntil = now + 60 * (1 + traffic.Pick(30));
        if (auto* socket = ports.SocketOf(line.port); socket != nullptr) {
            Meet("hung up, then refused");
            socket->HangUp();
        } else if (line.item.Checked()) {
            Meet("TNC refused");
            Press(line);
        }
    }
    if (traffic.OneIn(6000)) {
        Meet("disk full for an hour");
        fullUntil = now + Hour;
        files.SetRoom(0);
    }
    if (fullUntil != 0 && now >= fullUntil) {
        fullUntil = 0;
        files.SetRoom(std::numeric_limits<std::size_t>::max());
    }
    if (traffic.OneIn(4000)) {
        Meet("clock set");
        const int step = shifted != 0 ? -shifted : (traffic.Pick(4 * Hour) - 2 * Hour);
        shifted += step;
        time.SetUtc(MomentOf(SecondsOf(UtcNow(time)) + step));
    }
    if (day == Day::Gps && traffic.OneIn(2000)) Meet("GPS silent for an hour"), gpsSilentUntil = now + Hour;
}

// --- what is heard, and what goes out --------------------------------------------------------------------------------

void Year::NoteOwn(const std::string& line)
{
    if (!line.starts_with(OwnHead)) return;
    const auto info = std::string_view(line).substr(line.find(':') + 1);
    if (info.starts_with('=')) lastBeacon = now, ++beacons;
    if (info.starts_with('@')) ++reports;
    if (info.starts_with(";LEADER")) objectSent = now;
}

/// What has gone out by the station's own doing.
void Year::Drain()
{
    for (const auto& bytes : ports.Line(main.MSComm1)->TakeSent()) {
        const auto line = test::LineOfFrame(bytes);
        Require(line.starts_with("Q0OWN>") || Holds(line, "Q0OWN*"), "what goes out bears the own call: " + line);
        NoteOwn(line);
    }
    for (const auto* port : std::initializer_list<const Port*>{&main.InternetSoc, &main.SoundSoc, &main.Psk63Soc})
        ports.Line(*port)->TakeSent();
    for (const auto& line : said) Require(!Holds(line, "Error #") || Holds(line, "generated by"), line);
    if (said.size() > 1000) said.clear();
}

/// One frame: it is repeated once at most and only where the own call was not in its path already, and goes to the
/// Internet once at most.
void Year::HearOnTnc(const std::string& line)
{
    Drain();
    const auto frame = test::FrameOf(line);
    const auto heard = test::LineOfFrame(frame);
    main.MSComm1.Arrived(frame);
    ++packets;
    int repeated = 0, toInternet = 0;
    for (const auto& bytes : ports.Line(main.MSComm1)->TakeSent()) {
        const auto sent = test::LineOfFrame(bytes);
        NoteOwn(sent);
        repeated += sent.starts_with("Q0OWN>") ? 0 : 1;
    }
    for (const auto& sent : ports.Line(main.InternetSoc)->TakeSent()) toInternet += sent.starts_with("Q0OWN>") ? 0 : 1;
    const auto header = heard.substr(0, heard.find(':'));
    Require(repeated <= (Holds(header, ",Q0OWN") ? 0 : 1), "repeated " + std::to_string(repeated) + " times: " + line);
    Require(toInternet <= 1, "gated twice: " + line);
    repeats += repeated, gated += toInternet;
}

void Year::HearFromServer(const std::string& line)
{
    Drain();
    if (!main.InternetSoc.Connected()) return;
    main.InternetSoc.Arrived(line + "\r\n");
    ++packets;
    for (const auto& sent : ports.Line(main.InternetSoc)->TakeSent())
        Require(sent.starts_with("Q0OWN>") || sent.starts_with("user "), "back to the Internet: " + sent);
}

void Year::Sources()
{
    if (main.GpsCom.IsOpen() && now >= gpsSilentUntil)
        main.GpsCom.Arrived(test::ReceiverBlock("$GPRMC,210000,A,4049.14,N,07308.41,W,30.2,271.0,010100,,*7C"));
    if (day != Day::WeatherPort || now % 300 != 0 || !main.WeatherCom.IsOpen()) return;
    main.WeatherCom.Arrived("$ULTW00A0005603090000279400000000000001FD00000000\r");
    records += main.MSComm1.IsOpen() ? 1 : 0;
    Drain();
}

void Year::Second(int count)
{
    ++now;
    time.Wait(1000);
    Drain();
    Sources();
    const int today = now / (24 * Hour);
    for (; count > 0; --count) {
        const int road = traffic.Pick(10);
        if (road < 5 && main.MSComm1.IsOpen()) {
            HearOnTnc(traffic.Line(today, true));
        } else if (road < 8 && main.InternetSoc.Connected()) {
            HearFromServer(traffic.Line(today, false));
        } else if (road < 9 && main.SoundSoc.Connected()) {
            main.SoundSoc.Arrived(test::FrameOf(traffic.Line(today, true))), ++packets;
        } else if (main.Psk63Soc.Connected()) {
            main.Psk63Soc.Arrived(traffic.Line(today, true) + "\r\n"), ++packets;
        }
    }
    const auto& queue = halvern.MessageFrm.OutMsg;
    if (queue.Count() > 0 && now % 97 == 0 && main.MSComm1.IsOpen())
        HearOnTnc(std::string(TrimmedRight(outMsgRow::Destination(queue.Row(0)))) + ">APRS:" + ":Q0OWN    :ack" +
                  std::string(OutMsgNumber(queue.Row(0))));
}

// --- what has to hold ------------------------------------------------------------------------------------------------

void Year::CheckTimers() const
{
    const bool open = halvern.AnyMainPortOpen();
    const auto& form = halvern.MessageFrm;
    const bool beaconing = open && !main.GpsMenu.Checked() && !main.WeatherMenu.Checked();
    Require(main.IgMesSaveTxt.Text().empty() != main.IgateMessHold.Running(), "a message is held, or the timer is off");
    Require(!beaconing || main.Timer2.Running(), "with a port open the beacons run");
    Require(open || !main.Timer2.Running(), "with no port open the beacons rest");
    Require(main.NetDecayTmr.Running() == open, "stations retire while a port is open");
    Require(main.MyObjectLst.Count() == 0 || main.MyObjectTimer.Running(), "own objects are being sent");
    Require(form.OutMsg.Count() == 0 || form.Timer1.Running() || retriesRest, "messages in the queue are being sent");
    Require(!main.GpsMenu.Checked() || main.GpsTimer.Running(), "the GPS is asked again");
    Require(day != Day::WeatherFile || !main.WeatherMenu.Checked() || main.WXSoft.Running(),
            "the weather file is read again");
}

/// In an hour without disturbance everything goes out as often as it should.
void Year::CheckOwnPackets()
{
    const bool quiet = disturbed < now - Hour - 120 && radioDown < now - Hour - 120;
    const auto expect = [&](int count, int least, int most, const char* what) {
        Require(!quiet || (count >= least && count <= most),
                std::string(what) + ": " + std::to_string(count) + " in an hour");
    };
    if (day == Day::Beacons) expect(beacons, 2, 2, "beacons every 30 minutes");
    if (day == Day::Beacons && radioDown < now - 1860 && disturbed < now - 1860)
        Require(now - lastBeacon <= 1801, "the last beacon is 30 minutes old at most");
    if (day == Day::Gps && gpsSilentUntil < now - Hour - 600) expect(beacons, 10, 12, "fixes every 325 seconds");
    if (day == Day::WeatherPort) {
        expect(beacons, 0, 0, "weather keeps the beacons still");
        expect(reports, records, records, "a report for each record");
    }
    if (day == Day::WeatherFile) expect(reports, 12, 15, "a report every 4 ticks of 65 seconds");
    if (quiet && main.MyObjectLst.Count() > 0 && objectSince < now - Hour)
        Require(now - objectSent <= 1801, "own objects go out every 30 minutes");
    beacons = reports = records = 0;
}

void Year::CheckBounds() const
{
    Require(halvern.TerminalFrm.RawPacketLst.Count() <= 32702, "raw rows are bounded");
    Require(halvern.PositionFrm.PosLst.Count() <= 32000, "stations are bounded");
    Require(main.DecisionLst.Count() <= 2000 && halvern.GateFrm.GateLst.Count() <= 2000, "decisions are bounded");
    const auto& notices = halvern.NoticesFrm.NoticeLst;
    Require(notices.Count() <= 300, "notices are bounded");
    for (int i = 0; i < notices.Count(); ++i)
        Require(!Holds(notices.Row(i), "Error #") || Holds(notices.Row(i), "generated by"), notices.Row(i));
    Require(halvern.HeardFrm.HeardGrid.Cols() <= 74,
            "the heard grid turns its page: " + std::to_string(halvern.HeardFrm.HeardGrid.Cols()));
    Require(main.KissRxBuffer.size() + main.SoundRxBuffer.size() + main.WxRxBuffer.size() < 4096,
            "what waits of a port is bounded");
    const auto expected = descriptors - (halvern.Engine.LogOpen ? 0 : 1);
    Require(Descriptors() == expected,
            "file descriptors: " + std::to_string(Descriptors()) + " for " + std::to_string(expected));
}

/// The log ends in a whole row, the last that was filed; of a third party's packet it has the outer line.
void Year::CheckLog() const
{
    const auto log = disk.Read(folder.Path() + "/day.log").value_or("");
    Require(log.empty() || log.ends_with("\r\n"), "the log has whole rows");
    const auto& raw = halvern.TerminalFrm.RawPacketLst;
    if (!halvern.Engine.LogOpen || raw.Count() < 2 || log.empty()) return;
    const auto end = log.size() - 2;
    const auto begin = log.rfind("\r\n", end - 1);
    const auto last =
        log.substr(begin == std::string::npos ? 0 : begin + 2, end - (begin == std::string::npos ? 0 : begin + 2));
    Require(last.ends_with(raw.Row(raw.Count() - 1)), "the last row is in the log: " + last);
}

void Year::CheckHour()
{
    if (const auto* broken = BrokenInvariant(halvern)) Fail(broken);
    retriesRest = halvern.MessageFrm.OutMsg.Count() > 0 && retriesRest;
    CheckTimers();
    CheckOwnPackets();
    CheckBounds();
    CheckLog();
    most = std::max(most, Resident());
    drawn += static_cast<long>(map.Take().size() + picture.Take().size());
}

/// Memory is compared as what is in use when the lists are empty and the map is at home, since what they hold at a
/// moment is chance; and as the most that the process held in a month.
void Year::EndMonth(int number)
{
    main.HomeMenu.Click();
    main.ClearMenu.Click();
    map.Take(), picture.Take();
    months.push_back({InUse(), std::exchange(most, 0)});
    const auto took = std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
    std::cout << "30 days " << number << ": " << packets << " packets, " << months.back().emptied
              << " MB in use when emptied, " << months.back().most << " MB resident at most, " << took << " s"
              << std::endl;
    if (number <= 3) return;
    Require(months.back().most <= months[1].most * 1.05, "memory at its most is flat");
    const double first = std::max({months[0].emptied, months[1].emptied, months[2].emptied});
    Require(months.back().emptied <= first * 1.05, "memory in use is flat");
}

void Year::Run()
{
    int ended = 0;
    for (int hour = 1; hour <= options.hours; ++hour) {
        for (int minute = 0; minute < 60; ++minute) {
            for (const int count : traffic.Minute()) Second(count);
            Trouble();
            Mend();
            if (!main.MSComm1.IsOpen()) radioDown = now;
            if (!halvern.AnyMainPortOpen()) retriesRest = true;
            if (now % (24 * Hour) == 30 * 60) ChangeDay();
        }
        CheckHour();
        ActOfTheHour();
        if (hour % Month == 0) EndMonth(++ended);
    }
    std::cout << "seed " << options.seed << ": " << options.hours << " hours in order, " << packets << " packets, "
              << repeats << " repeated, " << gated << " to the Internet, " << saves << " saves, " << views << " views, "
              << messages << " messages, " << drawn << " steps drawn";
    for (const auto& [fault, count] : faults) std::cout << ", " << fault << " " << count;
    std::cout << std::endl;
}

} // namespace
} // namespace halvern::soak

int main(int count, char** arguments)
{
    halvern::soak::Options options;
    for (int i = 1; i + 1 < count; i += 2) {
        const std::string_view name = arguments[i];
        if (name == "--hours") options.hours = std::atoi(arguments[i + 1]);
        if (name == "--seed") options.seed = std::strtoull(arguments[i + 1], nullptr, 10);
        if (name == "--lines") options.lines = arguments[i + 1];
    }
    halvern::soak::Year(options).Run();
}
