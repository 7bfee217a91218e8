// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/WeatherReport.h"

#include "engine/ProcessPacket.h"
#include "platform/Text.h"
#include "protocol/PacketHeader.h"
#include "protocol/UtcTime.h"
#include "transmit/OwnTexts.h"
#include "transmit/Send.h"

namespace halvern {
namespace {

/// A station with another symbol gets the plain weather symbol. An overlay character tells stations of a kind apart, so
/// the port's reports keep it under any symbol; a file may be of a weather station elsewhere, and has it only where the
/// operator has picked it for a weather symbol.
std::string SymbolOf(const SetUpForm& setUp, WeatherSource source)
{
    if (HasWeatherSymbol(setUp)) return OwnSymbol(setUp);
    return source == WeatherSource::Port && HasOverlay(setUp) ? setUp.OverlayChar + "_" : "/_";
}

} // namespace

void ReportWeather(Halvern& halvern, WeatherSource source, const std::string& weather)
{
    const auto& setUp = halvern.SetUpfrm;
    const auto& engine = halvern.Engine;
    const bool fromPort = source == WeatherSource::Port;
    const std::string path(PathOrNothing(setUp.UnPath.Text()));
    const auto report =
        "@" + DayHourMinute(UtcNow(halvern.Outside.clock)) + "z" + OwnPlace(setUp, SymbolOf(setUp, source)) + weather;
    auto line = PacketLine(engine.OwnCall, engine.OwnDest, "", report);
    // a PSK63 line of the port has the path, as a beacon's; a file's has none
    const auto psk63Line = fromPort ? PacketLine(engine.OwnCall, engine.OwnDest, path, report) : line;
    Send(halvern, Packet{.information = report, .path = path, .psk63Line = psk63Line},
         Road::Radio | Road::Internet | Road::Psk63);
    ProcessPacket(halvern, line, fromPort ? "WXPort" : "WXSOFT");
}

} // namespace halvern
