// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Clock.h"

#include <ctime>

namespace halvern {
namespace {

constexpr int DaysPerEra = 146097; // 400 years

/// Days since 1970-01-01; years begin in March, so that a leap day is the last of its year.
std::int64_t DaysOf(int year, int month, int day)
{
    year -= month <= 2;
    const int era = (year >= 0 ? year : year - 399) / 400;
    const int yearOfEra = year - era * 400;
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return static_cast<std::int64_t>(era) * DaysPerEra + dayOfEra - 719468;
}

void AppendTwoDigits(std::string& text, int number)
{
    text += static_cast<char>('0' + number / 10 % 10);
    text += static_cast<char>('0' + number % 10);
}

} // namespace

std::int64_t SecondsOf(const Moment& moment)
{
    return ((DaysOf(moment.year, moment.month, moment.day) * 24 + moment.hour) * 60 + moment.minute) * 60 +
           moment.second;
}

Moment MomentOf(std::int64_t seconds)
{
    std::int64_t days = seconds / 86400;
    int rest = static_cast<int>(seconds % 86400);
    if (rest < 0) rest += 86400, --days;
    days += 719468;
    const std::int64_t era = (days >= 0 ? days : days - (DaysPerEra - 1)) / DaysPerEra;
    const int dayOfEra = static_cast<int>(days - era * DaysPerEra);
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int monthFromMarch = (5 * dayOfYear + 2) / 153;
    Moment moment;
    moment.day = dayOfYear - (153 * monthFromMarch + 2) / 5 + 1;
    moment.month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    moment.year = static_cast<int>(yearOfEra + era * 400) + (moment.month <= 2);
    moment.hour = rest / 3600;
    moment.minute = rest / 60 % 60;
    moment.second = rest % 60;
    return moment;
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
