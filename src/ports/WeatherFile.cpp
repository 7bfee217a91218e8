// SPDX-License-Identifier: GPL-3.0-or-later
#include "ports/WeatherFile.h"

#include <limits>

#include "platform/Text.h"
#include "protocol/WeatherFileText.h"
#include "relay/Beacon.h"
#include "relay/WeatherReport.h"

namespace halvern {
namespace {

constexpr int TickInterval = 65000; // milliseconds; the other program writes once a minute, and is through by then
constexpr int WeatherDisplay = 0;   // in the list of weather programs
constexpr int UsualRate = 4;        // in the list of intervals

/// The minutes that the operator chose, in ticks.
int TicksBetween(const SetUpForm& setUp)
{
    const int chosen = setUp.TimeOpt.Selected();
    return static_cast<int>(LeadingNumber(setUp.TimeOpt.Entry(chosen < 0 ? UsualRate : chosen)));
}

/// Is a report due? The rate meets the count or it does not: one that was chosen too late waits until the count, which
/// starts anew past 16 bits, comes round.
bool TakeTick(MainForm& form, int rate)
{
    auto& ticks = form.WxFileTicks;
    if (ticks == rate || ticks == std::numeric_limits<std::int16_t>::max()) ticks = 0;
    return ticks == 0;
}

[[noreturn]] void Fail(const Halvern& halvern, const std::string& file, int number, const std::string& what)
{
    throw RuntimeFailure(number, "The weather file " + halvern.Outside.files.Shown(file) + " " + what +
                                     " No weather is sent until you close the weather station and open it again.");
}

const char* WrongFile(WeatherFileFault fault)
{
    switch (fault) {
    case WeatherFileFault::NoDirection:
        return "The Weather Display File That you have selected does not have Wind Direction. Your File Must have a "
               "Wind Direction Field. Halvern will now close all your open ports.";
    case WeatherFileFault::NoSpeed:
        return "The Weather Display File That you have selected does not have Wind Speed. Your File Must have a Wind "
               "Speed Field. Halvern will now close all your open ports.";
    default:
        return "You have selected a non Weather Display File. Please Select the correct file. Halvern will now close "
               "all your open ports.";
    }
}

/// What the file says; a program of another kind has nothing to say. @throws RuntimeFailure
WeatherFileText ReadFile(const Halvern& halvern)
{
    const auto& setUp = halvern.SetUpfrm;
    const auto file = setUp.File1.Path() + "\\" + setUp.File1.Text();
    const auto bytes = halvern.Outside.files.Read(file);
    if (!bytes && !halvern.Outside.files.Exists(file))
        Fail(halvern, file, failure::FileNotFound, "is not there, or is no plain file.");
    if (!bytes) Fail(halvern, file, failure::FileAccess, "can't be read. Do you have the permission?");
    if (setUp.WxSoftCombo.Selected() != WeatherDisplay) return {};
    auto text = ReadWeatherFile(*bytes);
    if (text.fault == WeatherFileFault::HalfWritten)
        Fail(halvern, file, failure::PastEndOfFile, "is half written, or holds no weather.");
    return text;
}

} // namespace

void WeatherFileTick(Halvern& halvern)
{
    auto& form = halvern.ConMdiFrm;
    form.WXSoft.SetEnabled(false);
    form.WXSoft.SetInterval(TickInterval);
    if (TakeTick(form, TicksBetween(halvern.SetUpfrm))) {
        const auto text = ReadFile(halvern);
        if (text.fault != WeatherFileFault::None) {
            halvern.Tell(Icon::Information, WrongFile(text.fault));
            return CloseMainPorts(form, true);
        }
        ReportWeather(halvern, WeatherSource::File, text.weather);
    }
    ++form.WxFileTicks;
    form.WXSoft.SetEnabled(true);
}

} // namespace halvern
