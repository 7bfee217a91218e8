// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "state/SetUpfrm.h"

/// The list of servers as a file: the chosen server, port and filter, one line each where one blank stands for none,
/// then the names.
namespace halvern {

/// Fills the Internet tab. @throws IniFault, and fills nothing, where one of the first three lines is missing or a line
/// has control characters.
void TakeServers(SetUpForm& setUp, std::string_view bytes);

/// The file for what stands on the Internet tab. A server that was typed and is not in the list is added to it.
std::string ServersAsText(const SetUpForm& setUp);

} // namespace halvern
