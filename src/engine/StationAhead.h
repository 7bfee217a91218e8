// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "platform/KeyIndex.h"
#include "state/Halvern.h"

namespace halvern {

/// What the stores hold of the sender of a line, fetched before the line is decoded: with many stations each place is
/// far from the last one, and decoding would wait for them in turn.
class StationAhead {
public:
    /// Finds the rows of the line's source call and has their places fetched, the texts in them not yet.
    StationAhead(const Halvern& halvern, std::string_view line);
    /// Has the texts of the rows fetched, when their places have come.
    void FetchTexts() const;

private:
    const Halvern& halvern;
    int position = NotFound, path = NotFound;
};

} // namespace halvern
