// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// When own objects go out: at once, after 8, 16, 32 and 60 seconds, then every 30 minutes. One timer serves all of
/// them; its interval is the stage that it serves.
namespace halvern {

/// What the timer does at one of its intervals, in milliseconds: the objects that stand at `stage` go out and stand at
/// `after`, and the timer goes on with `next`.
struct ObjectStep {
    int interval, next;
    std::string_view stage, after;
};

/// The stage of a new or changed object.
inline constexpr std::string_view FirstObjectStage = " ";
/// The interval that stays; only one tick of a cycle, that at 0, sends.
inline constexpr int SlowObjectInterval = 60000;
inline constexpr std::int16_t SlowObjectCycle = 30;

/// @return nullptr for an interval at which nothing goes out
const ObjectStep* ObjectStepAt(int interval);

/// Milliseconds until an object goes out next.
///
/// @param cycle  ticks of the slow interval since it last sent, 0 to 29
/// @param rest   milliseconds until the timer's next tick
/// @return nothing for an object that has missed its interval: it waits for another to begin the schedule anew
std::optional<std::int64_t> UntilObjectGoesOut(std::string_view stage, int interval, int cycle, std::int64_t rest);

} // namespace halvern
