// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "state/Halvern.h"

/// Packets in files: the running log, the raw packets of the memory, and a log that is played back.
namespace halvern {

/// Starts the log, or stops the one that runs.
void StartStopLog(Halvern& halvern);

/// Writes every raw packet of the memory into a file.
void ExportMemory(Halvern& halvern);

/// Puts the working state aside and plays a log file in its place.
void ImportLog(Halvern& halvern);

// --- what the history has in common with it --------------------------------------------------------------------------

/// Asks for a file of packets and opens it. A file that can't be opened is told, and so is the log that runs just now.
/// @param kind  "Log" or "History"
/// @return nullptr where there is none, or the operator cancelled
std::unique_ptr<InputFile> AskForInput(Halvern& halvern, const std::string& kind, const std::string& title);
/// @param path  where the file is, once it is open
std::unique_ptr<OutputFile> AskForOutput(Halvern& halvern, const std::string& kind, const std::string& title,
                                         std::string& path);

/// Puts the working state aside, and empties the stores for a view. Where the state can't be kept nothing is emptied,
/// and that is told. @param caller  the word for ResetStores  @return whether the view may begin
bool BeginView(Halvern& halvern, std::string_view caller);
/// Offers the way back from a view.
void OfferWayBack(Halvern& halvern);
/// Tells that a file could not be read to its end. @param trouble  empty: nothing is told
void TellCutShort(Halvern& halvern, std::string_view what, const std::string& trouble);

} // namespace halvern
