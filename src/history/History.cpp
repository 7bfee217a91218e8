// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/History.h"

#include <algorithm>
#include <array>
#include <vector>

#include "history/LogFiles.h"
#include "history/PlayFile.h"
#include "platform/Text.h"

namespace halvern {
namespace {

/// What is searched for, and what of it was found.
class Calls {
public:
    explicit Calls(HistoryForm& form)
    {
        for (int i = form.Callsign.First(); i <= form.Callsign.Last(); ++i)
            if (const auto& text = form.Callsign(i).Text(); !text.empty()) calls.push_back({text, UpperCase(text)});
        for (const auto& call : calls)
            for (std::size_t i = 0; i < begins.size(); ++i)
                begins[i] |= UpperCase(static_cast<char>(i)) == call.wanted[0];
    }

    /// How many of the calls the line begins with.
    int Matches(std::string_view line)
    {
        if (line.empty() || !begins[static_cast<unsigned char>(line.front())]) return 0; // most of a long file
        int matches = 0;
        for (const auto& [typed, wanted] : calls) {
            const auto same = [](char has, char wants) { return UpperCase(has) == wants; };
            if (line.size() < wanted.size() ||
                !std::equal(wanted.begin(), wanted.end(), line.begin(), [&](char w, char h) { return same(h, w); }))
                continue;
            ++matches;
            if (const auto entry = typed + std::string(CrLf); !Holds(found, entry)) found += entry;
        }
        return matches;
    }

    /// "The Following Call Signs were Found" and which, or that there are none.
    std::string Words(const char* behind = "") const
    {
        if (found.empty()) return "None of the Call Signs were found";
        return "The Following Call Signs were Found" + std::string(CrLf) + found + behind;
    }
    bool AnyFound() const { return !found.empty(); }

private:
    struct Call {
        std::string typed, wanted;
    };
    std::vector<Call> calls;
    std::array<bool, 256> begins{}; ///< whether a call begins so, by the character
    std::string found;
};

void ExportHistory(Halvern& halvern)
{
    std::string path;
    auto file = AskForOutput(halvern, "History", "Export History File", path);
    if (!file) return;
    Calls calls(halvern.Hist);
    const auto& raw = halvern.TerminalFrm.RawPacketLst;
    for (int i = 1; i < raw.Count(); ++i)
        for (int matches = calls.Matches(raw.Row(i)); matches > 0; --matches)
            if (!file->PrintLine(raw.Row(i))) return halvern.Tell(Icon::Critical, file->Trouble());
    file.reset();
    if (!calls.AnyFound()) halvern.Outside.files.Remove(path);
    halvern.Tell(Icon::None, calls.Words());
}

/// The stores are put aside at the first packet that is found, not before. A packet that two fields find is played
/// twice.
void ImportHistory(Halvern& halvern)
{
    const auto file = AskForInput(halvern, "History", "Import History File");
    if (!file) return;
    Calls calls(halvern.Hist);
    bool begun = false;
    const auto times = [&](std::string_view packet) {
        const int matches = calls.Matches(packet);
        if (matches > 0 && !begun) begun = BeginView(halvern, "Search1");
        return matches > 0 && !begun ? -1 : matches;
    };
    const auto played = PlayFile(halvern, *file, {.tag = "SEARCH", .times = times, .title = "Import History"});
    if (begun != calls.AnyFound() || halvern.Engine.Ended) return; // the lists could not be put aside
    TellCutShort(halvern, "history", played.trouble);
    halvern.Tell(Icon::None,
                 calls.Words("When finished looking at the History File Please Click on the Restore Menu Item."));
    if (begun) OfferWayBack(halvern);
}

} // namespace

void OpenHistory(Halvern& halvern, bool exporting)
{
    auto& form = halvern.Hist;
    form.HistExport = exporting;
    form.SetCaption(exporting ? "Halvern History Export Form" : "Halvern History Import Form");
    form.Search1.SetCaption(exporting ? "Export" : "Import");
    halvern.Outside.dialogs.ShowModal(form);
}

void AllowSearch(HistoryForm& form)
{
    form.Search1.SetEnabled(!form.Callsign(1).Text().empty());
}

void SearchHistory(Halvern& halvern)
{
    halvern.Hist.Hide();
    halvern.Hist.HistExport ? ExportHistory(halvern) : ImportHistory(halvern);
}

} // namespace halvern
