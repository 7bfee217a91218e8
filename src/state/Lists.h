// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

/// Rows that more than one list offers.
namespace halvern {

inline constexpr std::array<std::string_view, 16> ComPorts{"Com1",  "Com2",  "Com3",  "Com4",  "Com5",  "Com6",
                                                           "Com7",  "Com8",  "Com9",  "Com10", "Com11", "Com12",
                                                           "Com13", "Com14", "Com15", "Com16"};

inline constexpr std::array<std::string_view, 16> PortSpeeds{"110",   "300",    "600",    "1200",  "2400",  "4800",
                                                             "9600",  "14400",  "19200",  "28800", "38400", "56000",
                                                             "57600", "115200", "128000", "256000"};

inline constexpr std::array<std::string_view, 7> GpsSpeeds{"110", "300", "600", "1200", "2400", "4800", "9600"};

/// The half height of the map view in nautical miles, step by step. The top step is the one that is no power of two:
/// it shows the whole world with nothing to spare.
inline constexpr std::array<std::string_view, 14> RangeSteps{
    "Map Range = 8000", "Map Range = 4096", "Map Range = 2048", "Map Range = 1024", "Map Range = 512",
    "Map Range = 256",  "Map Range = 128",  "Map Range = 64",   "Map Range = 32",   "Map Range = 16",
    "Map Range = 8",    "Map Range = 4",    "Map Range = 2",    "Map Range = 1"};

} // namespace halvern
