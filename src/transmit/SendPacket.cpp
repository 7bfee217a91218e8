// SPDX-License-Identifier: GPL-3.0-or-later
#include "transmit/SendPacket.h"

#include "protocol/Ax25.h"

namespace halvern {

void SendPacket(Halvern& halvern, std::string_view dest, std::string_view src, std::string_view path,
                std::string& payload, std::string_view port)
{
    auto& form = halvern.ConMdiFrm;
    if (!form.PortTnc.Checked() && !form.SoundSoc.Connected()) return;
    const auto frame = BuildFrame(dest, src, path, payload);
    if (frame.refusal != nullptr) return halvern.Tell(Icon::Critical, frame.refusal);
    payload = frame.payload;
    const bool everywhere = port.empty();
    if (everywhere ? form.PortTnc.Checked() : port == "TNC") form.MSComm1.Write(frame.bytes);
    if (everywhere || port != "TNC") form.SoundSoc.Write(frame.bytes);
}

} // namespace halvern
