// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/qt/Glyphs.h"

namespace halvern {

/// What was typed, as UTF-8 bytes, cut at the last whole character within `longest` bytes; 0: any length.
std::string Typed(QString text, std::size_t longest);

/// A caption without its mnemonic mark and its dots, as a screen reader says it.
QString Spoken(QString caption);

} // namespace halvern
