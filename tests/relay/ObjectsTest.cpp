// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Objects.h"

#include <deque>

#include "engine/ResetStores.h"
#include "protocol/ObjectSchedule.h"
#include "support/StationTest.h"

namespace halvern::test {
namespace {

// --- records, places, the schedule -----------------------------------------------------------------------------------

const MyObject Leader{"LEADER", "/>", {{"49", "03", "50", "N", "072", "01", "75", "W"}, 88, 36, "in front"}, "WIDE2-2"};

TEST(MyObjectRecords, AreWrittenAndReadBack)
{
    const std::string front = ";LEADER   *092345z4903.50N/07201.75W>";
    const auto record = [&](auto change) {
        auto object = Leader;
        change(object);
        return MyObjectRecord(object, "092345");
    };
    EXPECT_EQ(record([](MyObject&) {}), front + "088/036in front|WIDE2-2");
    EXPECT_EQ(record([](MyObject& o) { o.place.course = 0, o.place.speed = 10; }), front + "000/010in front|WIDE2-2");
    EXPECT_EQ(record([](MyObject& o) { o.place.course = o.place.speed = 0, o.path = ""; }), front + "in front|");
    EXPECT_EQ(record([](MyObject& o) { o.place.comment = "a|b"; }), front + "088/036a|WIDE2-2");
    EXPECT_EQ(record([](MyObject& o) { o.name = "LONGERNAME", o.symbol = ""; }),
              ";LONGERNAM*092345z4903.50N 07201.75W 088/036in front|WIDE2-2");

    const auto read = ReadMyObject(record([](MyObject&) {}));
    EXPECT_EQ(MyObjectRecord(read, "092345"), front + "088/036in front|WIDE2-2");
    EXPECT_EQ(ReadMyObject(front + "Jay/Bob is here|").place.comment, "Jay/Bob is here") << "no course, no speed";
    const auto barred = ReadMyObject(";A|B|C    *092345z4903.50N/07201.75W||WIDE1-1");
    EXPECT_EQ(barred.name + barred.symbol + barred.path, "A|B|C    /|WIDE1-1");
    EXPECT_EQ(KilledRecord(record([](MyObject&) {})).substr(0, 12), ";LEADER   _0");
    for (std::size_t length = 0; length <= front.size(); ++length) { // a damaged file gave these back
        const auto cut = (front + "|").substr(0, length);
        EXPECT_EQ(MyObjectInformation(cut), cut.substr(0, 37));
        EXPECT_EQ(ReadMyObject(cut).path, "");
        EXPECT_EQ(KilledRecord(cut)[10], '_');
    }
}

TEST(MyObjectRecords, TakeAPlaceFromWhatWasHeard)
{
    const struct {
        const char* tail;
        int course, speed;
        const char* comment;
    } cases[] = {{"088/036up front <Q2XYZ>", 88, 36, "up front "},
                 {".../...up <Q2XYZ>", 0, 0, "up "},
                 {"PHG5130 a < b <Q2XYZ>", 0, 0, "PHG5130 a "},
                 {"<Q2XYZ>", 0, 0, ""},
                 {"", 0, 0, ""}};
    for (const auto& each : cases) {
        const auto place = HeardObjectPlace(std::string("<Q>       ;011212z4012.00N\\07200.25W<") + each.tail);
        EXPECT_EQ(place.position, (PositionTexts{"40", "12", "00", "N", "072", "00", "25", "W"}));
        EXPECT_EQ(place.course, each.course) << each.tail;
        EXPECT_EQ(place.speed, each.speed) << each.tail;
        EXPECT_EQ(place.comment, each.comment);
    }
}

TEST(PositionTexts, ComeFromDegrees)
{
    const struct {
        double latitude, longitude;
        PositionTexts texts;
    } cases[] = {{40.819, 73.14016, {"40", "49", "14", "N", "073", "08", "41", "W"}},
                 {-0.00005, -0.5, {"00", "00", "00", "S", "000", "30", "00", "E"}},
                 {59.99999, -9.99999, {"60", "00", "00", "N", "010", "00", "00", "E"}},
                 {90.5, 190, {"90", "00", "00", "N", "170", "00", "00", "E"}},
                 {-91, -181.25, {"90", "00", "00", "S", "178", "45", "00", "W"}}};
    for (const auto& each : cases) {
        EXPECT_EQ(PositionTextsOf(each.latitude, each.longitude), each.texts);
        EXPECT_EQ(PositionFault(each.texts, ""), "");
    }
}

TEST(ObjectSchedule, TellsWhenAnObjectGoesOut)
{
    const struct {
        const char* stage;
        int interval, cycle, rest, until;
    } cases[] = {{" ", 1, 0, 1, 1},
                 {"A", 8000, 0, 500, 500},
                 {"A", 1, 0, 1, 8001},
                 {"C", 1, 7, 1, 56001},
                 {"D", 32000, 0, 100, 60100},
                 {"D", 60000, 0, 100, 100},
                 {"D", 60000, 1, 100, 1740100},
                 {"D", 60000, 29, 100, 60100},
                 {"B", 60000, 0, 100, -1},
                 {" ", 8000, 0, 100, -1},
                 {"A", 0, 0, 0, -1},
                 {"", 1, 0, 1, -1}};
    for (const auto& each : cases)
        EXPECT_EQ(UntilObjectGoesOut(each.stage, each.interval, each.cycle, each.rest).value_or(-1), each.until)
            << each.stage << " at " << each.interval;
}

// --- the dialogs -----------------------------------------------------------------------------------------------------

/// A station and the hands of its operator: each dialog that comes up is worked by the next of them.
struct Operator {
    explicit Operator(const char* call)
    {
        station.SetUp();
        station.SetCall(call);
        main.MyObjectsMenu.SetVisible(true);
        station.dialogs.RunModal = [this](Form&) {
            const auto hand = std::move(hands.front());
            hands.pop_front();
            hand();
        };
    }
    void Fill(const std::string& name)
    {
        auto& form = halvern.CreateObjectsFrm;
        form.ObjectNameTxt.SetText(name);
        form.SymbolCombo.Select(form.SymbolCombo.IndexOf("Car />"));
        form.SetTexts(Leader.place.position);
    }
    /// Creates an object by way of the dialogs, without a path.
    void Create(const std::string& name)
    {
        hands = {[this, name] {
                     Fill(name);
                     halvern.CreateObjectsFrm.OkCmd.Click();
                 },
                 [this] { halvern.AddPathFrm.CancelCmd.Click(); }};
        main.CreateMyObjectsMenu.Click();
    }
    /// Opens a dialog, selects a row and presses a button.
    void Pick(MenuItem& menu, List& list, int row, Button& button)
    {
        hands.push_front([&list, row, &button] {
            list.Select(row);
            button.Click();
        });
        menu.Click();
    }
    void Kill(int row)
    {
        Pick(main.KillMyObjectsMenu, halvern.KillMyObjectsFrm.ObjectLst, row, halvern.KillMyObjectsFrm.OkCmd);
    }
    Strings Said(const char* kind)
    {
        auto said = station.TakeSaid();
        std::erase_if(said, [kind](const std::string& line) { return !line.starts_with(kind); });
        return said;
    }

