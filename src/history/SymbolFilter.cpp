// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/SymbolFilter.h"

#include <optional>

#include "engine/ProcessPacket.h"
#include "engine/ResetStores.h"
#include "history/Snapshot.h"
#include "platform/Text.h"

namespace halvern {
namespace {

struct Filter {
    std::string title;         ///< behind "Halvern Showing Just "
    std::string tables, codes; ///< a character each for every pair
};

/// The pairs of a row that carries many: two characters each, behind its name.
Filter ManyCodes(const char* title, std::string_view row, std::string_view name)
{
    Filter filter{title, {}, {}};
    for (auto column = name.size() + 2; column < row.size(); column += 2) {
        filter.tables += ColumnAt(row, column);
        filter.codes += ColumnAt(row, column + 1);
    }
    return filter;
}

const char* OverlayFault(std::string_view overlay)
{
    if (overlay.empty()) return "You did not supply an Overlay Character.";
    if (overlay.size() > 1) return "You can only supply one Overlay Character.";
    const bool good = IsDigit(overlay[0]) || (overlay[0] >= 'A' && overlay[0] <= 'Z');
    return good ? nullptr : "Your Overlay character must be in the range of 0 through 9 or A through Z.";
}

/// The filter of a row, or nothing where its overlay character is missing, which is told.
std::optional<Filter> FilterOf(Halvern& halvern, const std::string& row)
{
    if (row == "Mobiles") return ManyCodes("Mobiles", MobileFilter, row);
    if (row == "Weather Stations") return ManyCodes("Weather Staions", WeatherFilter, row);
    Filter filter{row.substr(0, row.size() - 3), row.substr(row.size() - 2, 1), row.substr(row.size() - 1)};
    if (!Holds(row, "Overlay")) return filter;
    const auto overlay =
        halvern.Outside.dialogs.Input("Enter Alphanumeric Overlay Character", "Symbol Overlay Dialog").value_or("");
    if (const auto* const fault = OverlayFault(overlay)) {
        halvern.Tell(Icon::None, fault);
        return {};
    }
    filter.tables = overlay;
    return filter;
}

/// The way back: everything that was put aside, or, where messages and objects never were, the stations alone.
void ShowAll(Halvern& halvern)
{
    halvern.Engine.JustSymbolsOn = false;
    halvern.ConMdiFrm.SetCaption(ProgramTitle);
    if (!SnapshotStands(halvern)) return;
    if (halvern.ConMdiFrm.RestoreMenu.Visible()) return RestoreView(halvern);
    ResetStores(halvern, "JustOk");
    RestoreState(halvern, true);
    halvern.Engine.ReviewMode = false;
}

/// Plays what was received once more, with the filter on.
void ShowJust(Halvern& halvern, const Filter& filter)
{
    if (const auto trouble = SnapshotState(halvern); !trouble.empty())
        return halvern.Tell(Icon::Critical,
                            "The lists could not be put aside: " + trouble + ". They are as they were.");
    auto& engine = halvern.Engine;
    engine.JustSymbolsOn = true;
    engine.JustTable = filter.tables;
    engine.JustCode = filter.codes;
    halvern.ConMdiFrm.SetCaption("Halvern Showing Just " + filter.title);
    engine.ReviewMode = true;
    ResetStores(halvern, "JustOk");
    const auto& raw = halvern.TerminalFrm.RawPacketLst;
    for (int i = 0; i < raw.Count() && engine.ReviewMode; ++i) {
        auto line = raw.Row(i);
        ProcessPacket(halvern, line, "JUST");
    }
}

} // namespace

void OpenSymbolFilter(Halvern& halvern)
{
    halvern.ConMdiFrm.JustMenu.SetEnabled(false);
    halvern.JustSym.Show();
}

void TakeSymbolFilter(Halvern& halvern)
{
    auto& form = halvern.JustSym;
    const auto row = form.SymbolLst.Text();
    if (form.SymbolLst.Selected() < 0) return;
    if (row != "All") {
        const auto filter = FilterOf(halvern, row);
        if (!filter) return;
        ShowJust(halvern, *filter);
    } else {
        ShowAll(halvern);
    }
    form.Unload();
}

} // namespace halvern
