// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/TncPort.h"

#include "ports/Kiss.h"
#include "ports/PortRules.h"

namespace halvern {
void OpenCloseTnc(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    auto& port = form.MSComm1;
    port.ReceiveThreshold = 0;
    port.DiscardInput();
    port.DiscardOutput();
    if (form.PortTnc.Checked()) return ClosePort(halvern, MainPort::Tnc);

    form.PortTnc.SetChecked(true);
    SetLine(port, halvern.SetUpfrm.PortLst, halvern.SetUpfrm.PortSpeedLst);
    if (const auto error = port.Open()) {
        halvern.Tell(Icon::Critical, error->Words(), "Error Opening Com Port");
        port.Close();
        form.PortTnc.SetChecked(false);
        return;
    }
    port.DiscardInput();
    port.ReceiveThreshold = 1;
    PortOpened(halvern, MainPort::Tnc);
}

void ReceiveFromTnc(Halvern& halvern, int eventCode)
{
    if (eventCode != ReceivedBytes) return;
    auto& form = halvern.ConMdiFrm;
    ReceiveKissBytes(halvern, form.KissRxBuffer, form.MSComm1.ReadAll(), "TNC");
}

} // namespace halvern
