// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/SoundPort.h"

#include "ports/Kiss.h"
#include "ports/PortRules.h"

namespace halvern {

void OpenCloseSound(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    if (form.SoundSoc.Connecting()) return form.SoundSoc.Disconnect(); // a second click gives the try up
    if (form.SoundCardMenu.Checked()) return ClosePort(halvern, MainPort::Sound);
    if (!ConnectPort(halvern, form.SoundSoc, "Sound Card connection failed.")) return;
    PortOpened(halvern, MainPort::Sound);
}

void ReceiveFromSound(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    ReceiveKissBytes(halvern, form.SoundRxBuffer, form.SoundSoc.ReadAll(), "SOUND");
}

} // namespace halvern
