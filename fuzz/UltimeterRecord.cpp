// SPDX-License-Identifier: GPL-3.0-or-later
// What a weather station may send on its line, or what comes there in its place, in pieces of any length; the first
// byte says how long. Whatever it is, what goes out is a report with every field in its place.
#include <algorithm>
#include <cstdint>

#include "LivingStation.h"
#include "engine/ResetStores.h"

using namespace halvern;

namespace {

constexpr std::size_t LongestWait = 58; // bytes of a record to be

/// Takes a pattern off the front of a text, "#" for any digit. @return false where the text begins otherwise
bool Take(std::string_view& text, std::string_view pattern)
{
    const auto fits = [](char wanted, char there) { return wanted == '#' ? IsDigit(there) : wanted == there; };
    if (text.size() < pattern.size() || !std::equal(pattern.begin(), pattern.end(), text.begin(), fits)) return false;
    text.remove_prefix(pattern.size());
    return true;
}

bool TakeRain(std::string_view& text)
{
    return Take(text, "###.##") || Take(text, "###.#") || Take(text, "##.##") || Take(text, "##.#") ||
           Take(text, "###");
}

bool IsReport(std::string_view text)
{
    return Take(text, "Q0OWN>APHV01,WIDE2-2:@######z4049.14N/07308.41W_###/###g###t") &&
           (Take(text, "###") || Take(text, "-##")) && Take(text, "r...p") && TakeRain(text) && Take(text, "P") &&
           (Take(text, "...") || TakeRain(text)) && Take(text, "h##b#####") && text.empty();
}

test::Station& WeatherStation()
{
    auto& station = LivingStation();
    auto& main = station.halvern.ConMdiFrm;
    if (!main.PortTnc.Checked()) station.OpenTnc();
    if (!main.WeatherMenu.Checked()) main.WeatherMenu.Click();
    return station;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static auto& station = WeatherStation();
    if (size == 0) return 0;
    auto& main = station.halvern.ConMdiFrm;
    main.WxRxBuffer.clear();
    const std::string_view stream(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::size_t length = data[0] + 1u;
    for (std::size_t at = 0; at < stream.size(); at += length) {
        main.WeatherCom.Arrived(stream.substr(at, length));
        Require(main.WxRxBuffer.size() <= LongestWait, "no more waits than a record");
    }
    for (const auto& line : station.SentByRadio()) Require(IsReport(line), line.c_str());
    if (station.halvern.TerminalFrm.RawPacketLst.Count() > 1000) ResetStores(station.halvern, "Clear");
    return 0;
}
