// SPDX-License-Identifier: GPL-3.0-or-later
// A GPS receiver's output through the port's handler, in pieces as a line delivers them. The first byte picks the
// sentence, the second says how long the pieces are. Whatever comes, nothing but whole frames go out.
#include <cstdint>

#include "LivingStation.h"
#include "protocol/Fix.h"

using namespace halvern;

namespace {

void CheckSent(test::Station& station, bool fixed)
{
    const auto sent = station.SentByRadio();
    Require(sent.size() == (fixed ? 2u : 0u), "a fix sends position and status, anything else nothing");
    if (!fixed) return;
    Require(Holds(sent[0], ":="), "the position goes first, in a frame that can be read");
    Require(sent[1].ends_with(":>here"), "the status goes behind it");
    for (const unsigned char character : sent[0]) Require(character >= ' ', "no control characters on the air");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2) return 0;
    auto& station = LivingStation();
    auto& main = station.halvern.ConMdiFrm;
    auto& sentences = station.halvern.SetUpfrm.GpsSentanceLst;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 2, size - 2);
    const std::size_t length = data[1] + 1u;
    sentences.Preselect(data[0] % sentences.Count());
    if (!main.PortTnc.Checked()) station.OpenTnc();
    if (!main.GpsMenu.Checked()) main.GpsMenu.Click();
    main.GpsTimer.SetInterval(1);
    main.GpsTimer.Tick();
    main.GpsCom.ReceiveThreshold = bytes.size();
    for (std::size_t at = 0; at < bytes.size(); at += length) main.GpsCom.Arrived(bytes.substr(at, length));

    const bool named = Holds(bytes, sentences.Text());
    const auto fix = FixInBlock(bytes, sentences.Text());
    Require(named || !fix, "a fix stands in a sentence");
    Require(bytes.empty() || main.GpsMenu.Checked() == named,
            "a missing sentence ends the port, and nothing else does");
    Require(bytes.empty() || !main.GpsCom.IsOpen(), "the line rests behind a block");
    CheckSent(station, fix.has_value());
    CheckInvariants(station.halvern);
    if (main.GpsCom.IsOpen()) main.GpsCom.Close();
    if (station.halvern.TerminalFrm.RawPacketLst.Count() > 200) station.halvern.TerminalFrm.RawPacketLst.Clear();
    return 0;
}
