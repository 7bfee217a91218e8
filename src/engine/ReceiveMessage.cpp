// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ReceiveMessage.h"

#include <algorithm>
#include <array>

#include "engine/AnswerQuery.h"
#include "engine/Bulletins.h"
#include "protocol/OutMsg.h"
#include "state/Rows.h"
#include "transmit/OwnTexts.h"
#include "transmit/Send.h"

namespace halvern {
namespace {

/// A message in hand.
struct Message {
    std::string addressee; ///< upper case, trailing blanks cut
    std::string_view text;
};

constexpr std::array<std::string_view, 10> DirectedQueries{"?APRS?", "?PING?", "?APRSP", "?APRSS", "?APRSM",
                                                           "?APRSO", "?APRSD", "?APRSH", "?APRST", "?IGATE"};

constexpr const char* AckedMark = " MESSAGE RECEIVED";

void RingUnlessPsk63(Halvern& halvern)
{
    if (!halvern.ConMdiFrm.Psk63Menu.Checked()) halvern.Outside.dialogs.Bell();
}

void SelectLast(List& list)
{
    if (list.Count() > 0) list.Select(list.Count() - 1);
}

/// Adds a row unless it is there already. @return whether it was new.
bool AddUnlessSame(KeyedList& store, const std::string& row)
{
    if (store.Find(SameText(row)) != NotFound) return false;
    store.Add(row);
    return true;
}

void TellOfNewMessage(Halvern& halvern)
{
    halvern.MessageFrm.SetCaption("New Message!");
    RingUnlessPsk63(halvern);
}

// --- bulletins -------------------------------------------------------------------------------------------------------

bool ReceiveBulletin(Halvern& halvern, const Message& message)
{
    if (message.addressee.size() == 3) return false;
    const auto row = halvern.Engine.SourceCall + ">" + message.addressee + ":" + std::string(message.text);
    if (!FileBulletin(halvern.MessageFrm.BullLst, row)) return true;
    RingUnlessPsk63(halvern);
    halvern.MessageFrm.SetCaption("New Bulletin!");
    return true;
}

// --- acks ------------------------------------------------------------------------------------------------------------

/// Marks the line of the message that has arrived.
void MarkAsReceived(List& log, const std::string& beginning)
{
    for (int i = 0; i < log.Count(); ++i) {
        const auto& row = log.Row(i);
        if (!UpperCase(row).starts_with(beginning) || Holds(row, "MESSAGE RECEIVED")) continue;
        log.Replace(i, row + AckedMark);
        return;
    }
}

/// With one message out, whatever ack comes is for it. Otherwise an ack takes its own message out of the queue.
void TakeOutOfQueue(List& queue, const std::string& source, std::string_view number)
{
    if (queue.Count() == 1) return queue.Remove(0);
    const auto wanted = UpperCase(CallField(source) + std::string(number));
    for (int i = queue.Count() - 1; i >= 0; --i) {
        const auto& record = queue.Row(i);
        const auto queued = std::string(outMsgRow::Destination(record)) + std::string(OutMsgNumber(record));
        if (UpperCase(queued) == wanted) queue.Remove(i);
    }
}

void ReceiveAck(Halvern& halvern, const Message& message)
{
    auto& form = halvern.MessageFrm;
    const auto number = Columns(message.text, 4);
    const auto& source = halvern.Engine.SourceCall;
    MarkAsReceived(form.MsgToYouLst, UpperCase(message.addressee + ">" + source + ":" + std::string(number)));
    form.Timer1.SetEnabled(false);
    TakeOutOfQueue(form.OutMsg, source, number);
    if (form.OutMsg.Count() == 0) {
        halvern.ConMdiFrm.MSComm1.DiscardOutput();
        form.Timer1.SetInterval(0);
    } else {
        form.Timer1.Start(1);
    }
}

// --- messages to the own station -------------------------------------------------------------------------------------

void SendAck(Halvern& halvern, std::string_view number, std::string_view tag)
{
    auto ack = ":" + CallField(halvern.Engine.SourceCall) + ":ack" + std::string(number);
    const auto path = PathOrNothing(halvern.MessageFrm.MailUnPath.Text());
    Send(halvern, {.information = std::move(ack), .path = std::string(path)}, RoadOf(tag));
}

bool IsDirectedQuery(std::string_view text)
{
    const auto first = UpperCase(Columns(text, 1, 6));
    return std::find(DirectedQueries.begin(), DirectedQueries.end(), first) != DirectedQueries.end();
}

/// A message without a number is filed under "00" and gets no ack. A repeat is not filed again, but acked again: the
/// ack before may not have been heard.
void ReceiveOwnMessage(Halvern& halvern, const Message& message, std::string_view tag)
{
    const auto brace = PositionOf(message.text, '{');
    const auto number = brace == 0 ? std::string_view("00") : Columns(message.text, brace + 1);
    const auto text = brace == 0 ? message.text : Columns(message.text, 1, brace - 1);
    const auto row =
        halvern.Engine.SourceCall + ">" + message.addressee + ":" + std::string(number) + "." + std::string(text);
    if (AddUnlessSame(halvern.MessageFrm.MsgToYouLst, row)) TellOfNewMessage(halvern);
    if (brace != 0 && !halvern.Engine.ReviewMode) SendAck(halvern, number, tag);
}

/// The own call with another SSID: filed, neither acked nor announced.
void ReceiveNearMiss(Halvern& halvern, const Message& message, const std::string& own)
{
    const auto& engine = halvern.Engine;
    if (!engine.ReviewMode && engine.SourceCall == own) return;
    AddUnlessSame(halvern.MessageFrm.MsgToYouLst,
                  engine.SourceCall + ">" + message.addressee + ":" + std::string(message.text));
}

// --- traffic between others ------------------------------------------------------------------------------------------

void ReceiveTraffic(Halvern& halvern, const Message& message)
{
    auto& form = halvern.MessageFrm;
    const auto row = halvern.Engine.SourceCall + ">" + message.addressee + ":  " + std::string(message.text);
    if (Holds(row, ":  ack")) return;
    AddUnlessSame(form.TrafficLst, row);
    if (halvern.SetUpfrm.MsgGroupLst.IndexOf(message.addressee) == NotFound) return;
    if (AddUnlessSame(form.MsgToYouLst, row)) TellOfNewMessage(halvern);
    SelectLast(form.MsgToYouLst);
}

} // namespace

bool ReceiveMessage(Halvern& halvern, std::string_view info, std::string_view tag)
{
    info.remove_prefix(1);
    const auto colon = PositionOf(info, ':');
    if (colon == 0) return false;
    const Message message{UpperCase(TrimmedRight(Columns(info, 1, colon - 1))), Columns(info, colon + 1)};
    const auto own = OwnCallOf(halvern.SetUpfrm);
    if (message.addressee.starts_with("BLN")) return ReceiveBulletin(halvern, message);
    if (!message.addressee.starts_with(halvern.SetUpfrm.CallSignTxt.Text())) {
        ReceiveTraffic(halvern, message);
        return true;
    }
    if (message.addressee != own) {
        ReceiveNearMiss(halvern, message, own);
    } else if (UpperCase(Columns(message.text, 1, 3)) == "ACK") {
        ReceiveAck(halvern, message);
    } else if (!Holds(message.text, "{") && IsDirectedQuery(message.text)) {
        AnswerQuery(halvern, message.text);
        return false;
    } else {
        ReceiveOwnMessage(halvern, message, tag);
    }
    SelectLast(halvern.MessageFrm.MsgToYouLst);
    return true;
}

} // namespace halvern
