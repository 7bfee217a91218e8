// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/console/ConsoleLine.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/ConsoleText.h"

namespace halvern {
namespace {

constexpr std::string_view Blanks = " \t\r";

template <class Value> Value NumberOf(const std::string& text)
{
    Value value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || text.empty())
        throw ConsoleError(ConsoleQuoted(text) + " is no number");
    return value;
}

} // namespace

int WholeNumber(const std::string& text)
{
    return NumberOf<int>(text);
}

ConsoleLine::ConsoleLine(std::string_view line)
{
    if (line.starts_with('#')) return;
    for (std::size_t at = line.find_first_not_of(Blanks); at < line.size(); at = line.find_first_not_of(Blanks, at)) {
        if (line[at] == '"') {
            auto text = ConsoleUnquoted(line, at);
            if (!text || (at < line.size() && Blanks.find(line[at]) == Blanks.npos))
                throw ConsoleError("bad text in quotes");
            pieces.push_back({std::move(*text), true});
        } else {
            const auto end = std::min(line.find_first_of(Blanks, at), line.size());
            pieces.push_back({std::string(line.substr(at, end - at))});
            if (pieces.back().text.find('"') != std::string::npos) throw ConsoleError("a quote inside a word");
            at = end;
        }
    }
}

std::string ConsoleLine::Any(std::string_view what)
{
    if (!More()) throw ConsoleError(std::string(what) + " is missing");
    return pieces[next++].text;
}

std::string ConsoleLine::Word(std::string_view what)
{
    if (TextFollows()) throw ConsoleError(std::string(what) + " stands without quotes");
    return Any(what);
}

std::string ConsoleLine::Text(std::string_view what)
{
    if (More() && !TextFollows()) throw ConsoleError(std::string(what) + " stands in quotes");
    return Any(what);
}

int ConsoleLine::Whole(std::string_view what)
{
    return WholeNumber(Word(what));
}

double ConsoleLine::Number(std::string_view what)
{
    const auto word = Word(what);
    const auto number = NumberOf<double>(word);
    if (!std::isfinite(number)) throw ConsoleError(ConsoleQuoted(word) + " is no number");
    return number;
}

void ConsoleLine::End() const
{
    if (More()) throw ConsoleError("too much: " + ConsoleQuoted(pieces[next].text));
}

} // namespace halvern
