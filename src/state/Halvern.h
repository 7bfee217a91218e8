// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/PictureSize.h"
#include "state/ConMdiFrm.h"
#include "state/DialogForms.h"
#include "state/Engine.h"
#include "state/GateFrm.h"
#include "state/MapFrm.h"
#include "state/MessageFrm.h"
#include "state/SetUpfrm.h"
#include "state/StoreForms.h"

namespace halvern {

/// What the program needs of the world outside, besides its ports and timers, which are controls.
struct OutsideWorld {
    const Clock& clock;
    Dialogs& dialogs;
    Files& files;
    /// What a picture's bytes measure, nothing for a picture that can't be shown. Who shows none goes by its head.
    std::optional<PixelSize> (*measure)(std::string_view bytes) = PictureSize;
};

/// A text that the station has to tell by itself.
struct Notice {
    std::string about; ///< a call, or a port or a timer: its control's name, or plain words
    std::string text;
    Icon icon = Icon::Information;
    std::string title = ProgramTitle;
};

/// The whole running program as data: what the operator sees is the state, and nothing here acts.
struct Halvern {
    Halvern(const OutsideWorld& outside, std::string programFolder)
        : Outside(outside), ProgramFolder(std::move(programFolder))
    {
    }

    OutsideWorld Outside;
    std::string ProgramFolder; ///< the application directory, without a separator at its end
    Controls All;

    MainForm ConMdiFrm{All};
    SetUpForm SetUpfrm{All};
    MapForm MapFrm{All};
    PositionForm PositionFrm{All};
    StatusForm StatusFrm{All};
    DigiForm DigiFrm{All};
    MessageForm MessageFrm{All};
    HeardForm HeardFrm{All};
    TerminalForm TerminalFrm{All};
    DxForm DxFrm{All};
    WeatherForm WeatherFrm{All};
    TelemetryForm TelemetryFrm{All};
    GateForm GateFrm{All};
    AddPathForm AddPathFrm{All};
    KillMsgForm KillMsgFrm{All};
    CreateObjectsForm CreateObjectsFrm{All};
    MoveMyObjectForm MoveMyObjectFrm{All};
    KillMyObjectsForm KillMyObjectsFrm{All};
    StpTransObjectsForm StpTransObjectsFrm{All};
    TakeTransObjForm TakeTransObjFrm{All};
    FindForm FindFrm{All};
    FindFoundForm FindFoundFrm{All};
    InformationForm InformationFrm{All};
    BrowserForm browfrm{All};
    GraphForm GraphFrm{All};
    CompassForm CompassFrm{All};
    ChosePrinterForm ChosePrinter{All};
    PosAlarmForm PosAlarmFrm{All};
    PosTrackForm PosTrackFrm{All};
    JustSymForm JustSym{All};
    QueryForm QueryFrm{All};
    FontForm FontFrm{All};
    HistoryForm Hist{All};
    NoticesForm NoticesFrm{All};

    EngineState Engine;
    MapState Map;

    /// Says one of the fixed texts: to the operator who has just acted in a box; what a packet, a timer or a port has
    /// to say goes to the notices as well, and no box waits for somebody who may not be there.
    void Tell(Icon icon, const std::string& text, const std::string& title = ProgramTitle)
    {
        if (All.Present().station) Note({std::string(All.Present().about), text, icon, title});
        Outside.dialogs.Message(icon, text, title);
    }
    /// Tells what would otherwise end the handler, which goes on.
    void Tell(const std::exception& thrown) const
    {
        if (All.OnFailure) All.OnFailure(thrown);
    }
    /// Puts a text among the notices and nowhere else: why a port did not open, what could not be read.
    void Note(const Notice& notice) const { Fire(OnNotice, notice); }
    std::function<void(const Notice&)> OnNotice;

    bool AnyMainPortOpen() const
    {
        return ConMdiFrm.PortTnc.Checked() || ConMdiFrm.SoundSoc.Connected() || ConMdiFrm.InternetSoc.Connected() ||
               ConMdiFrm.Psk63Soc.Connected();
    }
    /// Of the ports that a GPS needs beside it, is one open?
    bool AnyRadioPortOpen() const
    {
        return ConMdiFrm.MSComm1.IsOpen() || ConMdiFrm.SoundSoc.Connected() || ConMdiFrm.Psk63Soc.Connected();
    }
};

} // namespace halvern
