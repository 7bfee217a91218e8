// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/IniText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/Text.h"

namespace halvern {
namespace {

std::optional<double> Fitting(LineKind kind, std::string_view text)
{
    const auto number = WholeTextNumber(text);
    if (!number) return {};
    const double size = std::abs(*number);
    if (kind == LineKind::Single && size > std::numeric_limits<float>::max()) return {};
    if (kind == LineKind::Points && (*number < 1 || *number > 1000)) return {};
    if (kind != LineKind::Integer) return number;
    const double whole = std::nearbyint(*number);
    if (whole < std::numeric_limits<std::int16_t>::min() || whole > std::numeric_limits<std::int16_t>::max()) return {};
    return whole;
}

/// A line break within a value would shift all that follows, so it becomes a blank, in both directions.
std::string OnOneLine(std::string_view value)
{
    std::string text(value);
    std::ranges::replace_if(
        text, [](char character) { return character == '\r' || character == '\n'; }, ' ');
    return text;
}

std::optional<std::string> TruthWord(std::string_view text)
{
    const auto word = UpperCase(text);
    if (word == "TRUE") return "True";
    if (word == "FALSE") return "False";
    return {};
}

} // namespace

std::optional<double> WholeTextNumber(std::string_view text)
{
    text = Trimmed(text);
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || read.ec != std::errc{} || read.ptr != text.data() + text.size()) return {};
    if (!std::isfinite(number)) return {};
    return number;
}

IniFault::IniFault(int line, const std::string& name)
    : RuntimeFailure(failure::PastEndOfFile,
                     "line " + std::to_string(line) + " (" + name + ") is missing or can't be read"),
      line(line)
{
}

void IniReader::Fail(const std::string& name) const
{
    throw IniFault(line, name);
}

std::string IniReader::NextLine(const std::string& name)
{
    ++line;
    if (rest.empty()) Fail(name);
    const auto end = rest.find('\n');
    auto text = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (text.ends_with('\r')) text.remove_suffix(1);
    return OnOneLine(text);
}

std::string IniReader::Next(LineKind kind, const std::string& name)
{
    auto text = NextLine(name);
    if (kind == LineKind::WholeLine) return text;
    const auto field = Trimmed(std::string_view(text).substr(0, text.find(',')));
    if (kind == LineKind::Field) return std::string(field);
    if (kind == LineKind::Truth) {
        const auto word = TruthWord(field);
        return word ? *word : (Fail(name), "");
    }
    const auto number = Fitting(kind, field);
    return number ? PlainNumber(*number) : (Fail(name), "");
}

int IniReader::NextInteger(const std::string& name, int least, int most)
{
    const int number = static_cast<int>(LeadingNumber(Next(LineKind::Integer, name)));
    if (number < least || number > most) Fail(name);
    return number;
}

void IniWriter::Put(LineKind kind, const std::string& value)
{
    const bool number = kind == LineKind::Integer || kind == LineKind::Single || kind == LineKind::Points;
    bytes.append(number && !value.starts_with('-') ? " " : "")
        .append(OnOneLine(value))
        .append(number ? " " : "")
        .append(CrLf);
}

} // namespace halvern
