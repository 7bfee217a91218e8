// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>

#include "platform/Controls.h"
#include "platform/Form.h"

namespace halvern {

/// The fields of a position, as the station's settings and an object's dialogs have them.
struct PositionFields {
    /// @param longestSign  characters that the hemisphere of the longitude takes
    explicit PositionFields(Form& form, std::size_t longestSign = 1)
        : LatDegtxt(form, "LatDegtxt", "", 2), LatMintxt(form, "LatMintxt", "", 2), LatDectxt(form, "LatDectxt", "", 2),
          LatSigntxt(form, "LatSigntxt", "", 1), LonDegtxt(form, "LonDegtxt", "", 3),
          LonMintxt(form, "LonMintxt", "", 2), LonDectxt(form, "LonDectxt", "", 2),
          LonSigntxt(form, "LonSigntxt", "", longestSign)
    {
    }
    TextField LatDegtxt, LatMintxt, LatDectxt, LatSigntxt;
    TextField LonDegtxt, LonMintxt, LonDectxt, LonSigntxt;

    /// As the settings file lists them.
    std::array<TextField*, 8> InOrder()
    {
        return {&LatDegtxt, &LatMintxt, &LatDectxt, &LatSigntxt, &LonDegtxt, &LonMintxt, &LonDectxt, &LonSigntxt};
    }
    /// What stands in them, in the same order.
    std::array<std::string, 8> Texts() const
    {
        return {LatDegtxt.Text(), LatMintxt.Text(), LatDectxt.Text(), LatSigntxt.Text(),
                LonDegtxt.Text(), LonMintxt.Text(), LonDectxt.Text(), LonSigntxt.Text()};
    }
    void SetTexts(const std::array<std::string, 8>& texts)
    {
        for (std::size_t i = 0; i < texts.size(); ++i) InOrder()[i]->SetText(texts[i]);
    }
    /// Both as packets have them, the fields as they were typed.
    std::string Latitude() const
    {
        return LatDegtxt.Text() + LatMintxt.Text() + "." + LatDectxt.Text() + LatSigntxt.Text();
    }
    std::string Longitude() const
    {
        return LonDegtxt.Text() + LonMintxt.Text() + "." + LonDectxt.Text() + LonSigntxt.Text();
    }
};

} // namespace halvern
