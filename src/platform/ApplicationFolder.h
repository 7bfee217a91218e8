// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

namespace halvern {

/// The folder with the station's settings, maps, symbols and logs, where the operator names none.
///
/// The program's own folder when it holds the data, which makes a copy that can be carried about. Else the user's data
/// folder, which is filled at the start: what only the program brings is linked as a whole, and folders that
/// operators add files to are made and get a link for each file. Later starts add what a new version brings, and renew
/// links whose data have moved.
///
/// @param program   the folder in which the program lies; its data are there, in ../share/halvern (seen from bin or
///                  from lib/halvern), or, in a build folder of the sources, in ../../data
/// @param userData  where programs keep a user's data; "halvern" is made in it
/// @return an absolute path
std::string ApplicationFolder(const std::filesystem::path& program, const std::filesystem::path& userData);

/// The application directory as a command line names it, or, where it names none, the operator's own: see
/// ApplicationFolder.
/// @return an absolute path without a separator at its end
std::string StationFolder(const std::string& named);

/// A program that comes with the running one: in ../lib/halvern, or else beside it, whether it is there or not.
std::filesystem::path CompanionProgram(const std::string& name);

} // namespace halvern
