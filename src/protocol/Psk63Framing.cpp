// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/Psk63Framing.h"

#include <utility>

namespace halvern {
namespace {

constexpr std::string_view StartMarker = "SSSSS", EndMarker = "EEEEE";
constexpr char CharacterFollows = '\x19';

} // namespace

std::string BetweenMarkers(std::string_view text)
{
    return std::string(StartMarker).append(text).append(EndMarker);
}

std::string ForTransmitBuffer(std::string_view text)
{
    std::string bytes;
    for (const char character : text) bytes += {CharacterFollows, character};
    return bytes;
}

bool Psk63MarkerHunt::Begins(char character)
{
    hunt += character;
    if (hunt.size() > LongestHunt) hunt.clear();
    const auto marker = hunt.find(StartMarker);
    if (marker == std::string::npos) return false;
    frame = std::exchange(hunt, {}).substr(marker);
    return true;
}

/// The character that completes the start marker is taken as the first one behind it too, so that a frame opens with
/// six S.
std::optional<std::string> Psk63MarkerHunt::Take(char character)
{
    inFrame = inFrame || Begins(character);
    if (!inFrame) return {};
    frame += character;
    const auto end = frame.find(EndMarker);
    if (end == std::string::npos && frame.size() <= LongestFrame) return {};
    inFrame = false;
    const auto whole = std::exchange(frame, {});
    if (end == std::string::npos) return {};
    const auto opening = StartMarker.size() + 1;
    return whole.substr(opening, end - opening);
}

} // namespace halvern
