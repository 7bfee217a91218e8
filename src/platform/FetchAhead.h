// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

namespace halvern {

/// Has the processor fetch memory that will be written soon, while it goes on with other work. Changes nothing else.
inline void FetchAhead(const char* start, std::size_t bytes)
{
    constexpr std::size_t CacheLine = 64;
    for (std::size_t at = 0; at < bytes; at += CacheLine) __builtin_prefetch(start + at, 1);
    __builtin_prefetch(start + bytes - 1, 1);
}

template <class Thing> void FetchAhead(const Thing& thing)
{
    FetchAhead(reinterpret_cast<const char*>(&thing), sizeof thing);
}

} // namespace halvern
