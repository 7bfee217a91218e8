// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace halvern {

/// The codes of things that move. They count on either symbol table.
inline constexpr std::string_view MobileCodes = "'aObUfgXej[(<Ps=RpY*kuv)^>S";

/// Whether a symbol is of something that drives, flies or swims.
inline bool IsMobile(char symbolCode)
{
    return symbolCode != '\0' && MobileCodes.find(symbolCode) != std::string_view::npos;
}

} // namespace halvern
