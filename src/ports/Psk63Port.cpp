// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/Psk63Port.h"

#include "engine/ProcessPacket.h"
#include "platform/Text.h"
#include "ports/PortRules.h"
#include "protocol/Psk63Framing.h"
#include "relay/Igate.h"
#include "transmit/Psk63Send.h"

namespace halvern {
namespace {

/// Half a packet of the connection before would never end, and nothing may be sent while a packet comes in.
void ForgetHalfPacket(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    form.Psk63Hunt.clear();
    form.Psk63Frame.clear();
    form.Psk63InFrame = false;
    halvern.Engine.Psk63Busy = false;
}

/// A character joins those before it. @return the packet that it ended
std::optional<std::string> Hear(Halvern& halvern, char character)
{
    auto& form = halvern.ConMdiFrm;
    auto packet = Psk63MarkerHunt(form.Psk63Hunt, form.Psk63Frame, form.Psk63InFrame).Take(character);
    halvern.Engine.Psk63Busy = form.Psk63InFrame;
    if (packet) form.StatusBar1.SetCaption(*packet);
    return packet;
}

/// What came as one event, out of the dialect of single characters. @return the line to go on with
std::optional<std::string> OutOfMarks(Halvern& halvern, std::string event)
{
    if (event.starts_with(CharacterHeard)) return Hear(halvern, event.back());
    if (event.starts_with(TransmissionFinished)) halvern.Engine.Psk63Reply = "DONE";
    return event;
}

} // namespace

void OpenClosePsk63(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    const auto& setUp = halvern.SetUpfrm;
    if (form.Psk63Soc.Connecting()) return form.Psk63Soc.Disconnect(); // a second click gives the try up
    if (form.Psk63Menu.Checked()) return ClosePort(halvern, MainPort::Psk63);
    form.Psk63Soc.Framing = Psk63SpeaksInMarks(halvern) ? LedCharacters : TextLines;
    if (!ConnectTo(halvern, form.Psk63Soc, setUp.Psk63IpAddTxt.Text(), setUp.Psk63PortTxt.Text(),
                   {"PSK63 connection failed.", Icon::None}))
        return;
    ForgetHalfPacket(halvern);
    PortOpened(halvern, MainPort::Psk63);
}

void ReceiveFromPsk63(Halvern& halvern)
{
    std::optional line = halvern.ConMdiFrm.Psk63Soc.ReadAll();
    if (Psk63SpeaksInMarks(halvern)) line = OutOfMarks(halvern, std::move(*line));
    const auto sourceEnd = line ? PositionOf(*line, '>', 2) : 0;
    if (sourceEnd == 0) return;
    if (Columns(*line, 1, sourceEnd - 1) != halvern.Engine.OwnCall) ProcessPacket(halvern, *line, "PSK63");
    if (halvern.Engine.IgateOn) RfGateStep(halvern, *line);
}

void Psk63HungUp(Halvern& halvern)
{
    halvern.Tell(Icon::None, "Psk63 Disconnected!");
    if (halvern.ConMdiFrm.Psk63Menu.Checked()) OpenClosePsk63(halvern); // somebody may have closed it meanwhile
}

} // namespace halvern
