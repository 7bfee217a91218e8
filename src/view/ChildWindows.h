// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "state/Halvern.h"

/// The child windows of the View menu. They are shown and hidden, and keep their stores meanwhile.
namespace halvern {

inline constexpr int ChildWindows = 10;
inline constexpr int WeatherWindow = 9;

/// Window 1 to 10, in the order of the View menu.
Form& ChildWindow(Halvern& halvern, int window);

/// The windows whose places are remembered, in the order of the settings file: setup, then windows 1 to 10.
std::array<Form*, ChildWindows + 1> RememberedWindows(Halvern& halvern);

/// Switches a child window on or off: its check mark, its state, its own menu, and the window itself.
void SetWindowOn(Halvern& halvern, int window, bool on);

/// Shows the gate's window, or hides it; its entry in the View menu bears the mark. It is none of the ten.
void ToggleGateWindow(Halvern& halvern);

} // namespace halvern
