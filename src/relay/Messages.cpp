// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Messages.h"

#include <algorithm>
#include <array>

#include "engine/PacketLog.h"
#include "platform/Text.h"
#include "protocol/OutMsg.h"
#include "protocol/Psk63Framing.h"
#include "transmit/Psk63Send.h"
#include "transmit/Send.h"

namespace halvern {
namespace {

constexpr int Enter = 13;
constexpr int SlowInterval = 60000;
constexpr std::int16_t SlowCycle = 9; // minutes from send to send in the slow phase
constexpr std::size_t PathColumn = 11, PathWordWidth = 5;
constexpr int MessageWindow = 5;

constexpr const char* InternetPathRefused =
    "TCPIP and TCPXX are not allowed as paths on RF. If the station that you are trying to send a message to is on the "
    "APRS-IS and Halvern has heard this station then Halvern will automatically send packets to this station via the "
    "APRS-IS.";

// --- before anything is sent -----------------------------------------------------------------------------------------

bool IsInternetWord(std::string_view path)
{
    return path == "TCPIP" || path == "TCPXX";
}

std::string MailPath(const Halvern& halvern)
{
    return UpperCase(halvern.MessageFrm.MailUnPath.Text());
}

bool RadioUp(const Halvern& halvern)
{
    return halvern.ConMdiFrm.SoundSoc.Connected() || halvern.ConMdiFrm.MSComm1.IsOpen();
}

bool OnlyPsk63Up(const Halvern& halvern)
{
    return halvern.ConMdiFrm.Psk63Soc.Connected() && !halvern.ConMdiFrm.InternetSoc.Connected() && !RadioUp(halvern);
}

bool NothingUp(const Halvern& halvern)
{
    return !halvern.ConMdiFrm.Psk63Soc.Connected() && !halvern.ConMdiFrm.InternetSoc.Connected() && !RadioUp(halvern);
}

struct Obstacle {
    bool (*stands)(const Halvern&);
    const char* words;
    bool keepsText = false;
    bool resetsPath = false;
};

const std::array<Obstacle, 5> Obstacles{{
    {[](const Halvern& halvern) { return OnlyPsk63Up(halvern) && MailPath(halvern) != "PSK63"; },
     "Please change your Mail Path to PSK63. Or open another port besides the PSK63 Port.", true},
    {[](const Halvern& halvern) { return IsInternetWord(MailPath(halvern)); }, InternetPathRefused, false, true},
    {NothingUp, "Please Open a TNC Port or a Sound Card Port or an Internet Port or PSK63 port First."},
    {[](const Halvern& halvern) { return halvern.MessageFrm.SendCallTxt.Text().empty(); },
     "You First Have to type in a Callsign in the 'To Callsign Box'."},
    {[](const Halvern& halvern) { return MailPath(halvern).empty(); }, "You have to chose a Mail Path first."},
}};

/// Tells the first obstacle that stands in the way. @return whether there is one.
bool Hindered(Halvern& halvern)
{
    const auto obstacle = std::ranges::find_if(Obstacles, [&](const Obstacle& each) { return each.stands(halvern); });
    if (obstacle == Obstacles.end()) return false;
    halvern.Tell(Icon::None, obstacle->words);
    if (!obstacle->keepsText) halvern.MessageFrm.MsgTxt.SetText("");
    if (obstacle->resetsPath) halvern.MessageFrm.MailUnPath.Select(0);
    return true;
}

// --- a message on its way out ----------------------------------------------------------------------------------------

struct Outgoing {
    std::string destination, text;
    std::string path; ///< empty for none, "TCPIP" for the Internet
    MessageTrailer trailer;
    bool once = false; ///< to a group: sent, not queued
};

/// Blanks stand in every place of the trailer of what nobody will ack.
constexpr const char* Unnumbered = " ";

void NumberOf(const Halvern& halvern, Outgoing& message)
{
    message.trailer = {"{", ".", std::to_string(halvern.MessageFrm.MsgNumber)};
    message.once = halvern.SetUpfrm.MsgGroupLst.IndexOf(message.destination) != NotFound;
    if (message.once || message.destination.starts_with("BLN")) message.trailer = {Unnumbered, Unnumbered, Unnumbered};
}

std::string Header(const Halvern& halvern)
{
    return halvern.Engine.OwnCall + ">" + halvern.Engine.OwnDest;
}

std::string Addressed(const Outgoing& message)
{
    return ":" + CallField(message.destination) + ":" + message.text;
}

/// A message in the operator's list; what has no number is set off by blanks.
std::string ListLine(const Halvern& halvern, const Outgoing& message)
{
    const bool numbered = message.trailer.number != Unnumbered;
    return halvern.Engine.OwnCall + ">" + message.destination + ":" +
           (numbered ? message.trailer.number + message.trailer.point : std::string(3, ' ')) + message.text;
}

void ListAndClear(Halvern& halvern, const std::string& line)
{
    auto& form = halvern.MessageFrm;
    form.MsgToYouLst.Add(line);
    form.MsgToYouLst.Select(form.MsgToYouLst.Count() - 1);
    form.MsgTxt.SetText("");
}

/// A station that was heard by way of the Internet is answered there, and so is everyone while no radio is up.
void ChooseRoute(const Halvern& halvern, Outgoing& message)
{
    if (!RadioUp(halvern)) {
        message.path = "TCPIP";
        return;
    }
    const auto& heard = halvern.DigiFrm.DigiLst;
    const int row = heard.Find(CallField(message.destination));
    if (row != NotFound && IsInternetWord(Columns(heard.Row(row), PathColumn, PathWordWidth))) message.path = "TCPIP";
}

void Transmit(Halvern& halvern, std::string_view path, std::string information)
{
    const bool byInternet = path == "TCPIP";
    Send(halvern, {.information = std::move(information), .path = std::string(byInternet ? "" : PathOrNothing(path))},
         byInternet ? Road::Internet : Road::Radio);
}

void SendOnce(Halvern& halvern, const Outgoing& message)
{
    const bool radio = message.path != "TCPIP"; // the Internet's lines get their end with their header
    Transmit(halvern, message.path, Addressed(message) + std::string(radio ? CrLf : ""));
    ListAndClear(halvern, halvern.Engine.OwnCall + ">" + message.destination + ":" + message.text);
}

/// Messages for one station stand together, the newest first, and only the oldest is on the air. A station that is new
/// to the queue sets the pace of all of it to its beginning.
void Enqueue(Halvern& halvern, const Outgoing& message)
{
    auto& queue = halvern.MessageFrm.OutMsg;
    const auto record =
        OutMsgRecord(message.destination, halvern.Engine.OwnDest, message.path, message.text, message.trailer);
    for (int i = 0; i < queue.Count(); ++i)
        if (outMsgRow::Destination(queue.Row(i)) == CallField(message.destination)) return queue.Insert(record, i);
    queue.Add(record);
    halvern.MessageFrm.Timer1.Start(1);
}

void Queue(Halvern& halvern, Outgoing& message)
{
    if (message.path.empty()) message.path = "NONE";
    Enqueue(halvern, message);
    const auto path = message.path == "TCPIP" ? "TCPIP*" : message.path;
    FileRaw(halvern,
            Header(halvern) + "," + path + ":" + Addressed(message) + message.trailer.brace + message.trailer.number);
    ListAndClear(halvern, ListLine(halvern, message));
}

/// By PSK63 nothing is queued, and the text stays in its field: Enter sends it again, under the same number.
void SendOnPsk63(Halvern& halvern, Outgoing& message)
{
    auto& form = halvern.MessageFrm;
    if (message.destination == form.LastPskTo && message.text == form.LastPskMsg) {
        --form.MsgNumber;
        NumberOf(halvern, message);
    } else {
        const auto line = ListLine(halvern, message);
        form.MsgToYouLst.Add(Psk63SpeaksInMarks(halvern) ? BetweenMarkers(line) : line);
        form.LastPskTo = message.destination;
        form.LastPskMsg = message.text;
    }
    Send(halvern, {Addressed(message) + message.trailer.brace + message.trailer.number}, Road::Psk63);
}

void SendMessage(Halvern& halvern)
{
    auto& form = halvern.MessageFrm;
    form.SetCaption("Message");
    form.SendCallTxt.SetText(UpperCase(form.SendCallTxt.Text()));
    Outgoing message{form.SendCallTxt.Text(), form.MsgTxt.Text(), std::string(PathOrNothing(MailPath(halvern)))};
    if (message.destination == halvern.Engine.OwnCall)
        return halvern.Tell(Icon::None, "You may not send a message to this station.");
    CountUp(form.MsgNumber);
    NumberOf(halvern, message);
    if (halvern.ConMdiFrm.Psk63Soc.Connected() && message.path == "PSK63") return SendOnPsk63(halvern, message);
    ChooseRoute(halvern, message);
    message.once ? SendOnce(halvern, message) : Queue(halvern, message);
}

// --- retries ---------------------------------------------------------------------------------------------------------

constexpr std::array<std::pair<int, int>, 5> NextInterval{
    {{1, 4000}, {4000, 8000}, {8000, 16000}, {16000, 32000}, {32000, SlowInterval}}};

/// With all ports lost there is nobody to write to: the queue goes, and what stands on the tab.
void GiveUp(MessageForm& form)
{
    form.Timer1.Stop();
    form.OutMsg.Clear();
    form.SendCallTxt.SetText("");
    form.MsgTxt.SetText("");
    form.MsgToYouLst.Clear();
}

/// Counts the minutes of the slow phase. @return whether this tick sends.
bool SendsNow(MessageForm& form)
{
    if (form.Timer1.Interval() == 1) form.RetryCycle = 0;
    if (form.Timer1.Interval() == SlowInterval) CountUp(form.RetryCycle);
    if (form.RetryCycle == SlowCycle + 1) form.RetryCycle = 1;
    return form.RetryCycle < 2 || form.RetryCycle > SlowCycle;
}

void SendOldestOfEach(Halvern& halvern)
{
    const auto& queue = halvern.MessageFrm.OutMsg;
    const auto station = [&](int i) { return UpperCase(outMsgRow::Destination(queue.Row(i))); };
    for (int i = 0; i < queue.Count(); ++i) {
        if (i + 1 < queue.Count() && station(i) == station(i + 1)) continue;
        const auto record = queue.Row(i);
        Transmit(halvern, OutMsgPath(record), OutMsgInformation(record));
    }
}

// --- the tabs --------------------------------------------------------------------------------------------------------

/// The tabs in their order on the form.
enum Tab { TrafficTab, SendTab, BulletinsTab };

void TakeBackCaption(MessageForm& form, const char* call)
{
    if (form.Caption() == call) form.SetCaption("Message");
}

} // namespace

bool RefusedInternetPath(Halvern& halvern, std::string_view path)
{
    if (!IsInternetWord(path)) return false;
    halvern.Tell(Icon::None, InternetPathRefused);
    return true;
}

void TypeMessage(Halvern& halvern, int& key)
{
    const bool hindered = Hindered(halvern);
    if (!hindered && key == Enter) SendMessage(halvern);
    if (hindered) key = 0;
}

void RetryTick(Halvern& halvern)
{
    auto& form = halvern.MessageFrm;
    auto& timer = form.Timer1;
    if (NothingUp(halvern)) return GiveUp(form);
    if (!SendsNow(form)) return;
    timer.SetEnabled(false);
    if (form.OutMsg.Count() == 0) return;
    SendOldestOfEach(halvern);
    const auto step = std::ranges::find(NextInterval, timer.Interval(), [](const auto& each) { return each.first; });
    if (step != NextInterval.end()) timer.SetInterval(step->second);
    timer.SetEnabled(true);
}

void ClearMessageText(Halvern& halvern)
{
    const auto& main = halvern.ConMdiFrm;
    if (main.Psk63Soc.Connected() && main.FrmState[MessageWindow] == "True") halvern.MessageFrm.MsgTxt.SetText("");
}

void ShowMessageTab(MessageForm& form)
{
    const std::pair<Control*, Tab> places[] = {
        {&form.TrafficLst, TrafficTab}, {&form.BullLst, BulletinsTab}, {&form.Label1, SendTab},
        {&form.MsgToYouLst, SendTab},   {&form.MsgTxt, SendTab},       {&form.SendCallTxt, SendTab},
        {&form.MailUnPath, SendTab},    {&form.QueryCmd, SendTab},     {&form.PSk63HelpCmd, SendTab}};
    const int tab = form.SSTab2.Selected();
    for (const auto& [control, place] : places) control->SetVisible(place == tab);
    if (tab == SendTab) TakeBackCaption(form, "New Message!");
    if (tab == BulletinsTab) TakeBackCaption(form, "New Bulletin!");
}

} // namespace halvern
