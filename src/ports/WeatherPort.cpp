// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/WeatherPort.h"

#include <algorithm>
#include <array>

#include "platform/Text.h"
#include "ports/ComPort.h"
#include "protocol/UltimeterRecord.h"
#include "relay/Beacon.h"
#include "relay/WeatherReport.h"

namespace halvern {
namespace {

constexpr std::size_t ComLength = 3;
constexpr std::array<std::string_view, 6> ProgramEndings{".EXE", ".COM", ".HTML", ".HTM", ".BAT", ".INI"};

bool NamesAProgram(const std::string& file)
{
    const auto name = UpperCase(file);
    return std::ranges::any_of(ProgramEndings, [&](std::string_view ending) { return name.ends_with(ending); });
}

/// Says why no source can start now. @return false where one can
bool Refused(Halvern& halvern)
{
    const auto& setUp = halvern.SetUpfrm;
    const auto tell = [&](Icon icon, const char* text) {
        halvern.Tell(icon, text);
        return true;
    };
    if (!halvern.AnyMainPortOpen())
        return tell(Icon::Information, "Before you open up the com port to your weather station you have to first\r\n"
                                       "open either a TNC port or a Sound Card Port.");
    if (!setUp.WxSourceOpt.On(0) && NamesAProgram(setUp.File1.Text()))
        return tell(Icon::None, "You have selected a EXE or COM or HTML or BAT or INI file as your WX output File. "
                                "This is an Error. Please select a different file for your WX output data.");
    if (halvern.ConMdiFrm.GpsMenu.Checked())
        return tell(Icon::Critical, "You cannot open the Weather port while the GPS Port is open. Please close the GPS "
                                    "port then open the Weather Port.");
    return false;
}

/// The number is as long as the TNC's: whoever has nine ports or fewer numbers both with one digit, whatever stands
/// behind it in the list.
bool OpenPort(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    const auto& setUp = halvern.SetUpfrm;
    const auto digits = setUp.PortLst.Text().size() - std::min(setUp.PortLst.Text().size(), ComLength);
    form.WxRxBuffer.clear(); // half a record of the last time and half a one of now would make a third
    SetLine(form.WeatherCom, setUp.WXPortCombo, setUp.WXBaudCombo, digits);
    return OpenComPort(halvern, form.WeatherCom, form.WeatherMenu);
}

void StartFile(MainForm& form)
{
    form.WeatherMenu.SetChecked(true);
    form.WXSoft.Start(1);
}

/// Both sources, since the operator may have chosen the other one meanwhile.
void CloseSource(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    form.WeatherMenu.SetChecked(false);
    form.WeatherCom.Close();
    form.WXSoft.Stop();
    if (halvern.AnyMainPortOpen()) StartBeacons(halvern);
    form.StatusBar1.SetCaption("Weather Station Port Closed");
}

} // namespace

void OpenCloseWeather(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    Silence(form.WeatherCom);
    if (form.WeatherMenu.Checked()) return CloseSource(halvern);
    if (Refused(halvern)) return;
    if (!halvern.SetUpfrm.WxSourceOpt.On(0))
        StartFile(form);
    else if (!OpenPort(halvern))
        return;
    form.Timer2.SetEnabled(false);
    form.Timer2.SetInterval(1);
    form.StatusBar1.SetCaption("Weather Station Port Open");
}

void ReceiveFromWeather(Halvern& halvern, int eventCode)
{
    auto& form = halvern.ConMdiFrm;
    if (eventCode != ReceivedBytes) return form.WxRxBuffer.clear();
    form.WxRxBuffer += form.WeatherCom.ReadAll();
    const auto record = TakeUltimeterRecord(form.WxRxBuffer);
    if (!record) return;
    const auto weather = WeatherOfUltimeter(*record);
    if (!weather.empty()) ReportWeather(halvern, WeatherSource::Port, weather);
}

} // namespace halvern
