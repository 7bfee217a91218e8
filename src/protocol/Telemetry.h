// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Telemetry out of raw packets: five readings and eight switches, and what a station says of their names, units and
/// scales in messages to itself. Source: APRS protocol reference, chapter 13.
namespace halvern {

/// One report of a station, in words.
struct TelemetryLine {
    std::string call;
    std::string number; ///< of the report, as it was sent
    std::string words;  ///< "Battery 12.4 V, Temp 21 C; Door on"
};

/// What was heard of telemetry so far, by station.
class TelemetryBook {
public:
    static constexpr std::size_t MostReports = 20;   ///< kept of a station
    static constexpr std::size_t MostStations = 500; ///< later ones are left out

    /// Takes a raw packet; what is no telemetry is left alone. @return whether it was some
    bool Take(std::string_view line);
    void Clear() { stations.clear(), heard = 0; }
    /// The stations, the one heard last first; of each its reports, newest first, with the names known by now.
    std::vector<TelemetryLine> Lines() const;

private:
    static constexpr std::size_t Readings = 5, Switches = 8;
    struct Report {
        std::string number;
        std::array<std::string, Readings> readings;
        std::string switches; ///< "1" and "0", as many as were sent
    };
    struct Station {
        std::array<std::string, Readings + Switches> names, units;
        std::array<std::array<double, 3>, Readings> scales; ///< of the square, of the reading itself, and added
        std::string sense = "11111111";                     ///< what counts as on
        std::deque<Report> reports;                         ///< newest first
        std::uint64_t heard = 0;
    };

    Station* StationOf(std::string_view call);
    bool TakeReport(std::string_view call, std::string_view info);
    bool TakeDefinition(std::string_view info);
    static std::string ValueOf(const Station& station, const Report& report, std::size_t place);
    static std::string WordsOf(const Station& station, const Report& report);

    std::map<std::string, Station, std::less<>> stations;
    std::uint64_t heard = 0;
};

} // namespace halvern
