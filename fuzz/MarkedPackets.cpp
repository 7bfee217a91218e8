// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a PSK63 engine through the port, in both dialects, cut as a real device cuts them. The first byte says
// which dialect (odd: single characters) and in how long pieces the network brings the bytes.
#include <cstdint>

#include "LivingStation.h"
#include "engine/ResetStores.h"
#include "platform/EndMark.h"

using namespace halvern;

namespace {

std::vector<std::string> Cut(const Framing& framing, std::string_view stream, std::size_t length)
{
    std::vector<std::string> events;
    EndMarkCutter cutter(framing);
    for (; !stream.empty(); stream.remove_prefix(std::min(length, stream.size()))) {
        cutter.Take(stream.substr(0, length));
        while (auto event = cutter.Next()) events.push_back(*event);
    }
    return events;
}

void CheckHunt(const Halvern& halvern, bool marks)
{
    const auto& main = halvern.ConMdiFrm;
    Require(main.Psk63Hunt.size() <= 1023 && main.Psk63Frame.size() <= 255, "nothing grows without bound");
    Require(main.Psk63InFrame == main.Psk63Frame.starts_with("SSSSSS"), "a frame opens with six S");
    Require(main.Psk63InFrame ? main.Psk63Hunt.empty() : main.Psk63Frame.empty(), "a character stands in one place");
    Require(halvern.Engine.Psk63Busy == main.Psk63InFrame, "busy while a packet comes in");
    Require(marks || !main.Psk63InFrame, "lines know no frames");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) return 0;
    auto& station = LivingStation();
    auto& halvern = station.halvern;
    auto& main = halvern.ConMdiFrm;
    const bool marks = data[0] % 2 == 1;
    const std::string_view stream(reinterpret_cast<const char*>(data) + 1, size - 1);

    halvern.Engine.IgateOn = true;
    halvern.SetUpfrm.Psk63PortTxt.SetText(marks ? "3122" : "3131");
    main.Psk63Menu.Click();
    const auto events = Cut(main.Psk63Soc.Framing, stream, data[0] / 2 + 1u);
    Require(events == Cut(main.Psk63Soc.Framing, stream, std::max<std::size_t>(stream.size(), 1)),
            "one cut, any network");
    for (const auto& event : events) {
        Require(!marks || event.size() == (event[0] == CharacterHeard ? 2 : 1), "one character an event");
        main.Psk63Soc.Arrived(event);
        CheckHunt(halvern, marks);
    }
    for (const auto& bytes : station.SentBy(main.Psk63Soc))
        Require(marks ? bytes[0] == 25 || bytes == "\x1ATX\x1B" : bytes.ends_with("\r\n"), "what is sent has its form");
    main.Psk63Menu.Click();
    CheckInvariants(halvern);
    if (halvern.PositionFrm.PosLst.Count() > 200) ResetStores(halvern, "Clear");
    return 0;
}
