// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace halvern {

/// A list's selection: the index of its row, -1 for none; the row's text, or what was typed. A file knows no text.
struct Chosen {
    int index = -1;
    std::optional<std::string> text;
    bool operator==(const Chosen&) const = default;
};

/// The value of a setting in its own kind, the entries of a list, or nothing for a line that a file does not have.
using SettingValue =
    std::variant<std::monostate, std::string, int, float, double, bool, Chosen, std::vector<std::string>>;

} // namespace halvern
