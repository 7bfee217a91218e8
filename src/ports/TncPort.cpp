// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/TncPort.h"

#include "ports/ComPort.h"
#include "ports/Kiss.h"
#include "ports/PortRules.h"

namespace halvern {
void OpenCloseTnc(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    Silence(form.MSComm1);
    if (form.PortTnc.Checked()) return ClosePort(halvern, MainPort::Tnc);
    SetLine(form.MSComm1, halvern.SetUpfrm.PortLst, halvern.SetUpfrm.PortSpeedLst);
    if (!OpenComPort(halvern, form.MSComm1, form.PortTnc)) return;
    PortOpened(halvern, MainPort::Tnc);
}

void ReceiveFromTnc(Halvern& halvern, int eventCode)
{
    if (eventCode != ReceivedBytes) return;
    auto& form = halvern.ConMdiFrm;
    ReceiveKissBytes(halvern, form.KissRxBuffer, form.MSComm1.ReadAll(), "TNC");
}

} // namespace halvern
