// SPDX-License-Identifier: GPL-3.0-or-later
// Lines through both steps of the gate, behind the engine as the ports have it. Each line of an input begins with what
// it is: "r" heard on radio, "s" from the server, "t" a second of the hold; any other sets hold and hop limit by its
// digits. The station lives as long as the process.
#include <cstdint>

#include "LivingStation.h"
#include "engine/ProcessPacket.h"
#include "engine/ResetStores.h"
#include "relay/Igate.h"

using namespace halvern;

namespace {

test::Station& Gate()
{
    static test::Station* const station = [] {
        auto* made = &LivingStation();
        made->OpenGate();
        made->halvern.SetUpfrm.IgateBudsCombo.Add("Q0BUD");
        made->halvern.SetUpfrm.IgateBudsCombo.Add("BUDOBJECT");
        made->halvern.SetUpfrm.WxMessCombo.Add("NWS");
        return made;
    }();
    return *station;
}

void CheckToInternet(test::Station& station, const std::string& line, const Decision& decision)
{
    const auto sent = station.SentBy(station.halvern.ConMdiFrm.InternetSoc);
    Require(sent.size() == (WentOut(decision) ? 1u : 0u), "a line goes to the Internet once, or not");
    Require(station.SentByRadio().empty(), "a line heard on radio sets off nothing there");
    if (sent.empty()) return;
    Require(sent[0] == line + "\r\n", "a line goes to the Internet as it stands");
    Require(!line.starts_with("Q0OWN>"), "own packets don't go back to the Internet");
    for (const char* word : {"TCPIP", "TCPXX", "qAC", "qAX", "qAU", "qAo", "qAO", "qAS", "qAr", "qAR", "qAZ", "qAI"})
        Require(!Holds(line, word), "what has been on the Internet doesn't go back there");
    const auto info = Columns(line, PositionOf(line, ':') + 1);
    Require(!info.starts_with('}') && !info.starts_with('?') && !info.empty(),
            "no third party, no query, no empty packet");
}

void CheckToRadio(test::Station& station, const Decision& decision)
{
    Require(station.SentBy(station.halvern.ConMdiFrm.InternetSoc).empty(), "a line from the Internet doesn't go back");
    const auto sent = station.SentByRadio();
    // A weather call's message goes out by its sender's right, and may be held as well, for its addressee.
    const std::size_t besides = decision.reason == Reason::Held ? 1 : 0;
    Require(WentOut(decision) ? !sent.empty() : sent.size() <= besides,
            "what went out is on the air, what did not is not");
    Require(sent.size() <= 3, "a weather call's message, the message, a position: no more");
    for (const auto& line : sent) {
        Require(line.starts_with("Q0OWN>APRS"), "a gated packet is the gate's own");
        Require(Holds(line, ":}") && Holds(line, ",TCPIP,Q0OWN*:"), "it is wrapped, and says by whom");
        // The wrapped packet is behind the first mark; what a message says behind that is its own.
        Require(!line.substr(line.find(":}")).starts_with(":}Q0OWN>"), "own packets don't come back to radio");
    }
}

void CheckStores(const Halvern& halvern)
{
    const auto& heard = halvern.ConMdiFrm.HeardOnRfLst;
    for (int i = 0; i < heard.Count(); ++i) {
        Require(heard.Row(i).size() >= 10, "a heard row has its count");
        Require(heard.Find(Columns(heard.Row(i), 1, 9)) == i, "a station is heard once");
    }
    Require(halvern.ConMdiFrm.DecisionLst.Count() <= 2000, "the list of decisions is bounded");
    const bool held = !halvern.ConMdiFrm.IgMesSaveTxt.Text().empty();
    Require(held == halvern.ConMdiFrm.IgateMessHold.Running(), "a message is held, or the timer is off");
}

void Take(test::Station& station, char kind, std::string line)
{
    auto& halvern = station.halvern;
    if (kind == 'r' || kind == 's') ProcessPacket(halvern, line, kind == 'r' ? "TNC" : "TCPIP");
    station.SentByRadio();
    station.SentBy(halvern.ConMdiFrm.InternetSoc); // acks and answers are not the gate's
    if (kind == 'r') {
        CheckToInternet(station, line, RfGateStep(halvern, line));
    } else if (kind == 's') {
        CheckToRadio(station, InternetGateStep(halvern, line));
    } else if (kind == 't') {
        CheckToRadio(station, MessageHoldTick(halvern));
    } else {
        halvern.SetUpfrm.IgateTimeLbl.SetNumber(ColumnAt(line, 1) % 6);
        halvern.SetUpfrm.IgateHopOpt.Preselect(ColumnAt(line, 2) % 4 - 1);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    auto& station = Gate();
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const auto line : LinesOf(text))
        if (!line.empty()) Take(station, line.front(), std::string(line.substr(1)));
    CheckStores(station.halvern);
    CheckInvariants(station.halvern);
    if (station.halvern.ConMdiFrm.HeardOnRfLst.Count() > 500) station.halvern.ConMdiFrm.HeardOnRfLst.Clear();
    if (station.halvern.PositionFrm.PosLst.Count() > 200) ResetStores(station.halvern, "Clear");
    return 0;
}
