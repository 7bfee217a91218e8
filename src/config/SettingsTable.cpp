// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <charconv>
#include <cstdint>

#include "config/Fonts.h"
#include "config/IniTable.h"
#include "platform/Text.h"
#include "view/ChildWindows.h"

namespace halvern {
namespace {

constexpr int NoEntry = -1; ///< an index that means: nothing is selected

int Number(const std::string& text)
{
    return static_cast<int>(LeadingNumber(text));
}

/// The shortest text that reads back as the same float, with all its digits in front of and behind a point.
std::string ShortestText(float number)
{
    char buffer[80];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed).ptr;
    return {buffer, end};
}

IniRow TextRow(std::string name, TextField& field, LineKind kind = LineKind::Field)
{
    return {std::move(name), kind, [&] { return field.Text(); }, [&](const std::string& text) { field.SetText(text); }};
}

IniRow IntegerRow(std::string name, std::function<int()> get, std::function<void(int)> set, int least = INT16_MIN,
                  int most = INT16_MAX)
{
    return {std::move(name),
            LineKind::Integer,
            [get = std::move(get)] { return std::to_string(std::clamp<int>(get(), INT16_MIN, INT16_MAX)); },
            [set = std::move(set)](const std::string& text) { set(Number(text)); },
            least,
            most};
}

/// The index of a list whose entries are fixed.
IniRow IndexRow(std::string name, List& list)
{
    return IntegerRow(
        std::move(name), [&] { return list.Selected(); }, [&](int index) { list.Preselect(index); }, NoEntry,
        list.Count() - 1);
}

/// The index of a list whose entries may have changed since: one that is not there any more selects nothing.
IniRow LooseIndexRow(std::string name, List& list)
{
    return IntegerRow(
        std::move(name), [&] { return list.Selected(); },
        [&](int index) { list.Preselect(index >= 0 && index < list.Count() ? index : NoEntry); }, NoEntry);
}

IniRow ListRow(std::string name, List& list, int builtIn)
{
    IniRow row;
    row.name = std::move(name);
    row.kind = LineKind::WholeLine;
    row.list = &list;
    row.builtIn = builtIn;
    row.indexBefore = builtIn > 0;
    return row;
}

IniRow TruthRow(std::string name, std::function<bool()> get, std::function<void(bool)> set)
{
    return {std::move(name), LineKind::Truth, [get = std::move(get)] { return get() ? "True" : "False"; },
            [set = std::move(set)](const std::string& word) { set(word == "True"); }};
}

IniRow SingleRow(std::string name, float& number)
{
    return {std::move(name), LineKind::Single, [&] { return ShortestText(number); },
            [&](const std::string& text) { number = static_cast<float>(LeadingNumber(text)); }};
}

// --- the groups of lines, in the order of the file -------------------------------------------------------------------

void AddStation(IniTable& table, SetUpForm& s)
{
    table.push_back(TextRow("call sign", s.CallSignTxt));
    table.push_back({"SSID", LineKind::Field, [&] { return s.SSIDLBL.Caption(); },
                     [&](const std::string& text) { s.SSIDLBL.SetCaption(text); }});
    table.push_back(TextRow("degrees of latitude", s.LatDegtxt));
    table.push_back(TextRow("minutes of latitude", s.LatMintxt));
    table.push_back(TextRow("decimal minutes of latitude", s.LatDectxt));
    table.push_back(TextRow("hemisphere of latitude", s.LatSigntxt));
    table.push_back(TextRow("degrees of longitude", s.LonDegtxt));
    table.push_back(TextRow("minutes of longitude", s.LonMintxt));
    table.push_back(TextRow("decimal minutes of longitude", s.LonDectxt));
    table.push_back(TextRow("hemisphere of longitude", s.LonSigntxt));
    table.push_back(IndexRow("TNC port", s.PortLst));
    table.push_back(IndexRow("TNC speed", s.PortSpeedLst));
    table.push_back(IndexRow("TNC type", s.TncTypeCombo));
    table.push_back(IndexRow("symbol", s.SymbolCombo));
    table.push_back({"overlay character", LineKind::Field, [&] { return s.OverlayChar; },
                     [&](const std::string& text) { s.OverlayChar = text.substr(0, 1); }});
    table.push_back(TextRow("position comment", s.CommentTXT, LineKind::WholeLine));
    table.push_back(TextRow("status text", s.StatusTXT, LineKind::WholeLine));
}

void AddPathsAndGroups(IniTable& table, Halvern& halvern)
{
    auto& s = halvern.SetUpfrm;
    table.push_back(LooseIndexRow("unproto path index", s.UnPath));
    table.push_back(ListRow("unproto path", s.UnPath, 2));
    table.push_back(ListRow("message group", s.MsgGroupLst, 0));
    table.push_back(LooseIndexRow("mail path index", halvern.MessageFrm.MailUnPath));
    table.push_back(ListRow("mail path", halvern.MessageFrm.MailUnPath, 2));
}

void AddPlaces(IniTable& table, Halvern& halvern)
{
    struct Part {
        const char* name;
        int Place::*value;
    };
    for (Form* form : RememberedWindows(halvern)) {
        for (const Part part : {Part{"height", &Place::height}, Part{"left edge", &Place::left},
                                Part{"top edge", &Place::top}, Part{"width", &Place::width}}) {
            table.push_back(IntegerRow(
                std::string(part.name) + " of " + form->Name(), [=] { return form->Place().*part.value; },
                [=](int value) {
                    auto place = form->Place();
                    place.*part.value = value;
                    form->SetPlace(place);
                }));
        }
        table.push_back(IntegerRow(
            "state of " + form->Name(), [=] { return form->Place().state; },
            [=](int state) {
                auto place = form->Place();
                place.state = state;
                form->SetPlace(place);
            },
            0, 2));
    }
}

void AddPhg(IniTable& table, SetUpForm& s)
{
    table.push_back(IndexRow("power", s.PhgPowerLst));
    table.push_back(IndexRow("height", s.PhgHeightLst));
    table.push_back(IndexRow("gain", s.PhgGainLst));
    table.push_back(IndexRow("directivity", s.PhgDirLst));
}

void AddFonts(IniTable& table, Halvern& halvern)
{
    for (const auto& control : SavedFonts(halvern)) {
        table.push_back({"font of " + control.Name(), LineKind::Field, [=] { return control.Get().face; },
                         [=](const std::string& face) {
                             control.Set({face, control.Get().size});
                         }});
        table.push_back({"font size of " + control.Name(), LineKind::Points,
                         [=] { return PlainNumber(control.Get().size); },
                         [=](const std::string& size) {
                             control.Set({control.Get().face, LeadingNumber(size)});
                         }});
        table.end()[-2].early = table.end()[-1].early = true;
    }
}

void AddMapView(IniTable& table, MapState& map)
{
    table.push_back(SingleRow("latitude of the map's centre", map.MapCenterLat));
    table.push_back(SingleRow("longitude of the map's centre", map.MapCenterLon));
    table.push_back({"map range", LineKind::Integer,
                     [&] { return PlainNumber(std::min<double>(map.MapRange, INT16_MAX)); },
                     [&](const std::string& range) { map.MapRange = std::max(1.0, LeadingNumber(range)); }});
    for (auto row = table.end() - 3; row != table.end(); ++row) row->early = true;
}

void AddWeather(IniTable& table, SetUpForm& s)
{
    for (const int entry : {0, 1})
        table.push_back(TruthRow(
            entry == 0 ? "weather from the com port" : "weather from software",
            [&s, entry] { return s.WxSourceOpt.On(entry); },
            [&s, entry](bool on) {
                if (on) s.WxSourceOpt.Select(entry);
            }));
    for (Frame* frame : {&s.ComWxFrame, &s.SoftWxFrame})
        table.push_back(TruthRow(
            frame == &s.ComWxFrame ? "com port frame" : "software frame", [=] { return frame->Enabled(); },
            [=](bool on) { frame->SetEnabled(on); }));
    table.push_back(IndexRow("weather software", s.WxSoftCombo));
    table.push_back({"drive of the weather file", LineKind::Field, [&] { return s.Drive1.Text(); },
                     [&](const std::string& drive) {
                         if (const int row = s.Drive1.IndexOf(drive); row != NotFound) s.Drive1.Preselect(row);
                     }});
    table.push_back({"folder of the weather file", LineKind::Field, [&] { return s.Dir1.Path(); },
                     [&](const std::string& path) { s.Dir1.SetPath(path); }});
    table.push_back({"folder of the file list", LineKind::Field, [&] { return s.File1.Path(); },
                     [&](const std::string& path) { s.File1.SetPath(path); }});
    table.push_back(LooseIndexRow("weather file", s.File1));
    table.push_back(IntegerRow(
        "weather packet interval", [&] { return s.TimeOpt.Selected(); }, [&](int index) { s.TimeOpt.Select(index); },
        NoEntry, s.TimeOpt.Count() - 1));
}

void AddMapKind(IniTable& table, MainForm& main)
{
    for (MenuItem* kind : {&main.UsgsMapMenu, &main.DosMapMenu, &main.BitMapMenu}) {
        table.push_back(TruthRow(
            "check mark of " + kind->Name(), [=] { return kind->Checked(); }, [=](bool on) { kind->SetChecked(on); }));
        table.back().early = true;
    }
    table.push_back(LooseIndexRow("bitmap", main.BitMapCombo));
    table.back().onlyAfterTrue = true;
}

} // namespace

IniTable SettingsTable(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    IniTable table;
    AddStation(table, setUp);
    AddPathsAndGroups(table, halvern);
    AddPlaces(table, halvern);
    AddPhg(table, setUp);
    AddFonts(table, halvern);
    table.push_back(IndexRow("weather port", setUp.WXPortCombo));
    table.push_back(IndexRow("weather speed", setUp.WXBaudCombo));
    AddMapView(table, halvern.Map);
    AddWeather(table, setUp);
    AddMapKind(table, halvern.ConMdiFrm);
    return table;
}

} // namespace halvern
