// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/OutMsg.h"

namespace halvern {
namespace {

std::string_view FromSecondColon(std::string_view record)
{
    return Columns(record, PositionOf(record, ':', outMsgRow::Path));
}

} // namespace

std::string OutMsgRecord(std::string_view destination, std::string_view ownDest, std::string_view path,
                         std::string_view text, const MessageTrailer& trailer)
{
    return ":" + CallField(destination) + "unproto " + Padded(ownDest, outMsgRow::OwnDestWidth) + " via " +
           std::string(path) + ":" + std::string(text) + trailer.brace + trailer.number;
}

std::string_view OutMsgPath(std::string_view record)
{
    const auto rest = Columns(record, outMsgRow::Path);
    return rest.substr(0, rest.find(':'));
}

std::string OutMsgInformation(std::string_view record)
{
    return std::string(Columns(record, 1, 10)) + std::string(FromSecondColon(record));
}

std::string_view OutMsgText(std::string_view record)
{
    const auto text = Columns(FromSecondColon(record), 2);
    return text.substr(0, text.find('{'));
}

std::string_view OutMsgNumber(std::string_view record)
{
    const auto brace = PositionOf(record, '{');
    return brace == 0 ? std::string_view{} : Columns(record, brace + 1);
}

} // namespace halvern
