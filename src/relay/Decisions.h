// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "state/Halvern.h"

/// What gate and digipeater made of each packet. The rules themselves return these, and what the operator reads is
/// their return value in words, so that the list and the act can't differ.
namespace halvern {

/// Which of the three looked at the packet.
enum class Way { ToInternet, ToRadio, Repeat };

/// Why a packet was passed or not.
enum class Reason {
    // it went on
    Passed,
    PassedForBuddy,
    PassedForWeatherCall,
    PassedAfterHold,
    RepeatedForAlias,
    RepeatedForOwnCall,
    // it waits, or has waited
    Held,
    Replaced,
    AnotherGateFirst,
    // it stayed where it was
    NoPacket,
    Off,
    NoOpenPort,
    OwnPacket,
    PathSays, ///< `word` stands in the path
    TextSays, ///< `word` stands behind the path
    ThirdParty,
    Query,
    AddresseeNear,
    NoGatedKind,
    NoBuddy,
    SenderNear,
    AddresseeNotHeard,
    HopsUnknown,
    TooManyHops, ///< `hops` against `limit`
    NotNamed,
    UsedAlready,
    NotNext,
};

/// What was done with one packet, and why.
struct Decision {
    Decision(Reason reason) : reason(reason) {}
    Decision(Reason reason, std::string_view word) : reason(reason), word(word) {}
    Decision(Reason reason, int hops, int limit) : reason(reason), hops(hops), limit(limit) {}

    Reason reason;
    std::string_view word = {}; ///< lives as long as the program
    int hops = 0, limit = 0;
};

/// Did the packet go out by this decision?
bool WentOut(const Decision& decision);

/// The decision in the operator's words.
std::string WordsOf(const Decision& decision);

/// Files a decision in `DecisionLst`, newest last, at most 2,000; and in the window's list if its filter lets it in.
/// What was no packet, or met a switch that is off, leaves no row.
///
/// @param source  the packet's sender; `info` its information field
/// @return the decision
Decision Note(Halvern& halvern, Way way, std::string_view source, std::string_view info, const Decision& decision);

/// Fills the window's list anew with the rows that its filter lets in: those of which sender or addressee hold the
/// typed text. Upper and lower case are one.
void FilterDecisions(Halvern& halvern);

} // namespace halvern
