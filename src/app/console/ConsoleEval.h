// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "state/Halvern.h"

namespace halvern {

/// The results of a function that depends on its arguments alone, as the console writes them.
/// @throws ConsoleError for an unknown function, another number of arguments, or a number that is none
std::string Evaluate(Halvern& halvern, const std::string& function, const std::vector<std::string>& arguments);

/// A file's path as the console writes it: relative to the application directory, with `/` between folders. A file
/// elsewhere keeps its path.
std::string RelativeToProgram(const Halvern& halvern, const std::string& file);

} // namespace halvern
