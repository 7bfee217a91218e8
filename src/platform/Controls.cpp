// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Controls.h"

#include <algorithm>

#include "platform/Form.h"
#include "platform/Text.h"

namespace halvern {

PropertyTexts Label::Describe() const
{
    return OwnFirst({QuotedProperty("caption", caption)});
}

int NumberLabel::Number() const
{
    return static_cast<int>(LeadingNumber(Caption()));
}

void NumberLabel::SetNumber(int number)
{
    SetCaption(ZeroFilled(number, width));
}

MenuItem::MenuItem(Form& form, std::string_view name, std::string caption,
                   std::initializer_list<std::string_view> marks)
    : Button(form, name, std::move(caption))
{
    for (const auto mark : marks) {
        if (mark == "disabled") SetEnabled(false);
        if (mark == "hidden") SetVisible(false);
        if (mark == "checked") SetChecked(true);
    }
}

PropertyTexts MenuItem::Describe() const
{
    return OwnFirst({QuotedProperty("caption", Caption()), FlagProperty("checked", checked)});
}

void TextField::SetText(std::string_view next)
{
    if (longest != 0) next = next.substr(0, longest);
    if (next == text) return;
    text = next;
    Tell({});
    Fire(OnChange);
}

void TextField::Press(int key)
{
    Fire(OnKey, key);
    if (key == 8 && !text.empty()) SetText(text.substr(0, text.size() - 1));
    if (key >= 32 && key <= 255) SetText(text + static_cast<char>(key));
}

PropertyTexts TextField::Describe() const
{
    return OwnFirst({QuotedProperty("text", text)});
}

Choice::Choice(Form& form, std::string_view name, std::initializer_list<std::string_view> start, int selected)
    : Control(form, name), entries(start.begin(), start.end()), allowed(start.size(), true), selected(selected)
{
}

void Choice::SetEntryEnabled(int index, bool value)
{
    if (EntryEnabled(index) == value) return;
    allowed[index] = value;
    Tell({});
}

void Choice::Select(int index)
{
    if (index < -1 || index >= Count()) NoSuchRow();
    if (index == selected) return;
    selected = index;
    Tell({Change::Selection, index});
    Fire(OnClick);
}

PropertyTexts Choice::Describe() const
{
    return OwnFirst({NumberProperty("selected", selected)});
}

PropertyTexts Gauge::Describe() const
{
    return OwnFirst({NumberProperty("value", value)});
}

Timer::Timer(Form& form, std::string_view name, int interval, bool enabled) : Control(form, name), interval(interval)
{
    SetEnabled(enabled);
}

void Timer::Start(int milliseconds)
{
    SetInterval(milliseconds);
    SetEnabled(true);
}

void Timer::Stop()
{
    SetEnabled(false);
    SetInterval(0);
}

PropertyTexts Timer::Describe() const
{
    return {NumberProperty("interval", interval), FlagProperty("enabled", Enabled())};
}

} // namespace halvern
