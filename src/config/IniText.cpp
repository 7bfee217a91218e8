// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/IniText.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "map/InputItems.h"
#include "platform/Text.h"

namespace halvern {
namespace {

std::optional<double> Fitting(LineKind kind, std::string_view text)
{
    text = Trimmed(text);
    const auto number = ItemNumber(text);
    if (!number || text.front() == '+') return {}; // no settings file has a plus sign
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

std::optional<bool> TruthOf(std::string_view text)
{
    const auto word = UpperCase(text);
    if (word == "TRUE") return true;
    if (word == "FALSE") return false;
    return {};
}

/// A value as its line has it, without the blanks of numbers.
struct LineText {
    LineKind kind;

    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(const std::string& text) const { return text; }
    std::string operator()(int number) const { return std::to_string(std::clamp<int>(number, INT16_MIN, INT16_MAX)); }
    std::string operator()(float number) const { return PlainFloat(number); }
    std::string operator()(double number) const { return PlainNumber(number); }
    std::string operator()(bool truth) const { return truth ? "True" : "False"; }
    std::string operator()(const Chosen& chosen) const
    {
        return kind == LineKind::Field ? chosen.text.value_or("") : (*this)(chosen.index);
    }
    std::string operator()(const std::vector<std::string>&) const { return {}; } // a line each: the table's writer
};

} // namespace

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

std::string IniReader::NextText(LineKind kind, const std::string& name)
{
    const auto text = NextLine(name);
    return kind == LineKind::WholeLine ? text : std::string(Trimmed(std::string_view(text).substr(0, text.find(','))));
}

SettingValue IniReader::Next(LineKind kind, const std::string& name)
{
    auto text = NextText(kind, name);
    if (kind == LineKind::WholeLine || kind == LineKind::Field) return text;
    if (kind == LineKind::Truth) {
        const auto truth = TruthOf(text);
        return truth ? *truth : (Fail(name), false);
    }
    const auto number = Fitting(kind, text);
    if (!number) Fail(name);
    if (kind == LineKind::Integer) return static_cast<int>(*number);
    if (kind == LineKind::Single) return static_cast<float>(*number);
    return *number;
}

int IniReader::NextInteger(const std::string& name, int least, int most)
{
    const int number = std::get<int>(Next(LineKind::Integer, name));
    if (number < least || number > most) Fail(name);
    return number;
}

void IniWriter::Put(LineKind kind, const SettingValue& value)
{
    const auto text = std::visit(LineText{kind}, value);
    const bool number = kind == LineKind::Integer || kind == LineKind::Single || kind == LineKind::Points;
    bytes.append(number && !text.starts_with('-') ? " " : "")
        .append(OnOneLine(text))
        .append(number ? " " : "")
        .append(CrLf);
}

} // namespace halvern
