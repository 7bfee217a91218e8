// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// Sending messages: what the operator types on the Send tab is numbered, queued and repeated until an ack takes it out
/// of the queue (the engine does that) or the operator does.
namespace halvern {

/// A key in the message text. Whatever it is, the station must be ready to send; Enter sends. A key that finds an
/// obstacle is swallowed.
void TypeMessage(Halvern& halvern, int& key);

/// `Timer1` has run out: sends the oldest message for every station in the queue. The interval is the state of the
/// retries: 1, 4000, 8000, 16000, 32000, then 60000 ms, at which every ninth minute has a send.
void RetryTick(Halvern& halvern);

/// Empties the message text: the PSK63 operator's way to a new message, since nothing else empties it there.
void ClearMessageText(Halvern& halvern);

/// Shows what belongs to the tab, and takes back the caption that called the operator to it.
void ShowMessageTab(MessageForm& form);

/// Refuses the Internet's own words as a path on radio. @return whether it did, and has told so.
bool RefusedInternetPath(Halvern& halvern, std::string_view path);

} // namespace halvern
