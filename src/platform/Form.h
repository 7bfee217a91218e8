// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Control.h"

namespace halvern {

inline constexpr int TwipsPerPixel = 15;

/// Where a window stands: in twips, 15 to a pixel of an ordinary screen. `state`: 0 normal, 1 minimised, 2 maximised.
struct Place {
    int height = 3600;
    int left = 0;
    int top = 0;
    int width = 4800;
    int state = 0;
    static constexpr int Minimised = 1;
    bool operator==(const Place&) const = default;
};

/// A window. Visible means shown; forms start hidden.
class Form : public Control {
public:
    Form(Controls& directory, std::string name, std::string caption);

    const std::string& Caption() const { return caption; }
    void SetCaption(std::string_view text) { Put(caption, text); }
    const halvern::Place& Place() const { return place; }
    /// Moves or sizes the window; `OnResize` runs if its size or its state changed.
    void SetPlace(const halvern::Place& where);
    /// Inner size in pixels: what the window has told last, or what the place gives where there is no window.
    int ClientWidth() const { return clientWidth > 0 ? clientWidth : place.width / TwipsPerPixel; }
    int ClientHeight() const { return clientHeight > 0 ? clientHeight : place.height / TwipsPerPixel; }
    /// What a real window tells whenever its inner size changes; `OnResize` runs.
    void SetClientSize(int width, int height);

    /// Brings the form up: loads it at the first time (`OnLoad`), shows it, sizes it (`OnResize`), then runs
    /// `OnActivate`.
    void Show();
    void Hide() { SetVisible(false); }
    /// Hides the form and lets the next Show load it anew.
    void Unload();
    bool Loaded() const { return loaded; }
    /// Runs `OnLoad` unless the form is loaded already; shows nothing.
    void Load();
    PropertyTexts Describe() const override;

    Event OnLoad, OnActivate, OnUnload, OnResize;
    /// The operator pressed the close box. Without a handler the form unloads.
    Event OnCloseBox;
    /// What the operator's press of the close box does.
    void PressCloseBox();

private:
    std::string caption;
    halvern::Place place;
    int clientWidth = 0, clientHeight = 0;
    bool loaded = false;
};

} // namespace halvern
