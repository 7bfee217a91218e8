// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/Telemetry.h"

#include <algorithm>
#include <cmath>

#include "platform/Text.h"
#include "protocol/PacketHeader.h"

namespace halvern {
namespace {

/// What a message to oneself may define, by its first five characters.
constexpr std::string_view Names = "PARM.", Units = "UNIT.", Scales = "EQNS.", Sense = "BITS.";

template <std::size_t Count> void Put(std::array<std::string, Count>& places, std::string_view list)
{
    places.fill({});
    std::size_t place = 0;
    for (const auto& text : SplitAt(list))
        if (place < Count) places[place++] = Trimmed(text);
}

bool IsNumber(std::string_view text)
{
    return text.find_first_of("0123456789") != std::string_view::npos &&
           text.find_first_not_of("0123456789+-.") == std::string_view::npos;
}

bool IsBinary(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("01") == std::string_view::npos;
}

} // namespace

TelemetryBook::Station* TelemetryBook::StationOf(std::string_view call)
{
    const auto found = stations.find(call);
    if (found != stations.end()) return &found->second;
    if (stations.size() >= MostStations) return nullptr;
    auto& station = stations[std::string(call)];
    for (auto& scale : station.scales) scale = {0, 1, 0};
    return &station;
}

/// "T#123,1,2,3,4,5,01010101comment"; "T#MIC" stands for a number too.
bool TelemetryBook::TakeReport(std::string_view call, std::string_view info)
{
    const auto body = info.substr(2);
    auto parts = SplitAt(body.starts_with("MIC") && !body.starts_with("MIC,") ? "MIC," + std::string(body.substr(3))
                                                                              : std::string(body));
    const auto said = [](const std::string& part) { return !Trimmed(part).empty(); };
    const bool empty = parts.size() < 2 || std::none_of(parts.begin() + 1, parts.end(), said);
    auto* station = empty ? nullptr : StationOf(call);
    if (station == nullptr) return false;
    Report report{.number = std::string(Trimmed(parts[0])), .readings = {}, .switches = {}};
    for (std::size_t i = 0; i < Readings && i + 1 < parts.size(); ++i) report.readings[i] = Trimmed(parts[i + 1]);
    if (parts.size() > Readings + 1)
        if (const auto switches = Columns(parts[Readings + 1], 1, Switches); IsBinary(switches))
            report.switches = switches;
    station->heard = ++heard;
    station->reports.push_front(std::move(report));
    if (station->reports.size() > MostReports) station->reports.pop_back();
    return true;
}

/// ":CALL     :PARM.names": the addressee is the station that is meant.
bool TelemetryBook::TakeDefinition(std::string_view info)
{
    const auto what = Columns(info, 12, 5), list = Columns(info, 17);
    if (ColumnAt(info, 11) != ':' || (what != Names && what != Units && what != Scales && what != Sense)) return false;
    auto* station = StationOf(TrimmedRight(Columns(info, 2, 9)));
    if (station == nullptr) return false;
    if (what == Names) Put(station->names, list);
    if (what == Units) Put(station->units, list);
    if (what == Sense && IsBinary(Columns(list, 1, Switches)))
        station->sense = Padded(Columns(list, 1, Switches), Switches);
    if (what == Scales) {
        const auto numbers = SplitAt(list);
        for (std::size_t i = 0; i < numbers.size() && i < Readings * 3; ++i)
            if (IsNumber(Trimmed(numbers[i]))) station->scales[i / 3][i % 3] = LeadingNumber(numbers[i]);
    }
    return true;
}

bool TelemetryBook::Take(std::string_view line)
{
    const auto colon = line.find(':');
    if (colon == std::string_view::npos) return false;
    const auto info = line.substr(colon + 1);
    if (info.starts_with(":")) return TakeDefinition(info);
    if (!info.starts_with("T#")) return false;
    const auto header = ReadPacketHeader(line.substr(0, colon + 1));
    return header && TakeReport(header->source, info);
}

/// The scaled value with its unit; the reading as it was sent where it is no number, or no scale makes sense of it.
std::string TelemetryBook::ValueOf(const Station& station, const Report& report, std::size_t place)
{
    constexpr double largest = 1e9;
    const auto& reading = report.readings[place];
    const auto& [square, factor, added] = station.scales[place];
    const double raw = LeadingNumber(reading), value = square * raw * raw + factor * raw + added;
    if (!IsNumber(reading) || !(std::fabs(value) < largest)) return reading;
    return PlainFloat(static_cast<float>(value)) + (station.units[place].empty() ? "" : " " + station.units[place]);
}

std::string TelemetryBook::WordsOf(const Station& station, const Report& report)
{
    const auto nameOf = [&](std::size_t place, const std::string& otherwise) {
        return station.names[place].empty() ? otherwise : station.names[place];
    };
    std::string words;
    for (std::size_t i = 0; i < Readings; ++i) {
        if (report.readings[i].empty()) continue;
        words +=
            (words.empty() ? "" : ", ") + nameOf(i, std::to_string(i + 1) + ":") + " " + ValueOf(station, report, i);
    }
    for (std::size_t i = 0; i < report.switches.size(); ++i) {
        const auto& on = station.units[Readings + i];
        const bool active = report.switches[i] == station.sense[i];
        words += (words.empty() ? ""
                  : i == 0      ? "; "
                                : ", ") +
                 nameOf(Readings + i, "B" + std::to_string(i + 1)) + " " + (active ? (on.empty() ? "on" : on) : "off");
    }
    return words;
}

std::vector<TelemetryLine> TelemetryBook::Lines() const
{
    std::vector<const std::pair<const std::string, Station>*> order;
    for (const auto& each : stations)
        if (!each.second.reports.empty()) order.push_back(&each);
    std::ranges::sort(order,
                      [](const auto* one, const auto* other) { return one->second.heard > other->second.heard; });
    std::vector<TelemetryLine> lines;
    for (const auto* each : order)
        for (const auto& report : each->second.reports)
            lines.push_back({each->first, report.number, WordsOf(each->second, report)});
    return lines;
}

} // namespace halvern
