// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/StationInfo.h"

#include "platform/Text.h"
#include "state/Rows.h"
#include "view/ChildWindows.h"

namespace halvern {
namespace {

/// A data base that gathers what the servers pass on.
constexpr const char* LookUpAddress = "http://www.findu.com/cgi-bin/find.cgi?";

struct KindLine {
    std::string_view types;
    const char* line;
};

/// What a report's type says of its station.
constexpr KindLine KindLines[] = {
    {"@=", "Station is APRS Message Capable."},
    {"!/$", "Station is Not APRS Message Capable."},
    {"'", "Station is a Kenwood Radio which is APRS Message Capable"},
    {"`", "Station is a MIC-E which is Not APRS Message Capable"},
};

void ListKind(List& lines, std::string_view row)
{
    const char type = ColumnAt(row, positionRow::Type);
    if (type == ';') {
        lines.Add("Station is an Object that is currently being transmitted by " + SenderOf(row));
        lines.Add("An Object is not APRS Message Capable.");
    }
    for (const auto& kind : KindLines)
        if (kind.types.find(type) != std::string_view::npos) lines.Add(kind.line);
}

/// A text as a part of an address: what is no letter, digit or mark without a meaning is written by its code.
std::string InAddress(std::string_view text)
{
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.~*";
    constexpr const char* digits = "0123456789ABCDEF";
    std::string address;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (plain.find(c) != std::string_view::npos)
            address += c;
        else
            address += {'%', digits[code >> 4], digits[code & 15]};
    }
    return address;
}

} // namespace

std::string SenderOf(std::string_view row)
{
    const auto from = row.rfind('<');
    if (from == std::string_view::npos) return {};
    const auto sender = row.substr(from + 1);
    return std::string(sender.substr(0, sender.find('>')));
}

void ShowInformation(Halvern& halvern)
{
    auto& form = halvern.InformationFrm;
    const auto& row = halvern.PositionFrm.PosLst.Row(halvern.Map.PopStation);
    form.SetCaption(std::string(TrimmedRight(positionRow::Call(row))) + " Information");
    form.InformationLst.Clear();
    ListKind(form.InformationLst, row);
    form.InformationLst.Add("Time Of Last Received Position Report: Day " + std::string(positionRow::Day(row)) +
                            " At " + std::string(positionRow::HourMinute(row)) + " UTC");
    form.Show();
}

void ShowWeatherOf(Halvern& halvern)
{
    const auto& row = halvern.PositionFrm.PosLst.Row(halvern.Map.PopStation);
    halvern.WeatherFrm.CallSignTxt.SetText(TrimmedRight(positionRow::Call(row)));
    SetWindowOn(halvern, WeatherWindow, true);
}

void LookUpOnTheWeb(Halvern& halvern)
{
    auto& dialogs = halvern.Outside.dialogs;
    const auto call = dialogs.Input("Enter the Call Sign you want to Look up. Note use -* for SSID to display all "
                                    "SSID's that match the Call Sign",
                                    "Halvern CgiFindu Lookup");
    if (call && !call->empty()) dialogs.Browse(LookUpAddress + InAddress(*call));
}

} // namespace halvern
