// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// What the fields and switches of the setup form do to each other while the operator works at them.
namespace halvern {

/// Upper case, as one types.
void RaiseCase(TextField& field);

/// Both position labels, from the fields as they stand.
void ShowPositionInPacketForm(SetUpForm& setUp);

/// A symbol was picked: a weather symbol's warning, and the dialog for the overlay character where one is called for.
/// Also for the symbols of an object's dialog.
void PickSymbol(Halvern& halvern, List& combo, std::string& overlay);

/// The source that is chosen, a port or a file, enables its own fields.
void SwitchWeatherSource(SetUpForm& setUp);
/// The mode gives the destination of own packets; the third one takes it from its field when the form is accepted.
void SwitchMode(Halvern& halvern);
/// With a GPS its port is set; without one the figures of the antenna are.
void SwitchGps(SetUpForm& setUp);
/// Warns the operator who switches the alias on.
void SwitchAlias(Halvern& halvern);
/// Without the gate nothing goes to radio either.
void SwitchIgate(SetUpForm& setUp);
/// What belongs to the way from the Internet to radio can be set while it is on.
void SwitchIgateBothWays(SetUpForm& setUp);

/// The weather file's pickers: a drive moves the folder, a folder moves the list of its files.
void PickDrive(Halvern& halvern);
void PickFolder(SetUpForm& setUp);
void ListFolders(Halvern& halvern);
void ListFiles(Halvern& halvern);
/// All three at the application directory.
void FilePickersAtHome(Halvern& halvern);

/// A text file of the application directory in a text window.
void ShowHelpText(Halvern& halvern, const std::string& name);
/// The help's first page.
void ShowHelp(Halvern& halvern);
/// One page of the help.
void ShowHelpPage(Halvern& halvern, const std::string& name);
/// Name and version of the program.
void ShowAbout(Halvern& halvern);

} // namespace halvern
