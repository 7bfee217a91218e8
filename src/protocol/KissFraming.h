// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace halvern {

/// Takes the next whole frame out of the bytes that a KISS port has delivered, both FENDs and the command byte removed
/// and its escapes still in it. Source: "The KISS TNC" by Chepponis and Karn.
///
/// The first two bytes are taken for the opening FEND and the command byte and not looked at. A carriage return that a
/// TNC left at the end is taken off. A frame longer than any that a port delivers is dropped, and grows no further
/// before its end.
/// @return nothing where no frame has ended yet, or where only a doubled FEND or such a frame was taken away
std::optional<std::string> TakeKissFrame(std::string& buffer);

} // namespace halvern
