// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/ObjectSchedule.h"

#include <algorithm>
#include <array>

namespace halvern {
namespace {

constexpr std::array<ObjectStep, 5> Steps{{
    {1, 8000, FirstObjectStage, "A"},
    {8000, 16000, "A", "B"},
    {16000, 32000, "B", "C"},
    {32000, SlowObjectInterval, "C", "D"},
    {SlowObjectInterval, SlowObjectInterval, "D", "D"},
}};

} // namespace

const ObjectStep* ObjectStepAt(int interval)
{
    const auto* const step = std::ranges::find(Steps, interval, &ObjectStep::interval);
    return step == Steps.end() ? nullptr : step;
}

std::optional<std::int64_t> UntilObjectGoesOut(std::string_view stage, int interval, int cycle, std::int64_t rest)
{
    const auto* step = ObjectStepAt(interval);
    while (step != nullptr && step->interval != SlowObjectInterval) {
        if (stage == step->stage) return rest;
        rest += step->next;
        step = ObjectStepAt(step->next);
    }
    if (step == nullptr || stage != step->stage) return {};
    const int ticks = cycle == 0 ? 0 : SlowObjectCycle - cycle;
    return rest + static_cast<std::int64_t>(ticks) * SlowObjectInterval;
}

} // namespace halvern
