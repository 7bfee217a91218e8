// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace halvern {

/// Hops that a digipeater path stands for, by its used entries and the counts in its aliases; 100 where the path can't
/// be read. "None" and "0" are no hops.
int PathHopCount(std::string_view path);

/// A path rewritten as if fully used, the "-n" of each numbered entry gone and a "*" at its end; "Path No Good" where
/// an entry can't be read.
std::string CheckUnprotoPath(std::string_view path);

} // namespace halvern
