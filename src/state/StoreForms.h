// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/Lists.h"

/// The windows that show a store each. The store holds the rows, in the order the engine gives them; the list beside
/// it, whose name begins with "Sh", is a copy for display that Refresh renews. Rows are written by engine/, marked by
/// it, by relay/ and by reports/, put aside and brought back by history/.
namespace halvern {

/// The last report of each station; row i is plot record i.
struct PositionForm : Form {
    explicit PositionForm(Controls& all) : Form(all, "PositionFrm", "Position Form") {}
    KeyedList PosLst{*this, "PosLst"};
    List ShPosLst{*this, "ShPosLst"};
};

/// The last status text of each station.
struct StatusForm : Form {
    explicit StatusForm(Controls& all) : Form(all, "StatusFrm", "Status Form") {}
    KeyedList StatusLst{*this, "StatusLst"};
    List ShStatusLst{*this, "ShStatusLst"};
};

/// The best path by which each station was heard.
struct DigiForm : Form {
    explicit DigiForm(Controls& all) : Form(all, "DigiFrm", "Digi Form") {}
    KeyedList DigiLst{*this, "DigiLst"};
    List ShDigiLst{*this, "ShDigiLst"};
};

/// Counts by station and UTC hour.
struct HeardForm : Form {
    explicit HeardForm(Controls& all) : Form(all, "HeardFrm", "Heard Form") {}
    Grid HeardGrid{*this, "HeardGrid"};
};

/// Every line as it came in, newest last.
struct TerminalForm : Form {
    explicit TerminalForm(Controls& all) : Form(all, "TerminalFrm", "Raw Received") {}
    List RawPacketLst{*this, "RawPacketLst"}; ///< a marked row was unwrapped out of a third-party packet
    List ShRawPacketLst{*this, "ShRawPacketLst"};
};

/// DX spots and resource lines.
struct DxForm : Form {
    explicit DxForm(Controls& all) : Form(all, "DxFrm", "Dx Form") {}
    List ResourceLst{*this, "ResourceLst"};
    List ShResourceLst{*this, "ShResourceLst"};
};

/// Telemetry stays in the raw rows; the window is a place in the View menu and in the settings.
struct TelemetryForm : Form {
    explicit TelemetryForm(Controls& all) : Form(all, "TelemetryFrm", "Telemetry Form") {}
};

/// Which station's weather is graphed or shown on the compass, and which value of it.
struct WeatherForm : Form {
    explicit WeatherForm(Controls& all) : Form(all, "WeatherFrm", "Weather Form") {}
    TextField CallSignTxt{*this, "CallSignTxt", "CALL SIGN"};
    Choice GraphOpt{*this, "GraphOpt", {"Temperature", "Barometer", "Wind Speed"}};
    Button ComputeCmd{*this, "ComputeCmd", "&Compute"};
    List PacketLst{*this, "PacketLst"};
};

} // namespace halvern
