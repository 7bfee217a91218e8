// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/InputItems.h"

#include <charconv>

namespace halvern {

std::optional<double> ItemNumber(std::string_view item)
{
    if (!item.empty() && item.front() == '+') item.remove_prefix(1);
    double number = 0;
    const auto [end, error] = std::from_chars(item.data(), item.data() + item.size(), number);
    if (error != std::errc{} || end != item.data() + item.size() || !std::isfinite(number)) return {};
    return number;
}

Success FitInto(float& place, std::optional<double> number)
{
    if (!number || std::abs(*number) > std::numeric_limits<float>::max()) return false;
    place = static_cast<float>(*number);
    return true;
}

Success FitInto(double& place, std::optional<double> number)
{
    if (number) place = *number;
    return number.has_value();
}

Success Items::RestOfLine(std::string_view& line)
{
    if (at == end) return false;
    const char* const start = at;
    while (at != end && *at != '\n' && *at != '\r') ++at;
    line = {start, static_cast<std::size_t>(at - start)};
    PassLineEnd();
    return true;
}

void Items::SkipLine()
{
    std::string_view ignored;
    if (!endedLine) (void)RestOfLine(ignored);
    endedLine = true;
}

std::string_view Items::Bare(std::string_view item)
{
    const auto blank = [](char character) { return character == ' ' || character == '\t'; };
    while (!item.empty() && blank(item.front())) item.remove_prefix(1);
    while (!item.empty() && blank(item.back())) item.remove_suffix(1);
    if (item.size() >= 2 && item.front() == '"' && item.back() == '"') item = item.substr(1, item.size() - 2);
    return item;
}

} // namespace halvern
