// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/LogFiles.h"

#include "engine/PacketLog.h"
#include "engine/ResetStores.h"
#include "history/PlayFile.h"
#include "history/Snapshot.h"

namespace halvern {
namespace {

struct KindOfFile {
    const char *kind, *filter, *folder, *name;
};

constexpr KindOfFile Kinds[] = {{"Log", "Log Files | *.log", "\\Log\\", "Untitled.log"},
                                {"History", "History Files | *.hst", "\\HISTORY\\", ""}};

/// The file that the operator chooses, or nothing where he cancels or chooses the log that is being written.
std::optional<std::string> AskForFile(Halvern& halvern, const std::string& kind, const std::string& title, bool save)
{
    const auto& about = kind == Kinds[0].kind ? Kinds[0] : Kinds[1];
    const auto& engine = halvern.Engine;
    auto path = halvern.Outside.dialogs.File({.save = save,
                                              .title = title,
                                              .filter = about.filter,
                                              .folder = halvern.ProgramFolder + about.folder,
                                              .name = save ? about.name : ""});
    if (!path || !engine.Log || !engine.Log->Is(halvern.Outside.files.Resolved(*path))) return path;
    halvern.Tell(Icon::None, *path + " Is an open file. Please close the file and try again");
    return {};
}

} // namespace

std::unique_ptr<InputFile> AskForInput(Halvern& halvern, const std::string& kind, const std::string& title)
{
    const auto path = AskForFile(halvern, kind, title, false);
    if (!path) return nullptr;
    std::string trouble;
    auto file = halvern.Outside.files.OpenForInput(*path, trouble);
    if (!file) halvern.Tell(Icon::None, trouble);
    return file;
}

std::unique_ptr<OutputFile> AskForOutput(Halvern& halvern, const std::string& kind, const std::string& title,
                                         std::string& path)
{
    const auto answer = AskForFile(halvern, kind, title, true);
    if (!answer) return nullptr;
    path = *answer;
    std::string trouble;
    auto file = halvern.Outside.files.OpenForOutput(path, trouble);
    if (!file) halvern.Tell(Icon::None, trouble);
    return file;
}

bool BeginView(Halvern& halvern, std::string_view caller)
{
    if (const auto trouble = SnapshotState(halvern); !trouble.empty()) {
        halvern.Tell(Icon::Critical, "The lists could not be put aside: " + trouble + ". They are as they were.");
        return false;
    }
    halvern.Engine.ReviewMode = true;
    halvern.ConMdiFrm.LogMenu.SetEnabled(false);
    halvern.ConMdiFrm.ClearMenu.SetEnabled(false);
    ResetStores(halvern, caller);
    return true;
}

void OfferWayBack(Halvern& halvern)
{
    // Lists that were cleared once, or emptied at their limit on the way, have switched the item off.
    halvern.ConMdiFrm.RestoreMenu.SetEnabled(true);
    halvern.ConMdiFrm.RestoreMenu.SetVisible(true);
}

void TellCutShort(Halvern& halvern, std::string_view what, const std::string& trouble)
{
    if (!trouble.empty())
        halvern.Tell(Icon::Critical, "The " + std::string(what) + " file is damaged: " + trouble +
                                         ". What could be read of it is shown.");
}

void StartStopLog(Halvern& halvern)
{
    auto& engine = halvern.Engine;
    auto& item = halvern.ConMdiFrm.Log;
    if (item.Checked()) return StopLog(halvern);
    std::string path;
    engine.Log = AskForOutput(halvern, "Log", "Open Log File For Output", path);
    if (!engine.Log) return;
    item.SetChecked(true);
    item.SetCaption("&Stop Log");
    engine.LogOpen = true;
}

void ExportMemory(Halvern& halvern)
{
    std::string path;
    const auto file = AskForOutput(halvern, "Log", "Export Memory File", path);
    if (!file) return;
    const auto& raw = halvern.TerminalFrm.RawPacketLst;
    for (int i = 0; i < raw.Count(); ++i)
        if (!file->PrintLine(raw.Row(i))) return halvern.Tell(Icon::Critical, file->Trouble());
}

void ImportLog(Halvern& halvern)
{
    const auto file = AskForInput(halvern, "Log", "Open Log File For Input");
    if (!file || !BeginView(halvern, "ImportLog")) return;
    const auto played = PlayFile(halvern, *file, {.tag = "IMPORT", .title = "Import Log"});
    if (halvern.Engine.Ended) return;
    TellCutShort(halvern, "log", played.trouble);
    halvern.Tell(Icon::None, "When you are finished looking at the Log File please Click on the Restore Menu Item.");
    OfferWayBack(halvern);
}

} // namespace halvern
