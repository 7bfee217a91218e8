// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace halvern {
namespace {

constexpr std::array<double, 16> PowersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

} // namespace

std::string_view Columns(std::string_view text, std::size_t first, std::size_t count)
{
    if (first == 0 || first > text.size()) return {};
    return text.substr(first - 1, count);
}

char ColumnAt(std::string_view text, std::size_t column)
{
    return column == 0 || column > text.size() ? '\0' : text[column - 1];
}

std::size_t PositionOf(std::string_view text, std::string_view what, std::size_t from)
{
    if (from == 0 || from > text.size() + 1) return 0;
    const auto found = text.find(what, from - 1);
    return found == std::string_view::npos ? 0 : found + 1;
}

std::size_t PositionOf(std::string_view text, char what, std::size_t from)
{
    return PositionOf(text, std::string_view(&what, 1), from);
}

bool Holds(std::string_view text, std::string_view what)
{
    return text.find(what) != std::string_view::npos;
}

double LeadingNumber(std::string_view text)
{
    text = TrimmedLeft(text);
    const bool negative = text.starts_with('-');
    std::size_t end = negative || text.starts_with('+') ? 1 : 0;
    std::uint64_t whole = 0;
    std::size_t digits = 0, behindPoint = 0;
    for (bool point = false; end < text.size() && (IsDigit(text[end]) || (text[end] == '.' && !point)); ++end) {
        if (text[end] == '.') {
            point = true;
            continue;
        }
        whole = whole * 10 + static_cast<std::uint64_t>(text[end] - '0');
        ++digits;
        if (point) ++behindPoint;
    }
    if (digits == 0) return 0;
    if (digits < PowersOfTen.size()) { // both are exact, so that one division rounds as a full conversion does
        const double number = static_cast<double>(whole) / PowersOfTen[behindPoint];
        return negative ? -number : number;
    }
    double number = 0;
    std::from_chars(text.data() + (text.front() == '+' ? 1 : 0), text.data() + end, number);
    return number;
}

std::string PlainNumber(double number)
{
    char buffer[400];            // the smallest number has some 340 digits
    if (number == 0) number = 0; // no "-0"
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed).ptr;
    return std::abs(number) < 1e17 ? std::string(buffer, end) : ConsoleNumber(number);
}

std::string PlainFloat(float number)
{
    char buffer[64];
    if (number == 0) number = 0;
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed).ptr};
}

std::string SignedNumber(double number)
{
    auto text = PlainNumber(number);
    return text[0] == '-' ? text : " " + text;
}

std::string ConsoleNumber(double number)
{
    char buffer[40];
    return {buffer, static_cast<std::size_t>(std::snprintf(buffer, sizeof buffer, "%.9g", number))};
}

std::string ZeroFilled(long number, int width)
{
    auto digits = std::to_string(number);
    if (number < 0 || static_cast<int>(digits.size()) >= width) return digits;
    return std::string(width - digits.size(), '0') + digits;
}

std::string Padded(std::string_view text, std::size_t width)
{
    std::string field(text.substr(0, width));
    field.resize(width, ' ');
    return field;
}

std::string CallField(std::string_view call)
{
    return Padded(call, 9);
}

std::string_view TrimmedLeft(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::string_view TrimmedRight(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view Trimmed(std::string_view text)
{
    return TrimmedLeft(TrimmedRight(text));
}

char UpperCase(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

std::string UpperCase(std::string_view text)
{
    std::string upper(text);
    for (auto& character : upper) character = UpperCase(character);
    return upper;
}

std::string LowerCase(std::string_view text)
{
    std::string lower(text);
    for (auto& character : lower)
        if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
    return lower;
}

void RemoveAll(std::string& text, char character)
{
    const auto first = text.find(character);
    if (first == std::string::npos) return;
    text.erase(std::remove(text.begin() + static_cast<std::ptrdiff_t>(first), text.end(), character), text.end());
}

std::vector<std::string> SplitAt(std::string_view text, char mark)
{
    std::vector<std::string> pieces;
    for (;;) {
        const auto end = text.find(mark);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

std::vector<std::string_view> LinesOf(std::string_view bytes)
{
    std::vector<std::string_view> lines;
    while (!bytes.empty()) {
        const auto end = bytes.find('\n');
        auto line = bytes.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.push_back(line);
        if (end == std::string_view::npos) break;
        bytes.remove_prefix(end + 1);
    }
    return lines;
}

long RoundHalfToEven(double number)
{
    constexpr double exact = 9007199254740992.0; // beyond 2^53 there are no halves, and a long might overflow
    if (!(number > -exact && number < exact)) return number > 0 ? static_cast<long>(exact) : -static_cast<long>(exact);
    const double below = std::floor(number);
    const double rest = number - below;
    auto whole = static_cast<long>(below);
    if (rest > 0.5 || (rest == 0.5 && whole % 2 != 0)) ++whole;
    return whole;
}

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

std::string_view PathOrNothing(std::string_view setting)
{
    return setting == "NONE" ? std::string_view{} : setting;
}

} // namespace halvern
