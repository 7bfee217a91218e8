// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/MessageStates.h"

#include "forms/Watching.h"
#include "platform/Text.h"
#include "protocol/OutMsg.h"
#include "protocol/UtcTime.h"

namespace halvern {
namespace {

constexpr std::string_view Received = " MESSAGE RECEIVED";
constexpr int AtOnceMs = 1;                  ///< of the timer: this tick sends
constexpr int SlowMs = 60000, SlowTicks = 9; ///< in the slow phase one tick in nine sends
constexpr std::int64_t SecondMs = 1000, ShownInSeconds = 120;

std::string_view WithoutAck(std::string_view row)
{
    return row.substr(0, row.size() - (row.ends_with(Received) ? Received.size() : 0));
}

/// The row in the list that belongs to a record of the queue.
std::string LineOf(const Halvern& halvern, std::string_view record)
{
    const auto number = OutMsgNumber(record);
    const auto line = halvern.Engine.OwnCall + ">" + std::string(TrimmedRight(outMsgRow::Destination(record))) + ":" +
                      (number.empty() ? std::string(3, ' ') : std::string(number) + ".");
    return line + std::string(number.empty() ? TrimmedRight(OutMsgText(record)) : OutMsgText(record));
}

bool AnyPortUp(const MainForm& main)
{
    return main.InternetSoc.Connected() || main.SoundSoc.Connected() || main.Psk63Soc.Connected() ||
           main.MSComm1.IsOpen();
}

} // namespace

MessageStates::MessageStates(Halvern& halvern, QObject* parent) : QObject(parent), halvern(halvern)
{
    auto& form = halvern.MessageFrm;
    WatchFor(this, form.OutMsg, [this](const Change& change) { NoteQueue(change); });
    WatchFor(this, form.MsgToYouLst, [this](const Change& change) { NoteRow(change); });
    WatchFor(this, form.Timer1, [this](const Change&) { NoteTimer(); });
}

void MessageStates::NoteQueue(const Change& change)
{
    if (change.what == Change::RowAdded) sent[LineOf(halvern, halvern.MessageFrm.OutMsg.Row(change.row))];
}

void MessageStates::NoteRow(const Change& change)
{
    const auto& form = halvern.MessageFrm;
    if (change.what == Change::RowsCleared) times.clear();
    if (change.what != Change::RowAdded) return;
    const auto& row = form.MsgToYouLst.Row(change.row);
    const auto& typed = form.MsgTxt.Text();
    const bool typedNow = !typed.empty() && row.ends_with(typed); // the operator's own; else it comes from a file
    if (form.Directory().Present().station || typedNow) times[row] = Now();
}

/// A tick that sends stops the timer and starts its next wait.
void MessageStates::NoteTimer()
{
    const auto& form = halvern.MessageFrm;
    const auto& timer = form.Timer1;
    const bool rested = !std::exchange(wasRunning, timer.Running()), began = rested && timer.Running();
    started = Now();
    if (!began || timer.Interval() == AtOnceMs || !form.Directory().Present().station) return;
    const auto& queue = form.OutMsg;
    for (int i = 0; i < queue.Count(); ++i) {
        const bool oldest = i + 1 == queue.Count() || UpperCase(outMsgRow::Destination(queue.Row(i))) !=
                                                          UpperCase(outMsgRow::Destination(queue.Row(i + 1)));
        if (oldest) ++sent[LineOf(halvern, queue.Row(i))];
    }
}

std::int64_t MessageStates::Now() const
{
    return SecondsOf(UtcNow(halvern.Outside.clock));
}

/// Milliseconds until the queue goes out again.
std::int64_t MessageStates::UntilNext() const
{
    const auto& form = halvern.MessageFrm;
    const std::int64_t interval = form.Timer1.Interval();
    const auto whole = interval == SlowMs && form.RetryCycle > 0 ? SlowTicks * interval : interval;
    return std::max<std::int64_t>(0, whole - (Now() - started) * SecondMs);
}

QString MessageStates::Waiting(int queued, const std::string& line) const
{
    const auto& form = halvern.MessageFrm;
    if (!AnyPortUp(halvern.ConMdiFrm)) return tr("no port open");
    const auto& queue = form.OutMsg;
    const bool behind = queued + 1 < queue.Count() && UpperCase(outMsgRow::Destination(queue.Row(queued))) ==
                                                          UpperCase(outMsgRow::Destination(queue.Row(queued + 1)));
    if (behind) return tr("waits its turn");
    const auto known = sent.find(line);
    const int often = known == sent.end() ? 0 : known->second;
    const auto words = often == 0 ? tr("waits") : tr("sent %1x").arg(often);
    if (!form.Timer1.Running()) return words;
    const auto seconds = (UntilNext() + SecondMs - 1) / SecondMs;
    return words +
           (seconds <= ShownInSeconds ? tr(", next %1 s").arg(seconds) : tr(", next %1 min").arg((seconds + 59) / 60));
}

QString MessageStates::StateOf(std::string_view row) const
{
    if (!row.starts_with(halvern.Engine.OwnCall + ">")) return {};
    if (row.ends_with(Received)) return tr("received");
    const auto& queue = halvern.MessageFrm.OutMsg;
    for (int i = 0; i < queue.Count(); ++i)
        if (const auto line = LineOf(halvern, queue.Row(i)); line == TrimmedRight(row)) return Waiting(i, line);
    return sent.contains(TrimmedRight(row)) ? tr("given up") : tr("sent");
}

QString MessageStates::TimeOf(std::string_view row) const
{
    constexpr int day = 86400, hour = 3600, minute = 60;
    const auto known = times.find(WithoutAck(row));
    if (known == times.end()) return {};
    const auto ofDay = known->second % day;
    return QString("%1:%2").arg(ofDay / hour, 2, 10, QChar('0')).arg(ofDay % hour / minute, 2, 10, QChar('0'));
}

} // namespace halvern
