// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Version.h"

namespace halvern {

std::string ProgramVersion()
{
    return HALVERN_VERSION;
}

} // namespace halvern
