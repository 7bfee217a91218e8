// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/Refresh.h"

#include <algorithm>
#include <cmath>

#include "platform/Text.h"
#include "protocol/PositionText.h"
#include "protocol/UtcTime.h"
#include "state/Rows.h"
#include "view/MobileSymbol.h"
#include "view/Plotting.h"

namespace halvern {
namespace {

constexpr double Radian = 3.14159 / 180;

int Whole(std::string_view digits)
{
    return static_cast<int>(LeadingNumber(digits));
}

/// Hours since a report. A report of yesterday makes it 24 o'clock for the rest of the pass, so that the stations
/// behind it are moved by the same count.
double HoursSince(std::string_view row, int& hourNow, int minuteNow)
{
    const auto time = positionRow::HourMinute(row);
    int hour = Whole(Columns(time, 1, 2));
    const int minute = Whole(Columns(time, 3, 2));
    if (hour == 0) hour = 24;
    if (hourNow < hour) {
        hour -= hourNow;
        hourNow = 24;
    }
    if (hourNow * 100 + minuteNow == hour * 100 + minute) return 0;
    return (hourNow + minuteNow / 60.0) - (hour + minute / 60.0);
}

void MoveStations(Halvern& halvern, const Moment& now)
{
    const auto& stations = halvern.PositionFrm.PosLst;
    int hourNow = now.hour;
    for (int i = 0; i < stations.Count(); ++i) {
        const std::string_view row = stations.Row(i);
        const auto motion = MotionOf(row);
        if (!motion) continue;
        const double hours = HoursSince(row, hourNow, now.minute);
        if (hours == 0) continue;
        const auto step = AlongCourse(motion->course, hours * motion->speed, halvern.Map.MapRange);
        if (ColumnAt(row, positionRow::Type) != ';') PlotRecord(halvern, i).Color = colour::Green;
        PlaceSymbol(halvern, i, static_cast<float>(LatTextToDegrees(positionRow::Latitude(row)) + step.latitude),
                    static_cast<float>(LonTextToDegrees(positionRow::Longitude(row)) + step.longitude));
    }
}

} // namespace

std::optional<Motion> MotionOf(std::string_view row)
{
    if (ColumnAt(row, positionRow::State) == mark::Killed) return {};
    if (ColumnAt(row, positionRow::Type) != ';' && !IsMobile(ColumnAt(row, positionRow::Code))) return {};
    const auto comment = positionRow::Comment(row), course = Columns(comment, 1, 3), speed = Columns(comment, 5, 3);
    const auto digits = [](std::string_view text) { return std::all_of(text.begin(), text.end(), IsDigit); };
    if (speed.size() < 3 || ColumnAt(comment, 4) != '/' || !digits(course) || !digits(speed) || Whole(speed) < 1)
        return {};
    return Motion{Whole(course), Whole(speed)};
}

Displacement AlongCourse(int course, double distance, double range)
{
    if (course == 360) course = 0;
    const int base = course <= 90 ? 0 : course <= 180 ? 90 : course <= 270 ? 180 : 270;
    const int within = course - base;
    // From 45 degrees on sine and cosine change places: operators know the tracks as they come out.
    const double sine = std::sin(within * Radian), cosine = std::cos(within * Radian);
    const double north = distance * (within <= 45 ? cosine : sine) / range;
    const double side = distance * (within <= 45 ? sine : cosine) / range;
    return {base == 0 || base == 270 ? north : -north, base <= 90 ? -side : side};
}

void Refresh(Halvern& halvern)
{
    const auto now = UtcNow(halvern.Outside.clock);
    halvern.DigiFrm.ShDigiLst.CopyRows(halvern.DigiFrm.DigiLst);
    halvern.DxFrm.ShResourceLst.CopyRows(halvern.DxFrm.ResourceLst);
    halvern.PositionFrm.ShPosLst.CopyRows(halvern.PositionFrm.PosLst);
    if (halvern.SetUpfrm.DeadOnOpt.On(0)) MoveStations(halvern, now);
    halvern.StatusFrm.ShStatusLst.CopyRows(halvern.StatusFrm.StatusLst);
    halvern.TerminalFrm.ShRawPacketLst.CopyRows(halvern.TerminalFrm.RawPacketLst);
}

} // namespace halvern
