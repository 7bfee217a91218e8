// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <string>

namespace halvern {

/// The application directory as a command line names it, or, where it names none, the operator's own. An absolute path
/// without a separator at its end. Needs the application object.
///
/// @param named  what stands on the command line besides options
std::string StationFolder(const QStringList& named);

} // namespace halvern
