// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/Lists.h"
#include "state/Rows.h"

namespace halvern {

/// Messages and bulletins, received and sent. `OutMsg` is the queue of what waits for an ack; it is never shown.
struct MessageForm : Form {
    explicit MessageForm(Controls& all) : Form(all, "MessageFrm", "Message") {}

    Choice SSTab2{*this, "SSTab2", {"Traffic", "Send", "Bulletins"}};
    KeyedList TrafficLst{*this, "TrafficLst", ListStyle::Rows, SameText};
    KeyedList MsgToYouLst{*this, "MsgToYouLst", ListStyle::Rows, SameText};
    KeyedList BullLst{*this, "BullLst", ListStyle::Rows, SameSource};
    List OutMsg{*this, "OutMsg"};
    Label Label1{*this, "Label1", "To Callsign"};
    TextField SendCallTxt{*this, "SendCallTxt", "", 9};
    List MailUnPath{*this, "MailUnPath", ListStyle::TypedCombo, {"NONE", "WIDE2-2"}, 0};
    TextField MsgTxt{*this, "MsgTxt", "", 67};
    Button QueryCmd{*this, "QueryCmd", "&Query..."};
    Button PSk63HelpCmd{*this, "PSk63HelpCmd", "PSK63 &Help"};
    Timer Timer1{*this, "Timer1"}; ///< the retries

    // relay/Messages alone writes these
    std::int16_t MsgNumber = 0;  ///< last message number used in this run
    std::int16_t RetryCycle = 0; ///< minutes in the slow phase of the retries
    std::string LastPskMsg, LastPskTo;
};

} // namespace halvern
