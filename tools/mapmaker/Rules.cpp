// SPDX-License-Identifier: GPL-3.0-or-later
#include "Rules.h"

#include <charconv>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace halvern::mapmaker {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

} // namespace

Rules::Rules(int colour)
{
    rules_.push_back({"*", "", "*", false, {colour, ""}});
}

Rules Rules::Parse(std::string_view text)
{
    Rules rules;
    std::istringstream rows{std::string(text)};
    std::string row;
    for (int number = 1; std::getline(rows, row); ++number) {
        if (number == 1 && row.starts_with(ByteOrderMark)) row.erase(0, ByteOrderMark.size());
        std::istringstream parts{row.substr(0, row.find('#'))};
        std::vector<std::string> words;
        for (std::string word; parts >> std::quoted(word);) words.push_back(word);
        if (words.empty()) continue;
        try {
            rules.rules_.push_back(ParseRow(words));
        } catch (const std::runtime_error& error) {
            throw std::runtime_error("row " + std::to_string(number) + ": " + error.what());
        }
    }
    if (rules.rules_.empty()) throw std::runtime_error("holds no rule");
    return rules;
}

Rules::Rule Rules::ParseRow(const std::vector<std::string>& words)
{
    if (words.size() < 3 || words.size() > 4)
        throw std::runtime_error("a rule is: layer, condition, colour and perhaps the field of the name");
    Rule rule{words[0], "", "*", words[2] == "skip", {}};
    if (words[1] != "*") {
        const std::size_t equals = words[1].find('=');
        if (equals == std::string::npos || equals == 0 || equals + 1 == words[1].size())
            throw std::runtime_error("\"" + words[1] + "\" isn't field=value");
        rule.field = words[1].substr(0, equals);
        rule.value = words[1].substr(equals + 1);
    }
    if (!rule.skip) {
        const char* end = words[2].data() + words[2].size();
        const auto [stop, error] = std::from_chars(words[2].data(), end, rule.look.colour);
        if (error != std::errc() || stop != end || rule.look.colour < 0 || rule.look.colour > 15)
            throw std::runtime_error("\"" + words[2] + "\" is neither a colour from 0 to 15 nor skip");
    }
    if (words.size() == 4 && words[3] != "-") rule.look.nameField = words[3];
    return rule;
}

std::string TagOf(const std::string& tags, const std::string& name)
{
    std::istringstream parts(tags);
    std::string key;
    std::string value;
    char mark[3]{}; // => and a comma
    while (parts >> std::quoted(key) >> mark[0] >> mark[1] >> std::quoted(value)) {
        if (key == name) return value;
        if (!(parts >> mark[2])) break;
    }
    return "";
}

std::optional<Look> Rules::LookOf(const std::string& layer,
                                  const std::function<std::string(const std::string&)>& fieldOf) const
{
    for (const Rule& rule : rules_) {
        if (rule.layer != "*" && rule.layer != layer) continue;
        if (!rule.field.empty()) {
            const std::string value = fieldOf(rule.field);
            if (value.empty() || (rule.value != "*" && rule.value != value)) continue;
        }
        return rule.skip ? std::nullopt : std::optional(rule.look);
    }
    return std::nullopt;
}

} // namespace halvern::mapmaker
