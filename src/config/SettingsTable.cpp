// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "config/Fonts.h"
#include "config/IniTable.h"
#include "platform/Text.h"
#include "view/ChildWindows.h"

namespace halvern {
namespace {

constexpr int NoEntry = -1;                                 ///< an index that means: nothing is selected
constexpr unsigned ForBeacon = InFile | Cancelled | Beacon; ///< what own packets show
constexpr unsigned InForm = InFile | Cancelled;             ///< what else the setup form keeps
constexpr unsigned BeaconUnsaved = Cancelled | Beacon;      ///< the same two, in no file
constexpr unsigned FormUnsaved = Cancelled;

/// A setting of one type: `get` and `set` in that type.
template <class Value, class Get, class Set>
Setting Typed(std::string name, unsigned marks, LineKind kind, Get get, Set set)
{
    return {std::move(name), marks, kind, [=] { return SettingValue(Value(get())); },
            [=](const SettingValue& value) { set(std::get<Value>(value)); }};
}

Setting TextSetting(std::string name, TextField& field, unsigned marks, LineKind kind = LineKind::Field)
{
    return Typed<std::string>(
        std::move(name), marks, kind, [&] { return field.Text(); }, [&](const auto& text) { field.SetText(text); });
}

Setting NumberSetting(std::string name, std::function<int()> get, std::function<void(int)> set, int least = -32768,
                      int most = 32767)
{
    auto setting = Typed<int>(std::move(name), InFile, LineKind::Integer, get, set);
    setting.least = least;
    setting.most = most;
    return setting;
}

Setting TruthSetting(std::string name, std::function<bool()> get, std::function<void(bool)> set)
{
    return Typed<bool>(std::move(name), InFile, LineKind::Truth, get, set);
}

Setting FloatSetting(std::string name, float& number)
{
    return Typed<float>(
        std::move(name), InFile | Early, LineKind::Single, [&] { return number; }, [&](float next) { number = next; });
}

Setting ChoiceSetting(std::string name, Choice& choice, unsigned marks)
{
    auto setting = Typed<int>(
        std::move(name), marks, LineKind::Integer, [&] { return choice.Selected(); },
        [&](int entry) { choice.Select(entry); });
    setting.least = NoEntry;
    setting.most = choice.Count() - 1;
    return setting;
}

/// An index of a file selects nothing where its row is not there any more. With a text it is the form's own: the last
/// row stands for one that is lost.
void Choose(List& list, const Chosen& chosen)
{
    if (!chosen.text)
        list.Preselect(chosen.index >= 0 && chosen.index < list.Count() ? chosen.index : NoEntry);
    else if (chosen.index < 0 && list.style == ListStyle::TypedCombo)
        list.SetText(*chosen.text);
    else
        list.Preselect(std::min(chosen.index, list.Count() - 1));
}

/// The selection of a list whose entries may have changed since it was written.
Setting LooseSelection(std::string name, List& list, unsigned marks)
{
    return {std::move(name),
            marks,
            LineKind::Integer,
            [&] {
                return Chosen{list.Selected(), list.Text()};
            },
            [&](const SettingValue& value) {
                const auto* index = std::get_if<int>(&value);
                Choose(list, index != nullptr ? Chosen{*index, {}} : std::get<Chosen>(value));
            },
            NoEntry};
}

/// The selection of a list whose entries are fixed.
Setting Selection(std::string name, List& list, unsigned marks)
{
    auto setting = LooseSelection(std::move(name), list, marks);
    setting.most = list.Count() - 1;
    return setting;
}

/// The selection of a list, written as its row's text. A text that the list does not have changes nothing.
Setting SelectionByText(std::string name, List& list, unsigned marks)
{
    auto setting = LooseSelection(std::move(name), list, marks);
    setting.kind = LineKind::Field;
    setting.set = [&, byIndex = setting.set](const SettingValue& value) {
        const auto* text = std::get_if<std::string>(&value);
        if (text == nullptr) return byIndex(value);
        if (const int row = list.IndexOf(*text); row != NotFound) list.Preselect(row);
    };
    return setting;
}

Setting Entries(std::string name, List& list, int builtIn)
{
    Setting setting{std::move(name), InFile, LineKind::WholeLine, [] { return SettingValue(); },
                    [&list, builtIn](const SettingValue& value) {
                        while (list.Count() > builtIn) list.Remove(list.Count() - 1);
                        for (const auto& entry : std::get<std::vector<std::string>>(value)) list.Add(entry);
                    }};
    setting.list = &list;
    setting.builtIn = builtIn;
    return setting;
}

Setting FolderSetting(std::string name, FolderList& list)
{
    return Typed<std::string>(
        std::move(name), InForm, LineKind::Field, [&] { return list.Path(); },
        [&](const auto& path) { list.SetPath(path); });
}

// --- the groups of lines, in the order of the file -------------------------------------------------------------------

void AddStation(SettingTable& table, SetUpForm& s)
{
    table.push_back(TextSetting("call sign", s.CallSignTxt, ForBeacon));
    table.push_back(Typed<std::string>(
        "SSID", ForBeacon, LineKind::Field, [&] { return s.SSIDLBL.Caption(); },
        [&](const auto& text) { s.SSIDLBL.SetCaption(text); }));
    table.push_back(TextSetting("degrees of latitude", s.LatDegtxt, ForBeacon));
    table.push_back(TextSetting("minutes of latitude", s.LatMintxt, ForBeacon));
    table.push_back(TextSetting("decimal minutes of latitude", s.LatDectxt, ForBeacon));
    table.push_back(TextSetting("hemisphere of latitude", s.LatSigntxt, ForBeacon));
    table.push_back(TextSetting("degrees of longitude", s.LonDegtxt, ForBeacon));
    table.push_back(TextSetting("minutes of longitude", s.LonMintxt, ForBeacon));
    table.push_back(TextSetting("decimal minutes of longitude", s.LonDectxt, ForBeacon));
    table.push_back(TextSetting("hemisphere of longitude", s.LonSigntxt, ForBeacon));
    table.push_back(Selection("TNC port", s.PortLst, ForBeacon));
    table.push_back(Selection("TNC speed", s.PortSpeedLst, ForBeacon));
    table.push_back(Selection("TNC type", s.TncTypeCombo, InForm));
    table.push_back(Selection("symbol", s.SymbolCombo, ForBeacon));
    table.push_back(Typed<std::string>(
        "overlay character", InForm, LineKind::Field, [&] { return s.OverlayChar; },
        [&](const auto& text) { s.OverlayChar = text.substr(0, 1); }));
    table.push_back(TextSetting("position comment", s.CommentTXT, ForBeacon, LineKind::WholeLine));
    table.push_back(TextSetting("status text", s.StatusTXT, ForBeacon, LineKind::WholeLine));
}

void AddPathsAndGroups(SettingTable& table, Halvern& halvern)
{
    auto& s = halvern.SetUpfrm;
    table.push_back(LooseSelection("unproto path index", s.UnPath, ForBeacon));
    table.push_back(Entries("unproto path", s.UnPath, 2));
    table.push_back(Entries("message group", s.MsgGroupLst, 0));
    table.push_back(LooseSelection("mail path index", halvern.MessageFrm.MailUnPath, InFile));
    table.push_back(Entries("mail path", halvern.MessageFrm.MailUnPath, 2));
}

void AddPlaces(SettingTable& table, Halvern& halvern)
{
    struct Part {
        const char* name;
        int Place::*value;
        int least, most;
    };
    for (Form* form : RememberedWindows(halvern)) {
        for (const Part part : {Part{"height", &Place::height, -32768, 32767},
                                {"left edge", &Place::left, -32768, 32767},
                                {"top edge", &Place::top, -32768, 32767},
                                {"width", &Place::width, -32768, 32767},
                                {"state", &Place::state, 0, 2}}) {
            table.push_back(NumberSetting(
                std::string(part.name) + " of " + form->Name(), [=] { return form->Place().*part.value; },
                [=](int value) {
                    auto place = form->Place();
                    place.*part.value = value;
                    form->SetPlace(place);
                },
                part.least, part.most));
        }
    }
}

void AddPhg(SettingTable& table, SetUpForm& s)
{
    table.push_back(Selection("power", s.PhgPowerLst, ForBeacon));
    table.push_back(Selection("height", s.PhgHeightLst, ForBeacon));
    table.push_back(Selection("gain", s.PhgGainLst, ForBeacon));
    table.push_back(Selection("directivity", s.PhgDirLst, ForBeacon));
}

void AddFonts(SettingTable& table, Halvern& halvern)
{
    for (const auto& control : SavedFonts(halvern)) {
        table.push_back(Typed<std::string>(
            "font of " + control.Name(), InFile | Early, LineKind::Field, [=] { return control.Get().face; },
            [=](const auto& face) {
                control.Set({face, control.Get().size});
            }));
        table.push_back(Typed<double>(
            "font size of " + control.Name(), InFile | Early, LineKind::Points, [=] { return control.Get().size; },
            [=](double size) {
                control.Set({control.Get().face, size});
            }));
    }
}

void AddMapView(SettingTable& table, MapState& map)
{
    table.push_back(FloatSetting("latitude of the map's centre", map.MapCenterLat));
    table.push_back(FloatSetting("longitude of the map's centre", map.MapCenterLon));
    table.push_back({"map range", InFile | Early, LineKind::Integer,
                     [&] { return std::min<double>(map.MapRange, 32767); }, // a range in fractions is written so
                     [&](const SettingValue& range) { map.MapRange = std::max(1, std::get<int>(range)); }});
}

void AddWeather(SettingTable& table, SetUpForm& s)
{
    for (const int entry : {0, 1})
        table.push_back(TruthSetting(
            entry == 0 ? "weather from the com port" : "weather from software",
            [&s, entry] { return s.WxSourceOpt.On(entry); },
            [&s, entry](bool on) {
                if (on) s.WxSourceOpt.Select(entry);
            }));
    for (Frame* frame : {&s.ComWxFrame, &s.SoftWxFrame})
        table.push_back(TruthSetting(
            frame == &s.ComWxFrame ? "com port frame" : "software frame", [=] { return frame->Enabled(); },
            [=](bool on) { frame->SetEnabled(on); }));
    table.push_back(Selection("weather software", s.WxSoftCombo, InForm));
    table.push_back(SelectionByText("drive of the weather file", s.Drive1, InForm));
    table.push_back(FolderSetting("folder of the weather file", s.Dir1));
    table.push_back(LooseSelection("folder in that folder", s.Dir1, FormUnsaved));
    table.push_back(FolderSetting("folder of the file list", s.File1));
    table.push_back(LooseSelection("weather file", s.File1, InForm));
    table.push_back(ChoiceSetting("weather packet interval", s.TimeOpt, InForm));
}

void AddMapKind(SettingTable& table, MainForm& main)
{
    for (MenuItem* kind : {&main.UsgsMapMenu, &main.DosMapMenu, &main.BitMapMenu}) {
        table.push_back(TruthSetting(
            "check mark of " + kind->Name(), [=] { return kind->Checked(); }, [=](bool on) { kind->SetChecked(on); }));
        table.back().marks |= Early;
    }
    table.push_back(LooseSelection("bitmap", main.BitMapCombo, InFile | AfterTrue));
}

void AddWhatNoFileKeeps(SettingTable& table, SetUpForm& s)
{
    table.push_back(ChoiceSetting("dead reckoning", s.DeadOnOpt, BeaconUnsaved));
    table.push_back(ChoiceSetting("mode", s.AprsMode, BeaconUnsaved));
    table.push_back(ChoiceSetting("GPS", s.GpsOpt, BeaconUnsaved));
    table.push_back(ChoiceSetting("alias", s.MyAliasOpt, BeaconUnsaved));
    table.push_back(LooseSelection("server", s.IntDomainCombo, FormUnsaved));
    table.push_back(TextSetting("server port", s.APRServePortTxt, FormUnsaved));
    table.push_back(TextSetting("passcode", s.APRServePassTxt, FormUnsaved));
    table.push_back(TextSetting("server filter", s.APRServeFilterTxt, FormUnsaved));
    table.push_back(ChoiceSetting("gate", s.IgateOpt, FormUnsaved));
    table.push_back(ChoiceSetting("gate to radio", s.IgateBIOpt, FormUnsaved));
    table.push_back(ChoiceSetting("weather source", s.WxSourceOpt, FormUnsaved));
}

} // namespace

SettingTable SettingsTable(Halvern& halvern)
{
    auto& setUp = halvern.SetUpfrm;
    SettingTable table;
    AddStation(table, setUp);
    AddPathsAndGroups(table, halvern);
    AddPlaces(table, halvern);
    AddPhg(table, setUp);
    AddFonts(table, halvern);
    table.push_back(Selection("weather port", setUp.WXPortCombo, InForm));
    table.push_back(Selection("weather speed", setUp.WXBaudCombo, InForm));
    AddMapView(table, halvern.Map);
    AddWeather(table, setUp);
    AddMapKind(table, halvern.ConMdiFrm);
    AddWhatNoFileKeeps(table, setUp);
    return table;
}

} // namespace halvern
