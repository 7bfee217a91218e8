// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// What the ports have to do with each other when one of them opens or closes.
namespace halvern {

/// The ports that carry packets.
enum class MainPort { Tnc, Internet, Sound, Psk63 };

/// Connects the socket of a main port. The status bar says to whom, and why it failed; the operator is told with the
/// words of that port, unless he or the end of the program has given the try up.
///
/// Other events go on meanwhile: the port counts as closed, so that no timer sends on it, and the other ports hear.
bool ConnectPort(Halvern& halvern, Socket& socket, const char* failed);
/// Tells of a connection that failed, or could not be tried.
void TellNotConnected(Halvern& halvern, const std::string& whom, const std::string& why, const char* failed);

/// Everything that follows a successful open: the check mark, the menus, the timers, the word in the status bar.
void PortOpened(Halvern& halvern, MainPort port);

/// Closes a port that is checked as open. With the last main port the timers of the transmitter stop and the weather
/// port closes; with the last radio port the GPS port closes.
void ClosePort(Halvern& halvern, MainPort port);

/// What starts with any port: the own objects, the raw packets, the timer that retires stations.
void StartTransmitter(MainForm& form);
/// What stops when nothing can be sent any more: that timer, the beacons, the messages, the own objects.
void StopTransmitter(Halvern& halvern);

} // namespace halvern
