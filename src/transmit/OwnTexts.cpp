// SPDX-License-Identifier: GPL-3.0-or-later
#include "transmit/OwnTexts.h"

#include "platform/Text.h"

namespace halvern {

std::string OwnCallOf(const SetUpForm& setUp)
{
    const auto& ssid = setUp.SSIDLBL.Caption();
    return ssid == "0" ? setUp.CallSignTxt.Text() : setUp.CallSignTxt.Text() + "-" + ssid;
}

std::string OwnSymbol(const SetUpForm& setUp)
{
    const auto& entry = setUp.SymbolCombo.Text();
    std::string pair = entry.size() < 2 ? "/-" : entry.substr(entry.size() - 2);
    if (HasOverlay(setUp)) pair[0] = setUp.OverlayChar[0];
    return pair;
}

bool HasWeatherSymbol(const SetUpForm& setUp)
{
    return OwnSymbol(setUp)[1] == '_';
}

bool HasOverlay(const SetUpForm& setUp)
{
    return !setUp.OverlayChar.empty() && setUp.OverlayChar != " ";
}

std::string OwnPlace(const SetUpForm& setUp, std::string_view symbol)
{
    return setUp.LatDegtxt.Text() + setUp.LatMintxt.Text() + "." + setUp.LatDectxt.Text() + setUp.LatSigntxt.Text() +
           symbol[0] + setUp.LonDegtxt.Text() + setUp.LonMintxt.Text() + "." + setUp.LonDectxt.Text() +
           setUp.LonSigntxt.Text() + symbol[1];
}

std::string OwnPhg(const SetUpForm& setUp, const std::string& behind)
{
    std::string digits;
    for (const List* list : {&setUp.PhgPowerLst, &setUp.PhgHeightLst, &setUp.PhgGainLst, &setUp.PhgDirLst})
        digits += std::to_string(list->Selected());
    return LeadingNumber(digits) == 0 ? "PHG5130" : "PHG" + digits + behind;
}

std::string OwnPosition(const SetUpForm& setUp)
{
    return OwnPosition(setUp, OwnPhg(setUp));
}

std::string OwnPosition(const SetUpForm& setUp, const std::string& phg)
{
    return "=" + OwnPlace(setUp, OwnSymbol(setUp)) + phg + " " + setUp.CommentTXT.Text();
}

std::string OwnPosition(const SetUpForm& setUp, const std::string& latitude, const std::string& longitude,
                        const std::string& extension)
{
    const auto symbol = OwnSymbol(setUp);
    return "=" + latitude + symbol[0] + longitude + symbol[1] + extension + " " + setUp.CommentTXT.Text();
}

std::string OwnStatus(const SetUpForm& setUp)
{
    return ">" + setUp.StatusTXT.Text();
}

} // namespace halvern
