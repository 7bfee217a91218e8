// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/Files.h"
#include "state/SettingValue.h"

namespace halvern {

/// Destination of own packets in the three modes; the third is what the operator typed.
inline constexpr const char* NormalDestination = "APHV01";
inline constexpr const char* SpecialDestination = "SPC";

/// The engine's working variables. They are written where they belong: the line in hand by engine/ProcessPacket, calls,
/// switches and settings by config/ and app/StartUp, what is of PSK63 and the GPS by their ports, playback, filter and
/// log by history/ (engine/PacketLog closes a log that fails), the beacons by relay/Beacon.
struct EngineState {
    // the line in hand
    std::string SourceCall; ///< without padding
    std::string DestCall;
    std::string PathText; ///< empty where the packet has no path

    std::string OwnCall; ///< with SSID, as own packets carry it
    std::string OwnDest = NormalDestination;
    bool ReviewMode = false;    ///< the stores show a playback
    bool IgateOn = false;       ///< radio is gated to the Internet
    bool GpsPositionOn = false; ///< the own position comes from a GPS
    bool WxQueryFlag = false;   ///< never set: weather queries stay unanswered
    bool Psk63Busy = false;     ///< a marked packet is coming in
    std::string Psk63Reply;     ///< "DONE" once the engine has sent what it was given
    Moment LastUtc;

    // the symbol filter
    bool JustSymbolsOn = false;
    std::string JustTable, JustCode; ///< one character each, or as many pairs as the filter row has

    // the packet log
    bool LogOpen = false;
    std::unique_ptr<OutputFile> Log;

    // the beacons
    std::string CheckedPath; ///< the path setting that BeaconRate was worked out for
    short BeaconRate = 0;    ///< minutes between beacons
    short BeaconMinutes = 0, Psk63Minutes = 0;

    /// What the settings file says, a line or a list each, until the first activation puts it into the controls.
    std::vector<SettingValue> Settings;
    bool ConfigLoaded = false; ///< a configuration was read or saved in this run
    Moment StartTime;
    bool Ended = false; ///< the main window has closed, or a fatal message was acknowledged
};

} // namespace halvern
