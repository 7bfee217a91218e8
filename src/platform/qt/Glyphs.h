// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include <QString>

/// Between the bytes of the state and the glyphs of the screen.
namespace halvern {

/// Bytes as a reader sees them: UTF-8 where they are valid UTF-8, Latin-1 otherwise.
QString Shown(std::string_view bytes);

/// What was typed, as UTF-8 bytes.
std::string Typed(const QString& text);

} // namespace halvern
