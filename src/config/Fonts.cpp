// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Fonts.h"

namespace halvern {

const std::string& FontedControl::Name() const
{
    return std::visit([](const auto* one) -> const std::string& { return one->Name(); }, control);
}

Font FontedControl::Get() const
{
    return std::visit([](const auto* one) { return one->Font(); }, control);
}

void FontedControl::Set(const Font& font) const
{
    std::visit([&](auto* one) { one->SetFont(font); }, control);
}

std::array<FontedControl, 13> SavedFonts(Halvern& halvern)
{
    auto& message = halvern.MessageFrm;
    auto& find = halvern.FindFrm;
    return {halvern.PositionFrm.ShPosLst,
            halvern.StatusFrm.ShStatusLst,
            halvern.DigiFrm.ShDigiLst,
            message.TrafficLst,
            message.MsgToYouLst,
            message.SendCallTxt,
            message.MailUnPath,
            message.MsgTxt,
            message.BullLst,
            halvern.TerminalFrm.ShRawPacketLst,
            find.FindPosTxt,
            find.FindStatusTxt,
            find.FindDigiTxt};
}

/// The form of each entry of `FontFrm.FormOpt`.
static std::array<const Form*, 11> FormsWithFonts(const Halvern& halvern)
{
    return {&halvern.PositionFrm,  &halvern.StatusFrm,   &halvern.DigiFrm,   &halvern.MessageFrm,
            &halvern.HeardFrm,     &halvern.TerminalFrm, &halvern.DxFrm,     &halvern.WeatherFrm,
            &halvern.TelemetryFrm, &halvern.FindFrm,     &halvern.KillMsgFrm};
}

std::vector<FontedControl> FontsOfForm(Halvern& halvern, int entry)
{
    const auto forms = FormsWithFonts(halvern);
    const auto prefix = ElementOf(forms, entry)->Name() + ".";
    std::vector<FontedControl> controls;
    for (Control* control : halvern.All.All()) {
        if (!control->Name().starts_with(prefix)) continue;
        if (auto* list = dynamic_cast<List*>(control)) controls.emplace_back(*list);
        if (auto* field = dynamic_cast<TextField*>(control)) controls.emplace_back(*field);
        if (auto* grid = dynamic_cast<Grid*>(control)) controls.emplace_back(*grid);
    }
    return controls;
}

void SetDesignFonts(Halvern& halvern)
{
    for (int entry = 0; entry < halvern.FontFrm.FormOpt.Count(); ++entry)
        for (const auto& control : FontsOfForm(halvern, entry)) control.Set(DesignFont);
}

void SpreadFontsToStores(Halvern& halvern)
{
    halvern.PositionFrm.PosLst.SetFont(halvern.PositionFrm.ShPosLst.Font());
    halvern.StatusFrm.StatusLst.SetFont(halvern.StatusFrm.ShStatusLst.Font());
    halvern.DigiFrm.DigiLst.SetFont(halvern.DigiFrm.ShDigiLst.Font());
    halvern.TerminalFrm.RawPacketLst.SetFont(halvern.TerminalFrm.ShRawPacketLst.Font());
}

void PickFormFont(Halvern& halvern)
{
    const int entry = halvern.FontFrm.FormOpt.Selected();
    if (entry < 0) return;
    const auto controls = FontsOfForm(halvern, entry);
    const auto present = controls.empty() ? DesignFont : controls.front().Get();
    const auto font = halvern.Outside.dialogs.PickFont("Pick Your Font", present);
    if (!font) return;
    for (const auto& control : controls) control.Set(*font);
}

} // namespace halvern
