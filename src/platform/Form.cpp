// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Form.h"

#include <tuple>

namespace halvern {

Form::Form(Controls& directory, std::string name, std::string caption)
    : Control(directory, std::move(name)), caption(std::move(caption))
{
    SetVisible(false);
}

void Form::SetPlace(const halvern::Place& where)
{
    const auto sizeOf = [](const halvern::Place& any) { return std::tuple(any.width, any.height, any.state); };
    const bool resized = sizeOf(where) != sizeOf(place);
    Put(place, where);
    if (resized) Fire(OnResize);
}

void Form::SetClientSize(int width, int height)
{
    if (width == clientWidth && height == clientHeight) return;
    clientWidth = width;
    clientHeight = height;
    Tell({});
    Fire(OnResize);
}

void Form::Load()
{
    if (loaded) return;
    loaded = true;
    Fire(OnLoad);
}

void Form::Show()
{
    const bool fresh = !loaded;
    Load();
    if (!loaded) return; // its own loading closed it again
    SetVisible(true);
    if (fresh) Fire(OnResize); // a window gets its size when it first comes up
    Fire(OnActivate);
}

void Form::Unload()
{
    Hide();
    if (!loaded) return;
    loaded = false;
    Fire(OnUnload);
}

void Form::PressCloseBox()
{
    if (OnCloseBox)
        OnCloseBox();
    else
        Unload();
}

PropertyTexts Form::Describe() const
{
    return OwnFirst({QuotedProperty("caption", caption)});
}

} // namespace halvern
