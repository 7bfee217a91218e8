// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/Paths.h"

#include "platform/Text.h"

namespace halvern {
namespace {

constexpr int Unreadable = 100;
constexpr long MostHops = 32767; // counts are 16 bits wide
constexpr const char* NoGood = "Path No Good";

/// A digit text, or nothing where its value is 0: an alias with "0" counts like one without a number.
std::string_view NonZero(std::string_view digits)
{
    return LeadingNumber(digits) == 0 ? std::string_view{} : digits;
}

struct EntryHops {
    bool counts = false; ///< the entry says something about hops
    long hops = 0;
};

/// @param index  0-based place of the entry in its path
EntryHops HopsOf(std::string_view entry, int index)
{
    bool used = Holds(entry, "*");
    const auto value = [](std::string_view text) { return RoundHalfToEven(LeadingNumber(text)); };
    if (const auto dash = PositionOf(entry, '-'); dash != 0) {
        const auto wanted = NonZero(Columns(entry, dash - 1, 1));
        used = Holds(Columns(entry, dash + 1), "*");
        const long difference = value(wanted) - value(Columns(entry, dash + 1));
        if (!wanted.empty()) return {difference != 0, difference};
        return {used, 1 + index};
    }
    const std::size_t digits = !entry.empty() && entry.back() == '*' ? 2 : 1;
    const auto wanted = entry.size() < digits ? std::string_view{} : NonZero(entry.substr(entry.size() - digits));
    if (wanted.empty()) return {used, 1 + index};
    return {true, used ? value(wanted) + 1 + index : value(wanted)};
}

} // namespace

int PathHopCount(std::string_view path)
{
    if (path == "0" || path == "None") return 0;
    long hops = 0;
    int index = 0;
    for (;;) {
        const auto comma = path.find(',');
        const auto entry = path.substr(0, comma);
        if (PositionOf(entry, '-') == 1) return Unreadable; // nothing stands before the dash to be read
        const auto [counts, more] = HopsOf(entry, index++);
        if (counts) hops += more;
        if (hops < -MostHops || hops > MostHops) return Unreadable;
        if (comma == std::string_view::npos) return static_cast<int>(hops);
        path.remove_prefix(comma + 1);
    }
}

std::string CheckUnprotoPath(std::string_view path)
{
    std::string result;
    bool first = true;
    for (const auto& entry : SplitAt(path)) {
        if (!first) result += ",";
        first = false;
        const auto dash = PositionOf(entry, '-');
        if (dash == 1 || dash == 2) return NoGood;
        const bool numbered = dash != 0 && (LeadingNumber(Columns(entry, dash - 2, 2)) != 0 ||
                                            LeadingNumber(Columns(entry, dash - 1, 1)) != 0);
        result += numbered ? std::string(Columns(entry, 1, dash - 1)) : entry;
    }
    return result + "*";
}

} // namespace halvern
