// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Control.h"
#include "platform/Failure.h"

/// The kinds of controls that hold one value; lists and tables stand in Lists.h, windows in Form.h.
namespace halvern {

/// A text that the program shows.
class Label : public Control {
public:
    Label(Form& form, std::string_view name, std::string caption = "")
        : Control(form, name), caption(std::move(caption))
    {
    }
    const std::string& Caption() const { return caption; }
    void SetCaption(std::string_view text) { Put(caption, text); }
    PropertyTexts Describe() const override;

private:
    std::string caption;
};

/// A frame around other controls.
using Frame = Label;

/// A number with up and down buttons, shown as a caption.
class NumberLabel : public Label {
public:
    NumberLabel(Form& form, std::string_view name, int least, int most, std::string caption)
        : Label(form, name, std::move(caption)), least(least), most(most), width(static_cast<int>(Caption().size()))
    {
    }
    const int least, most;
    /// The number that it shows.
    int Number() const;
    /// Shows another number, in no fewer digits than the first one had.
    void SetNumber(int number);

private:
    const int width;
};

/// A text that can be clicked.
class Button : public Label {
public:
    using Label::Label;
    void Click() const { Fire(OnClick); }
    Event OnClick;
};

/// A menu item, or a button of a toolbar that can stay pressed.
class MenuItem : public Button {
public:
    using Button::Button;
    MenuItem(Form& form, std::string_view name, std::string caption, std::initializer_list<std::string_view> marks);
    bool Checked() const { return checked; }
    void SetChecked(bool value) { Put(checked, value); }
    PropertyTexts Describe() const override;

private:
    bool checked = false;
};

/// A text that the operator types. `longest` 0: any length.
class TextField : public Control {
public:
    TextField(Form& form, std::string_view name, std::string text = "", std::size_t longest = 0)
        : Control(form, name), longest(longest), text(std::move(text))
    {
    }
    const std::string& Text() const { return text; }
    /// Puts a text in, cut at the longest length, and runs `OnChange` if it differs.
    void SetText(std::string_view next);
    /// One key press: `OnKey` may change the character, or swallow it by making it 0; what remains is appended.
    /// Characters below 32 are never appended; 8 takes the last one away.
    void Press(int key);
    void Enter() const { Fire(OnEnter); }
    void Leave() const { Fire(OnLeave); }
    halvern::Font Font() const { return font; }
    void SetFont(const halvern::Font& next) { Put(font, next); }
    PropertyTexts Describe() const override;

    const std::size_t longest;
    Event OnChange, OnEnter, OnLeave;
    std::function<void(int& key)> OnKey;

private:
    std::string text;
    halvern::Font font;
};

/// One of n. `selected` -1: none is on.
class Choice : public Control {
public:
    Choice(Form& form, std::string_view name, std::initializer_list<std::string_view> entries, int selected = 0);
    int Count() const { return static_cast<int>(entries.size()); }
    const std::string& Entry(int index) const { return ElementOf(entries, index); }
    bool EntryEnabled(int index) const { return ElementOf(allowed, index); }
    /// Whether the operator may pick it.
    void SetEntryEnabled(int index, bool value);
    int Selected() const { return selected; }
    bool On(int index) const { return selected == index; }
    /// Turns an entry on; `OnClick` runs at a change. @throws RuntimeFailure for an entry that is not there.
    void Select(int index);
    void Preselect(int index) { Put(selected, index); }
    PropertyTexts Describe() const override;
    Event OnClick;

private:
    std::vector<std::string> entries;
    std::vector<bool> allowed;
    int selected;
};

/// A number on a scale: a slider, a needle.
class Gauge : public Control {
public:
    Gauge(Form& form, std::string_view name, double value = 0) : Control(form, name), value(value) {}
    double Value() const { return value; }
    void SetValue(double next) { Put(value, next); }
    PropertyTexts Describe() const override;

private:
    double value;
};

/// A timer. It runs while it is enabled and its interval is above 0; a change of either starts the wait anew.
class Timer : public Control {
public:
    Timer(Form& form, std::string_view name, int interval = 0, bool enabled = false);
    int Interval() const { return interval; }
    void SetInterval(int milliseconds) { Put(interval, milliseconds); }
    bool Running() const { return Enabled() && interval > 0; }
    /// Interval first, then enabled: the usual way to start.
    void Start(int milliseconds);
    /// Disabled, interval 0.
    void Stop();
    void Tick() const { Fire(OnTick); }
    bool ActsByItself() const override { return true; }
    PropertyTexts Describe() const override;
    Event OnTick;

private:
    int interval;
};

/// Controls of one name and an index: "Form.Name(7)". Indices run from `first`.
template <class Kind> class ControlArray {
public:
    template <class... Arguments>
    ControlArray(Form& form, std::string_view name, int first, std::initializer_list<std::string_view> captions,
                 Arguments... more)
        : first(first)
    {
        int index = first;
        for (const auto caption : captions)
            elements.emplace_back(form, std::string(name) + "(" + std::to_string(index++) + ")", std::string(caption),
                                  more...);
    }
    Kind& operator()(int index) { return ElementOf(elements, index - first); }
    const Kind& operator()(int index) const { return ElementOf(elements, index - first); }
    int First() const { return first; }
    int Last() const { return first + static_cast<int>(elements.size()) - 1; }

private:
    int first;
    std::deque<Kind> elements;
};

} // namespace halvern
