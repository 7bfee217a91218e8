// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Controls.h"
#include "platform/Form.h"
#include "platform/Lists.h"

namespace halvern {

/// What gate and digipeater made of the packets they looked at, newest last. It is none of the numbered windows: its
/// place is not saved.
struct GateForm : Form {
    explicit GateForm(Controls& all) : Form(all, "GateFrm", "Gate") {}
    TextField CallTxt{*this, "CallTxt"}; ///< only packets from or for a call that holds this
    List GateLst{*this, "GateLst"};      ///< the rows of `DecisionLst` that the call lets in
};

} // namespace halvern
