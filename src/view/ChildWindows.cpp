// SPDX-License-Identifier: GPL-3.0-or-later
#include "view/ChildWindows.h"

#include <algorithm>
#include <vector>

namespace halvern {
namespace {

/// What comes and goes with a window.
std::vector<Control*> Companions(Halvern& halvern, int window)
{
    auto& main = halvern.ConMdiFrm;
    switch (window) {
    case 1:
        return {&main.MapMenu, &main.Toolbar1};
    case 2:
        return {&main.PosMenu};
    case 5:
        return {&main.MailMenu};
    default:
        return {};
    }
}

void UpdateWindowMenus(MainForm& main)
{
    const bool any = std::any_of(main.FrmState.begin(), main.FrmState.end(),
                                 [](const std::string& state) { return state == "True"; });
    main.WindowMenu.SetVisible(any);
    main.RefreshMnu.SetVisible(any);
}

} // namespace

std::array<Form*, ChildWindows + 1> RememberedWindows(Halvern& halvern)
{
    return {&halvern.SetUpfrm, &halvern.MapFrm,     &halvern.PositionFrm, &halvern.StatusFrm,
            &halvern.DigiFrm,  &halvern.MessageFrm, &halvern.HeardFrm,    &halvern.TerminalFrm,
            &halvern.DxFrm,    &halvern.WeatherFrm, &halvern.TelemetryFrm};
}

Form& ChildWindow(Halvern& halvern, int window)
{
    const auto windows = RememberedWindows(halvern);
    return *ElementOf(windows, window);
}

void SetWindowOn(Halvern& halvern, int window, bool on)
{
    auto& main = halvern.ConMdiFrm;
    main.FrmMenu(window).SetChecked(on);
    ElementOf(main.FrmState, window) = on ? "True" : "False";
    UpdateWindowMenus(main);
    for (auto* companion : Companions(halvern, window)) companion->SetVisible(on);
    auto& form = ChildWindow(halvern, window);
    on ? form.Show() : form.Hide();
}

void ToggleGateWindow(Halvern& halvern)
{
    auto& item = halvern.ConMdiFrm.GateMenu;
    item.SetChecked(!item.Checked());
    item.Checked() ? halvern.GateFrm.Show() : halvern.GateFrm.Hide();
}

} // namespace halvern
