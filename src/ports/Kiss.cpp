// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/Kiss.h"

namespace halvern {

std::string KissFrameToText(Halvern&, std::string)
{
    return "NG";
}

void KissUnescape(std::string&) {}

void SendPacket(Halvern&, std::string_view, std::string_view, std::string_view, std::string&, std::string_view) {}

} // namespace halvern
