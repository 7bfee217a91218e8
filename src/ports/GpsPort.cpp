// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/GpsPort.h"

#include "platform/Text.h"
#include "ports/ComPort.h"
#include "ports/PortRules.h"
#include "protocol/Fix.h"
#include "relay/Beacon.h"

namespace halvern {
namespace {

constexpr std::size_t BlockSize = 1000;                    // bytes; more than a receiver says in a second
constexpr int ShortInterval = 30000, LongInterval = 65000; // milliseconds
constexpr int StillOpen = 8005;                            // the error number of an open port that is opened

void Detach(Halvern& halvern)
{
    StopTransmitter(halvern);
    halvern.ConMdiFrm.GpsMenu.SetEnabled(false);
    halvern.SetUpfrm.GpsOpt.Select(1);
    halvern.Engine.GpsPositionOn = false;
}

void CloseGps(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    form.GpsMenu.SetChecked(false);
    form.GpsCom.ReceiveThreshold = 0;
    if (halvern.AnyRadioPortOpen())
        StartBeacons(halvern);
    else
        Detach(halvern);
    form.GpsTimer.Stop();
    if (form.GpsCom.IsOpen()) form.GpsCom.Close();
    form.StatusBar1.SetCaption("GPS Port Closed");
}

/// The line is opened later, when a send time has come.
void OpenGps(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    form.GpsMenu.SetChecked(true);
    SetLine(form.GpsCom, halvern.SetUpfrm.GpsPortLst, halvern.SetUpfrm.GpsPortSpeedLst);
    form.GpsCom.ReceiveThreshold = BlockSize;
    StartTransmitter(form);
    form.StatusBar1.SetCaption("GPS Port Open");
    form.Timer2.Stop();
    form.GpsTimer.Start(1);
}

std::optional<PortError> OpenLine(SerialPort& port)
{
    if (port.IsOpen())
        return PortError{StillOpen, "GpsCom",
                         "The GPS has sent fewer than 1000 bytes since the last send time. Is it switched on and "
                         "connected, and do port and speed on the setup form belong to it?"};
    port.DiscardInput(); // what a receiver said before it was unplugged is an old position
    return port.Open();
}

} // namespace

void OpenCloseGps(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    form.GpsCom.DiscardInput();
    form.GpsCom.DiscardOutput();
    if (form.GpsMenu.Checked())
        CloseGps(halvern);
    else
        OpenGps(halvern);
}

void OpenGpsWhenDue(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    auto& timer = form.GpsTimer;
    const auto& every = halvern.SetUpfrm.GpsSendTimeLst.Text();
    timer.SetEnabled(false);
    form.GpsSendLimit = static_cast<std::int16_t>(LeadingNumber(Columns(every, 1, 1)));
    if (timer.Interval() == 1) {
        timer.SetInterval(Holds(every, "S") ? ShortInterval : LongInterval);
        form.GpsSendCount = form.GpsSendLimit;
    }
    if (timer.Interval() == ShortInterval) form.GpsSendCount = form.GpsSendLimit;
    if (form.GpsSendCount == form.GpsSendLimit) {
        form.GpsSendCount = 0;
        if (const auto error = OpenLine(form.GpsCom)) {
            halvern.Tell(Icon::None, error->Words(), "Error Opening GPS Port");
            form.GpsCom.Close();
            form.GpsMenu.SetChecked(false);
            return;
        }
    }
    CountUp(form.GpsSendCount);
    timer.SetEnabled(true);
}

void ReceiveFromGps(Halvern& halvern, int eventCode)
{
    if (eventCode != ReceivedBytes) return;
    auto& form = halvern.ConMdiFrm;
    const auto block = form.GpsCom.ReadAll();
    form.GpsCom.Close();
    const auto wanted = halvern.SetUpfrm.GpsSentanceLst.Text();
    if (!Holds(block, wanted)) {
        halvern.Tell(Icon::Critical, "Your GPS is not outputting the " + wanted +
                                         " GPS sentance. Halvern will now close the GPS port. Please either set your "
                                         "GPS to output the " +
                                         wanted + " or chose another GPS sentance that your GPS outputs.");
        if (form.GpsMenu.Checked()) OpenCloseGps(halvern); // it may have closed while the message stood there
        return;
    }
    if (const auto fix = FixInBlock(block, wanted)) BeaconFix(halvern, *fix);
}

} // namespace halvern
