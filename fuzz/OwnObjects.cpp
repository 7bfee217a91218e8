// SPDX-License-Identifier: GPL-3.0-or-later
// The dialogs of own objects, as an operator fills them in who types anything, and what goes on the air of it. Each
// line of an input is one doing: "c" creates, "m" moves, "k" kills, "s" stops, "t" takes over, each with the row that
// is picked and the fields behind it, with commas between; "h" is a line heard; "w" lets the timer tick. Whatever was
// typed or heard, what goes out is an object report at a place on earth, by a path that a frame can carry.
#include <cstdint>

#include "LivingStation.h"
#include "engine/ResetStores.h"
#include "protocol/ObjectSchedule.h"
#include "protocol/PositionField.h"
#include "state/Rows.h"

using namespace halvern;

namespace {

void Type(TextField& field, std::string_view text)
{
    field.SetText("");
    for (const char character : text) field.Press(static_cast<unsigned char>(character));
    field.Leave();
}

/// What the operator does in whatever dialog comes up: picks a row, fills in what there is, OK, and gives up otherwise.
class Operator {
public:
    Operator(Halvern& halvern, const std::string& line) : halvern(halvern), fields(SplitAt(line)) { fields.resize(16); }
    void Meet(Form& form)
    {
        auto& create = halvern.CreateObjectsFrm;
        auto& move = halvern.MoveMyObjectFrm;
        if (&form == &halvern.AddPathFrm) BuildPath();
        if (&form == &create) {
            Type(create.ObjectNameTxt, create.ObjectNameTxt.Enabled() ? fields[1] : create.ObjectNameTxt.Text());
            if (create.ObjectNameTxt.Enabled()) create.SymbolCombo.Click(Number(2) % create.SymbolCombo.Count());
            Fill(create);
        }
        if (&form == &move) Pick(move.ObjectLst), Fill(move);
        if (&form == &halvern.KillMyObjectsFrm) Finish(halvern.KillMyObjectsFrm);
        if (&form == &halvern.StpTransObjectsFrm) Finish(halvern.StpTransObjectsFrm);
        if (&form == &halvern.TakeTransObjFrm) {
            Pick(halvern.TakeTransObjFrm.OthersObjLst);
            halvern.TakeTransObjFrm.OkCmd.Click();
        }
        form.Hide();
    }

private:
    int Number(std::size_t field) const
    {
        return static_cast<int>(std::clamp(LeadingNumber(fields[field]), 0.0, 9999.0));
    }
    void Pick(List& list) const
    {
        if (list.Count() > 0) list.Click(Number(0) % list.Count());
    }
    template <class PickForm> void Finish(PickForm& form) const
    {
        Pick(form.ObjectLst);
        form.OkCmd.Click();
    }
    void Fill(ObjectFieldsForm& form)
    {
        auto texts = form.Texts();
        for (std::size_t i = 0; i < texts.size(); ++i)
            if (!fields[3 + i].empty()) texts[i] = fields[3 + i];
        form.SetTexts(texts);
        form.ObjectCourselbl.SetNumber(std::min(Number(11), form.ObjectCourselbl.most));
        form.ObjectSpeedlbl.SetNumber(std::min(Number(12), form.ObjectSpeedlbl.most));
        Type(form.CommentTXT, fields[13]);
        form.OkCmd.Click();
    }
    void BuildPath()
    {
        auto& form = halvern.AddPathFrm;
        auto call = fields[15];
        // A call of other characters makes an address that no receiver can read.
        std::erase_if(call, [](char each) {
            const char letter = UpperCase(each);
            return !IsDigit(each) && each != '-' && (letter < 'A' || letter > 'Z');
        });
        for (const char step : fields[14]) {
            form.PathOpt.Select(static_cast<unsigned char>(step) % 5);
            Type(form.PathCallTxt, call);
            form.PathUpDateCmd.Click();
        }
        form.OkCmd.Click();
        if (form.Visible()) form.CancelCmd.Click();
    }
    Halvern& halvern;
    std::vector<std::string> fields;
};

void CheckReport(std::string_view line)
{
    Require(line.starts_with("Q0OWN>APHV01"), "an own object goes out in the own name");
    const auto info = Columns(line, PositionOf(line, ':') + 1);
    Require(info.starts_with(";") && info.size() >= 37 && (info[10] == '*' || info[10] == '_') && info[17] == 'z',
            "it is an object report");
    const PositionTexts place{std::string(info.substr(18, 2)), std::string(info.substr(20, 2)),
                              std::string(info.substr(23, 2)), std::string(info.substr(25, 1)),
                              std::string(info.substr(27, 3)), std::string(info.substr(30, 2)),
                              std::string(info.substr(33, 2)), std::string(info.substr(35, 1))};
    Require(PositionFault(place, "").empty(), "it has a place on earth");
    for (const unsigned char character : info) Require(character >= ' ', "no control characters on the air");
}

void CheckSchedule(const MainForm& main)
{
    const auto& timer = main.MyObjectTimer;
    Require(main.MyObjectLst.Count() == 0 || timer.Running(), "the timer runs while there is an object");
    if (timer.Interval() != 1) return;
    for (int i = 0; i < main.TransmitLst.Count(); ++i)
        Require(UntilObjectGoesOut(main.TransmitLst.Row(i), timer.Interval(), main.ObjectCycle, 0).has_value(),
                "every object knows when it goes out");
}

void Do(test::Station& station, char kind, const std::string& rest)
{
    auto& main = station.halvern.ConMdiFrm;
    Operator whoever(station.halvern, rest);
    station.dialogs.RunModal = [&](Form& form) { whoever.Meet(form); };
    const std::pair<char, const Button*> doings[] = {{'c', &main.CreateMyObjectsMenu},
                                                     {'m', &main.MoveMyObjMenu},
                                                     {'k', &main.KillMyObjectsMenu},
                                                     {'s', &main.StpTransObjectsMenu},
                                                     {'t', &main.TakeTransmitMenu}};
    for (const auto& [letter, menu] : doings)
        if (kind == letter && menu->Enabled()) menu->Click();
    if (kind == 'h') station.Hear(rest, "TCPIP");
    if (kind != 'w' || !main.MyObjectTimer.Running()) return;
    main.MyObjectTimer.Tick();
    for (const auto& line : station.SentByRadio()) CheckReport(line);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto& station = LivingStation();
    auto& halvern = station.halvern;
    if (!halvern.ConMdiFrm.PortTnc.Checked()) station.OpenTnc();
    halvern.ConMdiFrm.Timer2.Stop();
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const auto line : LinesOf(text)) {
        station.SentByRadio(); // acks and answers
        if (!line.empty()) Do(station, line.front(), std::string(line.substr(1)));
        CheckSchedule(halvern.ConMdiFrm);
    }
    CheckInvariants(halvern);
    if (halvern.PositionFrm.PosLst.Count() > 200 || halvern.ConMdiFrm.MyObjectLst.Count() > 8)
        ResetStores(halvern, "StartAgain");
    return 0;
}
