// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/WeatherGraph.h"

#include <utility>

#include "platform/Text.h"
#include "protocol/WeatherReading.h"
#include "state/Rows.h"

namespace halvern {
namespace {

constexpr double LeastDistance = 30; ///< between two reports, counted in ddhhmmss as one number
constexpr int ASecond = 1000;        ///< milliseconds

std::string_view InfoOf(std::string_view row)
{
    return Columns(row, PositionOf(row, ':') + 1);
}

double ArrivalOf(std::string_view row)
{
    const auto length = std::min(row.size(), weatherRow::ArrivalLength);
    return LeadingNumber(row.substr(row.size() - length));
}

/// "dd hh:mm:ss" of a row's arrival.
std::string TimeOf(std::string_view row)
{
    const auto arrival = row.substr(row.size() - std::min(row.size(), weatherRow::ArrivalLength));
    return std::string(Columns(arrival, 1, 2)) + " " + std::string(Columns(arrival, 3, 2)) + ":" +
           std::string(Columns(arrival, 5, 2)) + ":" + std::string(Columns(arrival, 7, 2));
}

/// Puts the station's reports into `PacketLst`, those that follow each other too closely left out.
/// @return whether there was any row of the station
bool CollectReports(Halvern& halvern)
{
    auto& form = halvern.WeatherFrm;
    const auto& raw = halvern.TerminalFrm.RawPacketLst;
    bool heard = false;
    double last = 0;
    for (int i = 0; i < raw.Count(); ++i) {
        const auto& row = raw.Row(i);
        if (!row.starts_with(form.CallSignTxt.Text())) continue;
        heard = true;
        const double arrival = ArrivalOf(row);
        if (!LooksLikeWeather(InfoOf(row)) || last + LeastDistance >= arrival) continue;
        form.PacketLst.Add(row);
        last = arrival;
    }
    return heard;
}

/// The reports' values, and how many of them can still be drawn.
struct Series {
    std::vector<float> values;
    std::vector<std::string> times;
    int usable = 0;   ///< reports that are not malformed
    bool any = false; ///< a value, or a wind, was read
};

void AddWind(CompassForm& form, const WeatherReading& wind)
{
    form.CompassLst.Add(std::to_string(wind.gauge));
    form.DirectionLst.Add(std::to_string(wind.direction));
    form.SpeedLst.Add(PlainFloat(wind.value));
}

/// Reads one quantity out of every report. @return false where that failed, which is told
bool ReadReports(Halvern& halvern, WeatherQuantity quantity, Series& series)
{
    using Kind = WeatherReading::Kind;
    const auto& form = halvern.WeatherFrm;
    const auto& call = form.CallSignTxt.Text();
    std::size_t next = 0;
    for (int i = 0; i < form.PacketLst.Count(); ++i) {
        const auto reading = ReadWeather(InfoOf(form.PacketLst.Row(i)), quantity);
        if (reading.kind == Kind::Missing) {
            halvern.Tell(Icon::Information, call + " Weather station does not have a Barometer.");
            return false;
        }
        if (reading.kind == Kind::Malformed && --series.usable <= 1) {
            halvern.Tell(Icon::Information, "Malformed packets received from " + call + std::string(CrLf) +
                                                " Not enough packets left to make graph.");
            return false;
        }
        if (reading.kind != Kind::Good) continue;
        series.any = true;
        if (quantity == WeatherQuantity::Wind)
            AddWind(halvern.CompassFrm, reading);
        else
            series.values[next++] = reading.value, series.times.push_back(TimeOf(form.PacketLst.Row(i)));
    }
    return true;
}

struct GraphWords {
    const char *caption, *leftTitle;
    double upper, lower;
};

/// The bounds are fixed, so that graphs can be compared at a glance. A barometer in millibars lies outside of them.
constexpr GraphWords Words[] = {{"Temperature Change", "Temperature", 150, -100}, {"Barometer Change", "MB", 32, 27}};

void FillGraph(Halvern& halvern, WeatherQuantity quantity, const Series& series)
{
    auto& form = halvern.GraphFrm;
    const auto& words = Words[quantity == WeatherQuantity::Barometer ? 1 : 0];
    form.SetCaption(std::string(words.caption) + " at " + halvern.WeatherFrm.CallSignTxt.Text());
    form.BottomTitle = "Reports";
    form.LeftTitle = words.leftTitle;
    form.UpperBound = words.upper;
    form.LowerBound = words.lower;
    form.Times = series.times;
    form.GraphLst.Clear();
    for (int i = 0; i < series.usable; ++i) form.GraphLst.Add(PlainFloat(series.values[static_cast<std::size_t>(i)]));
    form.Graph1.SetCaption(words.caption); // last, for it tells who draws that all is there
}

void ShowSecond(CompassForm& form, int line)
{
    form.DirectionLst.Preselect(line);
    form.SpeedLst.Preselect(line);
    form.DirGage.SetValue(LeadingNumber(form.CompassLst.Row(line)));
    form.Slider1.SetValue(LeadingNumber(form.SpeedLst.Row(line)));
}

} // namespace

void ComputeWeather(Halvern& halvern)
{
    auto& form = halvern.WeatherFrm;
    const auto& call = form.CallSignTxt.Text();
    form.PacketLst.Clear();
    if (call == "CALL SIGN")
        halvern.Tell(Icon::Critical, "You first have to enter a Call Sign in the Call Sign Text Field");
    if (!CollectReports(halvern)) return halvern.Tell(Icon::Information, call + " Not Found.");
    const int count = form.PacketLst.Count();
    if (count == 0) return halvern.Tell(Icon::Information, "No Weather Data available at " + call);
    if (count == 1)
        return halvern.Tell(Icon::Information,
                            "Need more than " + SignedNumber(count) + " number of reports to make Graph.");

    const auto quantity = static_cast<WeatherQuantity>(form.GraphOpt.Selected());
    Series series{.values = std::vector<float>(static_cast<std::size_t>(count)), .usable = count};
    if (!ReadReports(halvern, quantity, series)) return;
    if (!series.any) return halvern.Tell(Icon::Information, "No packets received for " + call);
    if (quantity != WeatherQuantity::Wind) FillGraph(halvern, quantity, series);
    if (series.values[0] == 0)
        halvern.Outside.dialogs.ShowModal(halvern.CompassFrm);
    else
        halvern.Outside.dialogs.ShowModal(halvern.GraphFrm);
}

void ShowFirstWind(CompassForm& form)
{
    if (form.CompassLst.Count() > 0) ShowSecond(form, 0);
}

void RunWindSimulation(Halvern& halvern)
{
    auto& form = halvern.CompassFrm;
    if (std::exchange(form.Running, !form.Running)) return; // it runs further up: this press stops it
    for (int line = 0; line < form.CompassLst.Count() && form.Running && form.Visible(); ++line) {
        ShowSecond(form, line);
        halvern.Outside.dialogs.LetTimePass(ASecond);
    }
    form.Running = false;
}

void ForgetWind(CompassForm& form)
{
    form.Running = false;
    for (List* list : {&form.CompassLst, &form.DirectionLst, &form.SpeedLst}) list->Clear();
}

} // namespace halvern
