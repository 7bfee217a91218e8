// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/StationCard.h"

#include <algorithm>
#include <cmath>

#include "map/Refresh.h"
#include "platform/Text.h"
#include "protocol/UtcTime.h"
#include "protocol/WeatherReading.h"
#include "state/Rows.h"
#include "state/Symbols.h"
#include "view/Ground.h"
#include "view/Phg.h"

namespace halvern {
namespace {

constexpr double FootInMetres = 0.3048, InchInMillimetres = 25.4;
constexpr char WeatherCode = '_';

std::string Whole(double number)
{
    return PlainNumber(std::round(number) + 0.0); // no -0
}

/// With one decimal as long as it is small.
std::string Figure(double number)
{
    return number < 10 ? PlainNumber(std::round(number * 10) / 10) : Whole(number);
}

std::string Towards(double degrees)
{
    return Whole(degrees) + "° (" + CompassPoint(degrees) + ")";
}

/// What a store holds of a call, behind the call.
std::string_view ReportOf(const KeyedList& store, const std::string& call)
{
    const int index = store.Find(call);
    return index == NotFound ? std::string_view{} : stationRow::Report(store.Row(index));
}

// --- the lines -------------------------------------------------------------------------------------------------------

/// A station's row, and what its lines are made of.
struct Subject {
    const Halvern& halvern;
    const std::string& row;
    PlaceNames& places;
    const std::string call = std::string(positionRow::Call(row));
    const GroundPoint place = PlaceOfRow(row);
};

std::string Heard(const Subject& subject)
{
    const auto& grid = subject.halvern.HeardFrm.HeardGrid;
    std::string text;
    if (const auto age = MinutesSince(positionRow::Stamp(subject.row), UtcNow(subject.halvern.Outside.clock)))
        text = *age == 0 ? "just now" : AgeInWords(*age) + " ago";
    long times = 0;
    if (const int row = grid.FindRow(TrimmedRight(subject.call), 1); row != NotFound)
        for (int column = 1; column < grid.Cols(); ++column)
            times += static_cast<long>(LeadingNumber(grid.Cell(row, column)));
    if (times > 0) text += (text.empty() ? "" : ", ") + (times == 1 ? "once" : std::to_string(times) + " times");
    return text;
}

std::string FromHere(const Subject& subject)
{
    const auto own = OwnPlace(subject.halvern);
    if (!own || TrimmedRight(subject.call) == subject.halvern.Engine.OwnCall) return {};
    const double miles = GroundDistance(*own, subject.place);
    return Figure(miles) + " nm (" + Figure(miles * NauticalMile) + " km), " +
           Towards(GroundBearing(*own, subject.place));
}

std::string Place(const Subject& subject)
{
    auto text = WhereIs(subject.places, subject.place.lat, subject.place.lon);
    if (!text.empty()) text += ", ";
    return text + Maidenhead(subject.place);
}

std::string Moves(const Subject& subject)
{
    const auto motion = MotionOf(subject.row);
    if (!motion) return {};
    return Towards(motion->course) + ", " + Whole(motion->speed) + " kn (" + Whole(motion->speed * NauticalMile) +
           " km/h)";
}

/// Each form of a report has its own unit; they all are millibars with the point somewhere else.
double Millibars(double number)
{
    while (number > 0 && number < 500) number *= 10;
    while (number > 2000) number /= 10;
    return number;
}

std::string SpeedInWords(double miles)
{
    return Whole(miles) + " mph (" + Whole(miles * StatuteMile) + " km/h)";
}

struct WeatherWords {
    WeatherQuantity quantity;
    std::string (*words)(const WeatherReading& reading);
};

constexpr WeatherWords AllWeather[] = {
    {WeatherQuantity::Temperature,
     [](const WeatherReading& read) { return Whole(read.value) + " °F (" + Whole((read.value - 32) / 1.8) + " °C)"; }},
    {WeatherQuantity::Wind,
     [](const WeatherReading& read) {
         return read.value < 0.5F ? "calm" : "wind " + Towards(read.direction) + " " + SpeedInWords(read.value);
     }},
    {WeatherQuantity::Gust,
     [](const WeatherReading& read) {
         return read.value < 0.5F ? std::string{} : "gusts " + SpeedInWords(read.value);
     }},
    {WeatherQuantity::Rain,
     [](const WeatherReading& read) {
         return read.value <= 0 ? std::string{}
                                : "rain " + PlainFloat(read.value) + " in (" + Figure(read.value * InchInMillimetres) +
                                      " mm) an hour";
     }},
    {WeatherQuantity::Humidity,
     [](const WeatherReading& read) { return Whole(read.value == 0 ? 100 : read.value) + " % humidity"; }},
    {WeatherQuantity::Barometer,
     [](const WeatherReading& read) { return PlainNumber(std::round(Millibars(read.value) * 10) / 10) + " mbar"; }},
};

std::string WeatherInWords(std::string_view info)
{
    std::string text;
    for (const auto& [quantity, words] : AllWeather) {
        const auto reading = ReadWeather(info, quantity);
        if (reading.kind != WeatherReading::Kind::Good) continue;
        const auto more = words(reading);
        if (!more.empty()) text += (text.empty() ? "" : ", ") + more;
    }
    return text;
}

/// Out of the station's position report, or else out of the last packet with nothing but weather in it.
std::string Weather(const Subject& subject)
{
    if (ColumnAt(subject.row, positionRow::Code) != WeatherCode) return {};
    auto text = WeatherInWords(Columns(subject.row, positionRow::Type));
    const auto& raw = subject.halvern.TerminalFrm.RawPacketLst;
    const auto beginning = std::string(TrimmedRight(subject.call)) + ">";
    for (int i = raw.Count() - 1; i >= 0 && text.empty(); --i)
        if (const std::string_view packet = raw.Row(i); packet.starts_with(beginning))
            text = WeatherInWords(Columns(packet, PositionOf(packet, ':') + 1));
    return text;
}

std::string Antenna(const Subject& subject)
{
    const auto digits = SentPhg(subject.row);
    if (digits.empty()) return {};
    const auto phg = ReadPhg(subject.halvern.SetUpfrm.PhgDirLst, digits);
    return Whole(phg.power) + " W, " + Whole(phg.height) + " ft (" + Whole(phg.height * FootInMetres) +
           " m) above the terrain, " + Whole(10 * std::log10(phg.gain)) + " dB gain, " +
           (phg.direction == 0 ? "all around" : "towards " + Towards(phg.direction));
}

/// The stations that repeated the packet, in their order, and which gate heard it.
std::string Path(const Subject& subject)
{
    const auto path = ReportOf(subject.halvern.DigiFrm.DigiLst, subject.call);
    if (path.empty()) return {};
    const auto entries = SplitAt(path);
    const auto isUsed = [](const std::string& entry) { return entry.ends_with('*'); };
    const auto used = std::find_if(entries.rbegin(), entries.rend(), isUsed).base(); // behind the last that was used
    std::string text;
    for (auto entry = entries.begin(); entry != used; ++entry) {
        if (entry->starts_with("qA")) break;
        text += (text.empty() ? "" : " > ") + entry->substr(0, entry->find('*'));
    }
    text = text.empty() ? "direct" : text.starts_with("TCPIP") ? "Internet" : "by " + text;
    const auto gate = std::ranges::find_if(entries, [](const auto& entry) { return entry.starts_with("qA"); });
    if (gate != entries.end() && gate + 1 != entries.end()) text += ", gate " + *(gate + 1);
    return text;
}

std::string Status(const Subject& subject)
{
    auto text = ReportOf(subject.halvern.StatusFrm.StatusLst, subject.call);
    if (text.starts_with('>')) text.remove_prefix(1);
    if (ColumnAt(text, 7) == 'z') text.remove_prefix(7);
    return std::string(Trimmed(text));
}

/// The comment behind what the lines above have told.
std::string Comment(const Subject& subject)
{
    if (ColumnAt(subject.row, positionRow::Code) == WeatherCode) return {};
    auto text = positionRow::Comment(subject.row);
    constexpr std::size_t extension = 7; // characters, of a course and speed and of PHG alike
    if (MotionOf(subject.row) || !SentPhg(subject.row).empty()) text.remove_prefix(extension);
    return std::string(Trimmed(text));
}

struct CardLine {
    const char* word;
    std::string (*text)(const Subject& subject);
};

constexpr CardLine CardLines[] = {
    {"Heard", Heard},     {"From here", FromHere}, {"Place", Place},   {"Moves", Moves},     {"Weather", Weather},
    {"Antenna", Antenna}, {"Path", Path},          {"Status", Status}, {"Comment", Comment},
};

} // namespace

std::string SymbolName(char table, char code)
{
    const bool overlay = table != '/';
    std::string_view found; // a few codes have two names; these are the ones in use
    for (const auto symbol : FilterSymbols)
        if (symbol.ends_with(std::string{overlay ? '\\' : '/', code}) && (overlay || found.empty())) found = symbol;
    if (found.empty()) return {};
    constexpr std::string_view suffix = "Overlay";
    auto name = TrimmedRight(found.substr(0, found.size() - 2));
    if (name.ends_with(suffix)) name = TrimmedRight(name.substr(0, name.size() - suffix.size()));
    return std::string(name) + (overlay && table != '\\' ? std::string(" ") + table : "");
}

StationCard CardOf(const Halvern& halvern, int station, PlaceNames& places)
{
    StationCard card;
    if (station < 0 || station >= halvern.PositionFrm.PosLst.Count()) return card;
    const Subject subject{halvern, halvern.PositionFrm.PosLst.Row(station), places};
    card.call = TrimmedRight(subject.call);
    card.symbol = SymbolName(ColumnAt(subject.row, positionRow::Table), ColumnAt(subject.row, positionRow::Code));
    const auto& plot = halvern.Map.StationPlot;
    if (static_cast<std::size_t>(station) < plot.size()) card.picture = plot[static_cast<std::size_t>(station)].SymFile;
    for (const auto& [word, text] : CardLines)
        if (auto said = text(subject); !said.empty()) card.lines.push_back({word, std::move(said)});
    return card;
}

} // namespace halvern
