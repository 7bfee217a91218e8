// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <limits>
#include <optional>
#include <string_view>

/// Reading text files of items between commas and line ends.
namespace halvern {

/// A step of a reader that may fail. Readers stop at the first one that does.
using Success = bool;

/// The number that a whole item is. @return nothing for another text or a number without bounds.
std::optional<double> ItemNumber(std::string_view item);

/// Rounds a number to a whole one that the kind can hold.
template <class Kind> Success FitInto(Kind& place, std::optional<double> number)
{
    if (!number) return false;
    const double whole = std::nearbyint(*number);
    if (whole < std::numeric_limits<Kind>::min() || whole > std::numeric_limits<Kind>::max()) return false;
    place = static_cast<Kind>(whole);
    return true;
}
Success FitInto(float& place, std::optional<double> number);
Success FitInto(double& place, std::optional<double> number);

/// Walks over the items and lines of a text. Blanks around an item and quotes at both its ends don't count.
class Items {
public:
    /// @param bytes a whole file; it must outlive the reader.
    explicit Items(std::string_view bytes) : at(bytes.data()), end(bytes.data() + bytes.size()) {}

    /// The next item. Its comma or line end is passed.
    Success Next(std::string_view& item)
    {
        if (at == end) return false;
        const char* const start = at;
        while (at != end && *at != ',' && *at != '\n' && *at != '\r') ++at;
        item = {start, static_cast<std::size_t>(at - start)};
        endedLine = at == end || *at != ',';
        if (at != end && *at == ',')
            ++at;
        else
            PassLineEnd();
        if (!item.empty() && (item.front() < '0' || item.back() < '0')) item = Bare(item);
        return true;
    }

    /// What is left of the line, without its end.
    Success RestOfLine(std::string_view& line);
    /// Leaves the line of the item that was read last.
    void SkipLine();

    /// The next item as a number; a blank ends it.
    template <class Kind> Success Number(Kind& place)
    {
        std::string_view item;
        return Next(item) && FitInto(place, ItemNumber(item.substr(0, item.find_first_of(" \t"))));
    }

private:
    static std::string_view Bare(std::string_view item);
    void PassLineEnd()
    {
        if (at != end && *at == '\r') ++at;
        if (at != end && *at == '\n') ++at;
    }

    const char* at;
    const char* end;
    bool endedLine = true;
};

} // namespace halvern
