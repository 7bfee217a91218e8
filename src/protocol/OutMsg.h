// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "state/Rows.h"

/// Records of `OutMsg`, the queue of messages that wait for an ack: at once what is stored and the words in which a TNC
/// in command mode would take it. Reader and writer both use these.
///
///     :Q0AAA    unproto APHV01 via WIDE2-2:Hello{12
namespace halvern {

namespace outMsgRow {
inline constexpr ColumnRange Destination = queuedRow::Name;
inline constexpr std::size_t OwnDestWidth = 6; ///< shorter and longer ones are made to fit, so that the path stays put
inline constexpr std::size_t Path = 30;        ///< up to the next ":"
} // namespace outMsgRow

/// What stands around a message's number: in the record "{" and the number behind the text, in the list of messages
/// the number and "." in front of it. Bulletins and messages to groups have blanks in all their places.
struct MessageTrailer {
    std::string brace, point, number;
};

/// The row of a message that goes out, from its fields.
std::string OutMsgRecord(std::string_view destination, std::string_view ownDest, std::string_view path,
                         std::string_view text, const MessageTrailer& trailer);

/// "NONE" for no path, "TCPIP" for the Internet.
std::string_view OutMsgPath(std::string_view record);

/// The information field that goes out: ":", the destination, ":", the text and its number.
std::string OutMsgInformation(std::string_view record);

/// The text, without its number; a bulletin's keeps its blanks.
std::string_view OutMsgText(std::string_view record);

/// What stands behind the first "{"; empty where there is none.
std::string_view OutMsgNumber(std::string_view record);

} // namespace halvern
