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
    const auto whole = record([](MyObject&) {});
    EXPECT_EQ(whole, front + "088/036in front|WIDE2-2");
    EXPECT_EQ(record([](MyObject& o) { o.place.course = 0, o.place.speed = 10; }), front + "000/010in front|WIDE2-2");
    EXPECT_EQ(record([](MyObject& o) { o.place.course = o.place.speed = 0, o.path = ""; }), front + "in front|");
    EXPECT_EQ(record([](MyObject& o) { o.place.comment = "a|b", o.name = "LONGERNAME", o.symbol = ""; }),
              ";LONGERNAM*092345z4903.50N 07201.75W 088/036a|WIDE2-2");
    EXPECT_EQ(MyObjectRecord(ReadMyObject(whole), "092345"), whole);
    EXPECT_EQ(ReadMyObject(front + "Jay/Bob is here|").place.comment, "Jay/Bob is here") << "no course, no speed";
    const auto barred = ReadMyObject(";A|B|C    *092345z4903.50N/07201.75W||WIDE1-1");
    EXPECT_EQ(barred.name + barred.symbol + barred.path, "A|B|C    /|WIDE1-1");
    for (std::size_t length = 0; length <= front.size(); ++length) { // a damaged file gave these back
        const auto cut = (front + "|").substr(0, length);
        EXPECT_EQ(MyObjectInformation(cut), cut.substr(0, 37));
        EXPECT_EQ(ReadMyObject(cut).path, "");
        EXPECT_EQ(KilledRecord(cut)[10], '_');
    }
}

TEST(PositionTexts, ComeFromDegrees)
{
    const std::tuple<double, double, PositionTexts> cases[] = {
        {40.819, 73.14016, {"40", "49", "14", "N", "073", "08", "41", "W"}},
        {-0.00005, -0.5, {"00", "00", "00", "S", "000", "30", "00", "E"}},
        {59.99999, -9.99999, {"60", "00", "00", "N", "010", "00", "00", "E"}},
        {90.5, 190, {"90", "00", "00", "N", "170", "00", "00", "E"}},
        {-91, -181.25, {"90", "00", "00", "S", "178", "45", "00", "W"}}};
    for (const auto& [latitude, longitude, texts] : cases) {
        EXPECT_EQ(PositionTextsOf(latitude, longitude), texts);
        EXPECT_EQ(PositionFault(texts, ""), "");
    }
}

TEST(ObjectSchedule, TellsWhenAnObjectGoesOut)
{
    using Row = std::tuple<const char*, int, int, int, int>;
    const Row cases[] = {{" ", 1, 0, 1, 1},
                         {"A", 8000, 0, 500, 500},
                         {"C", 1, 7, 1, 56001},
                         {"D", 32000, 0, 100, 60100},
                         {"D", 60000, 1, 100, 1740100},
                         {"D", 60000, 29, 100, 60100},
                         {"B", 60000, 0, 100, -1},
                         {"A", 0, 0, 0, -1},
                         {"", 1, 0, 1, -1}};
    for (const auto& [stage, interval, cycle, rest, until] : cases)
        EXPECT_EQ(UntilObjectGoesOut(stage, interval, cycle, rest).value_or(-1), until) << stage << " at " << interval;
}

// --- the dialogs -----------------------------------------------------------------------------------------------------

/// A station and the hands of its operator: each dialog that comes up is worked by the next of them.
struct MyObjects : StationTest {
    MyObjects()
    {
        main.MyObjectsMenu.SetVisible(true);
        station.dialogs.RunModal = [this](Form&) {
            const auto hand = std::move(hands.front());
            hands.pop_front();
            hand();
        };
    }
    /// Creates an object by way of the dialogs, without a path.
    void Create(const std::string& name)
    {
        hands = {[this, name] {
                     auto& dialog = halvern.CreateObjectsFrm;
                     dialog.ObjectNameTxt.SetText(name);
                     dialog.SymbolCombo.Select(dialog.SymbolCombo.IndexOf("Car />"));
                     dialog.SetTexts(Leader.place.position);
                     dialog.OkCmd.Click();
                 },
                 [this] { halvern.AddPathFrm.CancelCmd.Click(); }};
        main.CreateMyObjectsMenu.Click();
    }
    std::deque<std::function<void()>> hands;
};

/// What the operator has in hand may be gone when he presses OK.
TEST_F(MyObjects, AnObjectThatGoesWhileItsDialogIsUpCantBePicked)
{
    const std::tuple<MenuItem&, List&, Button&> dialogs[] = {
        {main.MoveMyObjMenu, halvern.MoveMyObjectFrm.ObjectLst, halvern.MoveMyObjectFrm.OkCmd},
        {main.KillMyObjectsMenu, halvern.KillMyObjectsFrm.ObjectLst, halvern.KillMyObjectsFrm.OkCmd},
        {main.StpTransObjectsMenu, halvern.StpTransObjectsFrm.ObjectLst, halvern.StpTransObjectsFrm.OkCmd}};
    for (const bool all : {false, true})
        for (const auto& [menu, list, ok] : dialogs) {
            ResetStores(halvern, "ClearMenu");
            for (const auto* name : {"ONE", "TWO"}) Create(name);
            hands = {[&, &list = list, &ok = ok] {
                list.Select(0);
                all ? ResetStores(halvern, "ClearMenu")
                    : station.Hear("Q2XYZ>APRS:;ONE      *011212z4012.00N/07200.00W>");
                Said();
                ok.Click();
                EXPECT_THAT(Said(), Contains(HasSubstr("You must first select an object to ")));
                EXPECT_EQ(list.Selected(), -1);
            }};
            menu.Click();
            for (const auto* store : {&list, &main.MyObjectLst, &main.TransmitLst})
                EXPECT_EQ(store->Count(), all ? 0 : 1);
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
        station.Hear("Q0OWN>APHV01,Q0DIG*:;" + name + "*010000z4012.00N/07200.00W<x");
        EXPECT_EQ(FindMyObject(halvern, name), main.MyObjectLst.Count() - 1) << "coming back is no take-over";
    }
    EXPECT_FALSE(main.MoveMyObjMenu.Enabled());
}

// --- on the air ------------------------------------------------------------------------------------------------------

} // namespace
} // namespace halvern::test
