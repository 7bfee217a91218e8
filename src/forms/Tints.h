// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPalette>
#include <string_view>

/// Colours that tell rows apart, made of a palette's own, so that the text on them stays legible in light and in dark.
namespace halvern {

/// The text colour, fainter.
QColor QuietColour(const QPalette& palette);
/// The ground of a raw row by what its packet is: messages, weather, objects, telemetry and status each have theirs;
/// positions and the rest stand on the list's own, an invalid colour.
QColor TintOfPacket(std::string_view rawRow);

/// Shows in empty fields what belongs there in the quiet colour, whatever colour the desktop has for that.
/// @param owner  for as long as it lives
void KeepPlaceholdersLegible(QWidget* owner);

/// What a lamp or another mark says, in colours that stand out from a light and from a dark window alike.
enum class Mark { Good, Busy, Warning, Bad };
QColor MarkColour(Mark mark);

} // namespace halvern