    Station station;
    Halvern& halvern = station.halvern;
    MainForm& main = halvern.ConMdiFrm;
    std::deque<std::function<void()>> hands;
};

struct MyObjects : testing::Test, Operator {
    MyObjects() : Operator("Q0OWN") {}
};

TEST_F(MyObjects, ChecksComeInTheOrderOfTheFormForBothDialogs)
{
    const std::pair<const char*, std::pair<std::size_t, const char*>> steps[] = {
        {"You have to enter Degrees Of Latitude first.", {0, "91"}},
        {"Degrees of Latitude cannot be more than 90.", {0, "40"}},
        {"You have to enter Minutes Of Latitude first.", {1, "12"}},
        {"You have to enter Decimal Minutes Of Latitude first.", {2, "00"}},
        {"You have to enter Hemisphere Of Latitude first.", {3, "x"}},
        {"Hemisphere Of Latitude must be expressed as a 'N' or 'S'", {3, "s"}},
        {"You have to enter Degrees Of Longitude first.", {4, "72"}},
        {"Degrees of Longitude must be three digits long. If your Degrees of Longitude has two or less digits then "
         "please add a zero(s) in the front of it.",
         {4, "072"}},
        {"You have to enter Minutes Of Longitude first.", {5, "00"}},
        {"You have to enter a Decimal Minutes Of Longitude first.", {6, "00"}},
        {"You have to enter Hemisphere Of Longitude first.", {7, "e"}}};
    const auto walk = [&](ObjectFieldsForm& form) {
        form.SetTexts({});
        for (const auto& [message, remedy] : steps) {
            station.TakeSaid();
            form.OkCmd.Click();
            EXPECT_THAT(station.TakeSaid(), ElementsAre("message none \"Halvern\" \"" + std::string(message) + "\""));
            EXPECT_TRUE(form.Visible());
            form.InOrder()[remedy.first]->SetText(remedy.second);
        }
        form.OkCmd.Click();
        EXPECT_FALSE(form.Visible());
    };
    hands = {[&] {
                 Fill("HERE");
                 walk(halvern.CreateObjectsFrm);
             },
             [] {}}; // the path's close box is its cancel button
    main.CreateMyObjectsMenu.Click();
    hands = {[&] {
        halvern.MoveMyObjectFrm.ObjectLst.Select(0);
        walk(halvern.MoveMyObjectFrm);
    }};
    main.MoveMyObjMenu.Click();
    EXPECT_THAT(Station::Rows(main.MyObjectLst), ElementsAre(";HERE     *010000z4012.00S/07200.00E>|"));
}

/// What the operator has in hand may be gone when he presses OK.
TEST_F(MyObjects, AnObjectThatGoesWhileItsDialogIsUpCantBePicked)
{
    const auto lose = [&](bool all) {
        if (all)
            ResetStores(halvern, "ClearMenu");
        else
            station.Hear("Q2XYZ>APRS:;ONE      *011212z4012.00N/07200.00W>");
    };
    struct {
        MenuItem& menu;
        List& list;
        Button& ok;
    } dialogs[] = {
        {main.MoveMyObjMenu, halvern.MoveMyObjectFrm.ObjectLst, halvern.MoveMyObjectFrm.OkCmd},
        {main.KillMyObjectsMenu, halvern.KillMyObjectsFrm.ObjectLst, halvern.KillMyObjectsFrm.OkCmd},
        {main.StpTransObjectsMenu, halvern.StpTransObjectsFrm.ObjectLst, halvern.StpTransObjectsFrm.OkCmd},
    };
    for (const bool all : {false, true})
        for (auto& [menu, list, ok] : dialogs) {
            ResetStores(halvern, "ClearMenu");
            Create("ONE");
            Create("TWO");
            hands = {[&, &list = list, &ok = ok] {
                list.Select(0);
                lose(all);
                station.TakeSaid();
                ok.Click();
                EXPECT_THAT(Said("message"), ElementsAre(HasSubstr("You must first select an object to ")));
                EXPECT_EQ(list.Count(), all ? 0 : 1);
                EXPECT_EQ(list.Selected(), -1);
            }};
            menu.Click();
            EXPECT_EQ(Station::Rows(main.MyObjectLst).size(), all ? 0 : 1);
            EXPECT_EQ(main.TransmitLst.Count(), main.MyObjectLst.Count());
            EXPECT_EQ(main.MyObjectTimer.Running(), !all);
        }
}

TEST_F(MyObjects, OfAnyNameAreTakenOverAndGoOutWhole)
{
    const char* const names[] = {"         ", "A|B      ", "}Q9ZZZ>AP", ":::::::::", "<Q0OWN   ", "\xC0\xDB\x01      "};
    auto& take = halvern.TakeTransObjFrm;
    station.OpenTnc();
    station.time.Wait(1);
    station.SentByRadio();
    for (const std::string name : names) {
        station.Hear("Q2XYZ>APRS:;" + name + "*011212z4012.00N/07200.00W<x");
        hands = {[&] { halvern.CreateObjectsFrm.OkCmd.Click(); }, [&] { halvern.AddPathFrm.CancelCmd.Click(); }};
        hands.push_front([&] {
            take.OthersObjLst.Select(take.OthersObjLst.Count() - 1);
            halvern.PositionFrm.PosLst.Remove(halvern.PositionFrm.PosLst.Count() - 1); // gone behind the dialog's back
            take.OkCmd.Click();
        });
        main.TakeTransmitMenu.Click();
        station.time.Wait(1);
        EXPECT_THAT(station.SentByRadio(), Contains("Q0OWN>APHV01:;" + name + "*010000z4012.00N/07200.00W<x "));
        EXPECT_GE(halvern.PositionFrm.PosLst.Find(name), 0);
    }
    EXPECT_FALSE(main.MoveMyObjMenu.Enabled());
}

TEST_F(MyObjects, ASymbolThatNobodyCanPickMustBeReplaced)
{
    station.Hear("Q2XYZ>APRS:;ODD      *011212z4012.00N/07200.00W2");
    hands = {[&] {
        EXPECT_EQ(halvern.CreateObjectsFrm.SymbolCombo.Text(), "NONE");
        halvern.CreateObjectsFrm.OkCmd.Click();
        EXPECT_THAT(Said("message"), ElementsAre(HasSubstr("You have to Pick a Symbol first.")));
    }};
    Pick(main.TakeTransmitMenu, halvern.TakeTransObjFrm.OthersObjLst, 0, halvern.TakeTransObjFrm.OkCmd);
    EXPECT_EQ(main.MyObjectLst.Count(), 0);
    Create("ODD");
    EXPECT_EQ(main.MyObjectLst.Count(), 1) << "the name is free again";
}

// --- on the air ------------------------------------------------------------------------------------------------------

TEST_F(MyObjects, GoOutByEveryPortInItsOwnForm)
{
    main.InternetSoc.Connect();
    main.Psk63Soc.Connect();
    main.PortTnc.SetChecked(true);
    main.MSComm1.Open();
    main.MyObjectLst.Add(";HERE     *010000z4012.00N/07200.00W>\xDB|WIDE2-2");
    main.MyObjectLst.Add(";SHORT"); // given back by a damaged file, as is the stage that the second one lacks
    main.TransmitLst.Add(" ");
    main.MyObjectTimer.Start(1);
    station.time.Wait(1);
    const std::string report = ";HERE     *010000z4012.00N/07200.00W>";
    EXPECT_THAT(station.SentByRadio(), ElementsAre("Q0OWN>APHV01,WIDE2-2:" + report + "\xDB"));
    EXPECT_THAT(station.SentBy(main.InternetSoc), ElementsAre("Q0OWN>APHV01,TCPIP*:" + report + "\xDB\xDD\r\n"));
    EXPECT_THAT(station.SentBy(main.Psk63Soc), ElementsAre("Q0OWN>APHV01,WIDE2-2:" + report + "\xDB\r\n"));
    halvern.SetUpfrm.Psk63PortTxt.SetText("3122");
    main.PortTnc.SetChecked(false);
    ChangeMyObject(halvern, 1, main.MyObjectLst.Row(0));
    main.MyObjectTimer.SetInterval(1);
    station.time.Wait(1);
    EXPECT_THAT(station.SentBy(main.Psk63Soc), ElementsAre(Marked("SSSSSQ0OWN>APHV01:" + report +
                                                                  "\xDB"
                                                                  "EEEEE"),
                                                           "\x1ATX\x1B"));
}

TEST_F(MyObjects, GoWithStoresThatStartAgainInTheMiddleOfATick)
{
    for (const auto* name : {"ONE", "TWO", "THREE"}) Create(name);
    for (int i = 0; i <= 32700; ++i) halvern.TerminalFrm.RawPacketLst.Add("x");
    station.time.Wait(60000);
    EXPECT_EQ(main.MyObjectLst.Count() + main.TransmitLst.Count(), 0);
    EXPECT_FALSE(main.MyObjectTimer.Running());
    Create("FOUR");
    station.time.Wait(1);
    EXPECT_THAT(Station::Rows(main.TransmitLst), ElementsAre("A"));
}

TEST_F(MyObjects, KeepTheirPaceOverTheHours)
{
    using Times = std::vector<std::int64_t>;
    constexpr std::int64_t second = 1000, minute = 60 * second;
    Create("ONE");
    Times one{1}, two, sentOne, sentTwo;
    for (const int after : {8, 24, 56, 116}) one.push_back(1 + after * second);
    for (int half = 1; half <= 8; ++half) one.push_back(1 + 116 * second + half * 30 * minute);
    // the second one begins the pace anew at 40 minutes, and the count of minutes goes on from where it was: 11 of 30
    // ticks of the slow interval are left when it is reached again
    const auto start = 40 * minute;
    for (const int after : {0, 8, 24, 56}) two.push_back(start + 1 + after * second);
    const auto slow = start + 1 + 116 * second;
    const int ticks = static_cast<int>((start - (1 + 116 * second)) / minute) + 1 - 30; // of the second half hour
    one.resize(6);
    for (auto time = slow + (30 - ticks) * minute; time <= 4 * 60 * minute; time += 30 * minute) {
        one.push_back(time);
        two.push_back(time);
    }

    const auto tick = main.MyObjectTimer.OnTick;
    station.OpenTnc();
    main.Timer2.Stop();
    main.MyObjectTimer.OnTick = [&] {
        tick();
        for (const auto& line : station.SentByRadio())
            (Holds(line, ";ONE") ? sentOne : sentTwo).push_back(station.time.Elapsed());
    };
    station.time.Wait(start);
    Create("TWO");
    station.time.Wait(4 * 60 * minute - start);
    EXPECT_EQ(sentOne, one);
    EXPECT_EQ(sentTwo, two);

    // a kill sends the one and not the other
    const auto before = sentOne.size();
    Kill(1);
    station.time.Wait(second);
    EXPECT_EQ(sentTwo.size(), two.size() + 1);
    EXPECT_EQ(sentOne.size(), before);
}

/// Two stations that hear each other by radio, or through a server that hands on what it gets.
struct TwoStations : testing::Test {
    void PassOn(Operator& from, Operator& to)
    {
        for (const auto& frame : from.station.SentBy(from.main.MSComm1)) to.main.MSComm1.Arrived(frame);
        for (const auto& line : from.station.SentBy(from.main.InternetSoc)) to.main.InternetSoc.Arrived(line);
    }
    void Pass(std::int64_t milliseconds)
    {
        for (auto* each : {&near, &far}) each->station.time.Wait(milliseconds);
        PassOn(near, far);
        PassOn(far, near);
    }
    static void OpenPort(Operator& each, bool radio)
    {
        if (radio) return each.station.OpenTnc();
        each.main.InternetSoc.Connect();
        each.main.ServerLoggedIn = true;
    }
    static Strings RowsOfObject(Operator& each)
    {
        auto rows = Station::Rows(each.halvern.PositionFrm.PosLst);
        std::erase_if(rows, [](const std::string& row) { return row[10] != ';'; });
        return rows;
    }
    Operator near{"Q0AAA"}, far{"Q0BBB"};
};

TEST_F(TwoStations, HandAnObjectOverAndKillIt)
{
    for (const bool radio : {true, false}) {
        for (auto* each : {&near, &far}) {
            ResetStores(each->halvern, "ClearMenu");
            OpenPort(*each, radio);
        }
        const auto place = std::string(radio ? ";010000" : ";010100") + "z4903.50N/07201.75W>"; // an hour each
        near.Create("FIRE");
        Pass(1);
        EXPECT_THAT(RowsOfObject(far), ElementsAre("FIRE      " + place + " <Q0AAA>"));

        far.hands = {[&] { far.halvern.CreateObjectsFrm.OkCmd.Click(); },
                     [&] { far.halvern.AddPathFrm.CancelCmd.Click(); }};
        far.Pick(far.main.TakeTransmitMenu, far.halvern.TakeTransObjFrm.OthersObjLst, 0,
                 far.halvern.TakeTransObjFrm.OkCmd);
        Pass(2);
        EXPECT_EQ(near.main.MyObjectLst.Count(), 0);
        EXPECT_FALSE(near.main.MyObjectTimer.Running());
        EXPECT_FALSE(near.main.KillMyObjectsMenu.Enabled());
        EXPECT_THAT(RowsOfObject(near), ElementsAre("FIRE      " + place + "  <Q0BBB>"));
        Pass(8000);
        EXPECT_EQ(far.main.TransmitLst.Row(0), "B") << "its own object coming back is no take-over";

        far.Kill(0);
        Pass(1);
        EXPECT_THAT(RowsOfObject(near), ElementsAre("FIRE     X" + place + "  <Q0BBB>"));
        EXPECT_FALSE(near.halvern.Map.StationPlot[near.halvern.PositionFrm.PosLst.Find("FIRE     ")].Shown);
        far.Pick(far.main.StpTransObjectsMenu, far.halvern.StpTransObjectsFrm.ObjectLst, 0,
                 far.halvern.StpTransObjectsFrm.OkCmd);
        far.station.SentBy(far.main.MSComm1);
        Pass(3'600'000);
        EXPECT_FALSE(far.main.MyObjectTimer.Running());
        EXPECT_THAT(far.Said("message"), IsEmpty());
    }
}

} // namespace
} // namespace halvern::test
