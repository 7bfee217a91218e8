// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Clock.h"

#include <chrono>
#include <ctime>

namespace halvern {
namespace {

void AppendTwoDigits(std::string& text, int number)
{
    text += static_cast<char>('0' + number / 10 % 10);
    text += static_cast<char>('0' + number % 10);
}

} // namespace

std::int64_t SecondsOf(const Moment& moment)
{
    using namespace std::chrono;
    const auto month = year(moment.year) / static_cast<unsigned>(moment.month);
    const auto day = sys_days(month / 1) + days(moment.day - 1);
    return seconds(day.time_since_epoch()).count() + (moment.hour * 60 + moment.minute) * 60 + moment.second;
}

Moment MomentOf(std::int64_t seconds)
{
    using namespace std::chrono;
    const sys_seconds moment{std::chrono::seconds(seconds)};
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

Moment SystemClock::LocalTime() const
{
    return MomentOf(static_cast<std::int64_t>(std::time(nullptr)) - Zone().bias * 60);
}

TimeZone SystemClock::Zone() const
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    // The system tells the whole offset of this moment; daylight time is already in it.
    return {.bias = -static_cast<int>(local.tm_gmtoff / 60)};
}

std::string DayHourMinute(const Moment& moment)
{
    std::string text;
    for (const int number : {moment.day, moment.hour, moment.minute}) AppendTwoDigits(text, number);
    return text;
}

std::string DayHourMinuteSecond(const Moment& moment)
{
    auto text = DayHourMinute(moment);
    AppendTwoDigits(text, moment.second);
    return text;
}

} // namespace halvern
