// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/ComPort.h"

#include "platform/Text.h"

namespace halvern {
namespace {

constexpr std::size_t NumberColumn = 4; // in "Com1"

} // namespace

void SetLine(SerialPort& port, const List& number, const List& speed, std::size_t digits)
{
    port.PortNumber = static_cast<int>(LeadingNumber(Columns(number.Text(), NumberColumn, digits)));
    port.Settings = speed.Text() + ",n,8,1";
}

void Silence(SerialPort& port)
{
    port.ReceiveThreshold = 0;
    port.DiscardInput();
    port.DiscardOutput();
}

bool OpenComPort(Halvern& halvern, SerialPort& port, MenuItem& mark)
{
    mark.SetChecked(true);
    if (const auto error = port.Open()) {
        halvern.Tell(Icon::Critical, error->Words(), "Error Opening Com Port");
        port.Close();
        mark.SetChecked(false);
        return false;
    }
    port.DiscardInput();
    port.ReceiveThreshold = 1;
    return true;
}

} // namespace halvern
