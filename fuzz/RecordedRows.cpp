// SPDX-License-Identifier: GPL-3.0-or-later
// Rows that were recorded, here or elsewhere: the packet in a line of a file, weather and telemetry out of raw packets.
#include "LivingStation.h"
#include "protocol/RecordedLine.h"
#include "protocol/Telemetry.h"
#include "protocol/WeatherReading.h"

using namespace halvern;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    TelemetryBook book;
    std::string made, again;
    for (const auto line : LinesOf(bytes)) {
        const std::string packet(PacketIn(line, made));
        Require(PacketIn(packet, again) == packet || packet == line, "a packet that was found is one");
        const auto info = Columns(packet, PositionOf(packet, ':') + 1);
        for (const auto quantity : {WeatherQuantity::Temperature, WeatherQuantity::Barometer, WeatherQuantity::Wind}) {
            const auto reading = ReadWeather(info, quantity);
            if (reading.kind != WeatherReading::Kind::Good) continue;
            Require(LooksLikeWeather(info), "what is read looks like weather");
            Require(reading.direction >= 0 && reading.direction <= 999, "a direction of three digits");
        }
        book.Take(packet);
    }
    Require(book.Lines().size() <= TelemetryBook::MostReports * TelemetryBook::MostStations, "a book of bounded size");
    return 0;
}
