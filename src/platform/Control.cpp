// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Control.h"

#include <algorithm>

#include "platform/Failure.h"
#include "platform/Form.h"
#include "platform/Text.h"

namespace halvern {

PropertyText QuotedProperty(std::string_view name, const std::string& text)
{
    return {name, text, true};
}

PropertyText NumberProperty(std::string_view name, double number)
{
    return {name, ConsoleNumber(number), false};
}

PropertyText FlagProperty(std::string_view name, bool flag)
{
    return {name, flag ? "yes" : "no", false};
}

Control* Controls::Find(std::string_view name) const
{
    const auto found = byName.find(name);
    return found == byName.end() ? nullptr : found->second;
}

void Controls::Dispatch(const Control& source, const std::function<void()>& handler)
{
    if (!source.ActsByItself()) return Dispatch(handler);
    const StationActs station(*this, source.Name());
    Run(handler);
}

void Controls::Dispatch(const std::function<void()>& handler)
{
    Run(handler);
}

void Controls::Run(const std::function<void()>& handler)
{
    try {
        handler();
    } catch (const std::exception& thrown) {
        if (OnFailure) OnFailure(thrown);
    }
}

void Controls::Register(Control& control)
{
    inOrder.push_back(&control);
    byName.emplace(control.Name(), &control);
}

Control::Control(Controls& directory, std::string name) : directory(&directory), name(std::move(name))
{
    directory.Register(*this);
}

Control::Control(Form& form, std::string_view name) : Control(form.Directory(), form.Name() + "." + std::string(name))
{
}

int Control::Watch(Watcher watcher)
{
    watchers.emplace_back(++lastWatch, std::move(watcher));
    return lastWatch;
}

void Control::Unwatch(int watch)
{
    for (auto& entry : watchers)
        if (entry.first == watch) entry.second = nullptr; // kept as a hole: its own call may be running
}

void Control::Tell(const Change& change) const
{
    for (std::size_t i = 0; i < watchers.size(); ++i)
        if (watchers[i].second) watchers[i].second(change);
}

PropertyTexts Control::Describe() const
{
    return {FlagProperty("enabled", enabled), FlagProperty("visible", visible)};
}

PropertyTexts Control::OwnFirst(PropertyTexts own) const
{
    const auto rest = Control::Describe();
    own.insert(own.end(), rest.begin(), rest.end());
    return own;
}

} // namespace halvern
