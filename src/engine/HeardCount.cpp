// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/HeardCount.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/Text.h"
#include "protocol/UtcTime.h"

namespace halvern {
namespace {

constexpr std::string_view Title = "Heard Form: Total Stations Heard = ";

/// "dd/hh:mm", the moment at which a column opens.
std::string ColumnLabel(const Moment& moment)
{
    const auto digits = DayHourMinute(moment);
    return {digits[0], digits[1], '/', digits[2], digits[3], ':', digits[4], digits[5]};
}

std::string_view DayOf(std::string_view label)
{
    return Columns(label, 1, 2);
}

std::string_view HourOf(std::string_view label)
{
    return Columns(label, 4, 2);
}

/// One column an hour, a day of them: an hour that comes round on another day starts the grid again.
void TurnThePage(Halvern& halvern, const std::string& now)
{
    auto& grid = halvern.HeardFrm.HeardGrid;
    const auto& first = grid.Cell(0, 1);
    if (HourOf(first) == HourOf(now) && DayOf(first) != DayOf(now)) {
        halvern.ConMdiFrm.HeardOnRfLst.Clear();
        ClearHeardGrid(halvern);
    }
    const int last = grid.Cols() - 1;
    if (HourOf(grid.Cell(0, last)) == HourOf(now)) return;
    grid.AddColumn();
    grid.SetCell(0, last + 1, now);
    for (int row = 1; row < grid.Rows(); ++row) grid.SetCell(row, last + 1, "0");
}

bool IsOwnPacketAsSent(const Halvern& halvern)
{
    const auto& engine = halvern.Engine;
    return engine.PathText == halvern.SetUpfrm.UnPath.Text() && engine.SourceCall == engine.OwnCall;
}

} // namespace

void ClearHeardGrid(Halvern& halvern)
{
    auto& grid = halvern.HeardFrm.HeardGrid;
    grid.Clear();
    grid.SetSize(2, 2);
    grid.SetCell(0, 0, "Call Sign");
    grid.SetCell(0, 1, ColumnLabel(UtcNow(halvern.Outside.clock)));
    grid.SetCell(1, 0, halvern.Engine.OwnCall);
    grid.SetCell(1, 1, "0");
}

void CountHeard(Halvern& halvern)
{
    if (halvern.Engine.ReviewMode) return;
    auto& grid = halvern.HeardFrm.HeardGrid;
    TurnThePage(halvern, ColumnLabel(UtcNow(halvern.Outside.clock)));
    const int last = grid.Cols() - 1;
    const int row = grid.FindRow(halvern.Engine.SourceCall, 1);
    if (row == NotFound) {
        grid.AddRow(halvern.Engine.SourceCall);
        const int added = grid.Rows() - 1;
        for (int column = 1; column < last; ++column) grid.SetCell(added, column, "0");
        grid.SetCell(added, last, "1");
    } else if (!IsOwnPacketAsSent(halvern)) {
        grid.SetCell(row, last, std::to_string(static_cast<long>(LeadingNumber(grid.Cell(row, last))) + 1));
    }
    std::array<char, 64> text; // each packet comes by here: no string is made for it
    const auto digits = std::ranges::copy(Title, text.begin()).out;
    const auto end = std::to_chars(digits, text.end(), grid.Rows() - 1).ptr;
    halvern.HeardFrm.SetCaption({text.begin(), end});
}

} // namespace halvern
