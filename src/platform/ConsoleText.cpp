// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ConsoleText.h"

#include <array>

namespace halvern {
namespace {

/// The escapes that have a letter of their own.
constexpr std::array<std::pair<char, char>, 5> Letters{
    {{'\r', 'r'}, {'\n', 'n'}, {'\t', 't'}, {'"', '"'}, {'\\', '\\'}}};

constexpr std::string_view HexDigits = "0123456789ABCDEF";

int HexValue(char digit)
{
    if (digit >= 'a' && digit <= 'f') digit = static_cast<char>(digit - 'a' + 'A');
    const auto value = HexDigits.find(digit);
    return value == std::string_view::npos ? -1 : static_cast<int>(value);
}

/// The byte that an escape stands for; `at` stands on the character behind the backslash and moves behind the escape.
std::optional<char> Unescaped(std::string_view line, std::size_t& at)
{
    if (at >= line.size()) return {};
    const char letter = line[at++];
    for (const auto& [byte, name] : Letters)
        if (letter == name) return byte;
    if (letter != 'x' || at + 2 > line.size()) return {};
    const int high = HexValue(line[at]);
    const int low = HexValue(line[at + 1]);
    if (high < 0 || low < 0) return {};
    at += 2;
    return static_cast<char>(high << 4 | low);
}

} // namespace

std::string ConsoleQuoted(std::string_view text)
{
    std::string quoted = "\"";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        char letter = 0;
        for (const auto& [raw, name] : Letters)
            if (character == raw) letter = name;
        if (letter != 0)
            quoted += {'\\', letter};
        else if (byte >= 0x20 && byte <= 0x7E)
            quoted += character;
        else
            quoted += {'\\', 'x', HexDigits[byte >> 4], HexDigits[byte & 15]};
    }
    return quoted + '"';
}

std::optional<std::string> ConsoleUnquoted(std::string_view line, std::size_t& at)
{
    if (at >= line.size() || line[at] != '"') return {};
    std::string text;
    for (++at; at < line.size();) {
        const char character = line[at++];
        if (character == '"') return text;
        if (character != '\\') {
            text += character;
            continue;
        }
        const auto byte = Unescaped(line, at);
        if (!byte) return {};
        text += *byte;
    }
    return {};
}

} // namespace halvern
