// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halvern::mapmaker {

/// How one feature is drawn.
struct Look {
    int colour = 7;
    std::string nameField; ///< the field whose value names the line; empty: none
};

/// The value of a tag among those that a source keeps together in one field, as "key"=>"value","key"=>"value"; empty
/// when it isn't there.
std::string TagOf(const std::string& tags, const std::string& name);

/// Which features of a vector file are drawn, and how: a small text of one rule a row,
///
///     layer  field=value  colour  [name field]
///
/// where layer and value may be `*`, the whole condition may be `*`, and the colour is 0 to 15 or `skip`. What holds a
/// blank stands in quotes. The first rule that fits a feature decides; one that no rule fits is left out. `#` starts a
/// remark.
class Rules {
public:
    /// Everything in one colour.
    explicit Rules(int colour);

    /// Throws std::runtime_error that names the row of a rule that can't be understood.
    static Rules Parse(std::string_view text);

    /// The look of a feature; `fieldOf` gives the value of a field by its name, empty when there is none.
    std::optional<Look> LookOf(const std::string& layer,
                               const std::function<std::string(const std::string&)>& fieldOf) const;

private:
    struct Rule {
        std::string layer;
        std::string field;
        std::string value;
        bool skip = false;
        Look look;
    };

    Rules() = default;
    static Rule ParseRow(const std::vector<std::string>& words);

    std::vector<Rule> rules_;
};

} // namespace halvern::mapmaker
