// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/SoundPort.h"

#include "ports/Kiss.h"
#include "ports/PortRules.h"

namespace halvern {

void OpenCloseSound(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    if (form.SoundCardMenu.Checked()) return ClosePort(halvern, MainPort::Sound);
    if (form.SoundSoc.Connect() != 0) return halvern.Tell(Icon::Critical, "Sound Card connection failed.");
    PortOpened(halvern, MainPort::Sound);
}

void ReceiveFromSound(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    ReceiveKissBytes(halvern, form.SoundRxBuffer, form.SoundSoc.ReadAll(), "SOUND");
}

} // namespace halvern
