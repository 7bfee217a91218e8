// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

/// What every control is: a value with a few operations and one or two event slots. It tells whoever watches it that it
/// changed: a window, a timer service, the console. Setting a control from code and from the screen is the same call.
/// Every control is found by its name, "Form.Control", in the directory of all.
namespace halvern {

class Control;
class Form;

/// What happened to a control; `row` only where a row is meant.
struct Change {
    enum What { Property, RowAdded, RowReplaced, RowRemoved, RowsCleared, Selection } what = Property;
    int row = -1;
};

/// One property of a control as a reader sees it: `quoted` for texts.
struct PropertyText {
    std::string_view name;
    std::string value;
    bool quoted = false;
};
using PropertyTexts = std::vector<PropertyText>;

PropertyText QuotedProperty(std::string_view name, const std::string& text);
PropertyText NumberProperty(std::string_view name, double number);
PropertyText FlagProperty(std::string_view name, bool flag);

/// Whose doing a handler is.
struct Doing {
    bool station = false;   ///< a packet, a timer or a port set it off: nobody may be sitting there to answer
    std::string_view about; ///< then: the call of the packet in hand, or the name of the timer or the port
};

/// All controls of the program, by name and in the order in which the forms declare them.
class Controls {
public:
    /// @return nullptr where there is no such control.
    Control* Find(std::string_view name) const;
    const std::vector<Control*>& All() const { return inOrder; }

    /// Runs what an event of the outside sets off. Whatever is thrown ends there: `OnFailure` is told, the program
    /// goes on. Everything that comes from outside (a click, a tick, bytes, a console line) comes through here.
    /// @param source  whose event it is; without one it is the operator's
    void Dispatch(const Control& source, const std::function<void()>& handler);
    void Dispatch(const std::function<void()>& handler);
    std::function<void(const std::exception&)> OnFailure; ///< gets what ended a handler

    /// Whose doing it is that runs now.
    const Doing& Present() const { return present; }

private:
    friend class Control;
    friend class StationActs;
    void Register(Control& control);
    void Run(const std::function<void()>& handler);
    Doing present;
    std::vector<Control*> inOrder;
    std::unordered_map<std::string_view, Control*> byName;
};

/// While it lives, what happens is the station's own doing, and about somebody. What that sets off in turn (a window
/// that comes up and redraws the map) stays the station's, since nothing that it does waits for the operator.
class StationActs {
public:
    /// @param about  must outlive this
    StationActs(Controls& all, std::string_view about) : controls(all), outer(std::exchange(all.present, {true, about}))
    {
    }
    ~StationActs() { controls.present = outer; }
    StationActs(const StationActs&) = delete;
    StationActs& operator=(const StationActs&) = delete;

private:
    Controls& controls;
    const Doing outer;
};

/// What each control of a form is: a name, enabled and shown or not, watched by the windows.
class Control {
public:
    using Watcher = std::function<void(const Change&)>;

    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    /// "Form.Control"; a form's own name has no dot.
    const std::string& Name() const { return name; }
    bool Enabled() const { return enabled; }
    void SetEnabled(bool value) { Put(enabled, value); }
    bool Visible() const { return visible; }
    void SetVisible(bool value) { Put(visible, value); }

    /// Has a function told of every change from now on. @return what Unwatch takes to end it.
    int Watch(Watcher watcher);
    /// Ends a watch. A number that is none does nothing.
    void Unwatch(int watch);

    /// What this kind of control has to show, in a fixed order.
    virtual PropertyTexts Describe() const;
    Controls& Directory() const { return *directory; }
    /// Its events come without anybody's doing: a timer, a port.
    virtual bool ActsByItself() const { return false; }

protected:
    Control(Controls& directory, std::string name);
    Control(Form& form, std::string_view name);

    void Tell(const Change& change) const;
    /// What Describe gives for a kind with properties of its own: those, then what every control has.
    PropertyTexts OwnFirst(PropertyTexts own) const;
    template <class Value, class Given> void Put(Value& place, const Given& value)
    {
        if (place == value) return;
        place = value;
        Tell({});
    }

private:
    Controls* directory;
    std::string name;
    bool enabled = true;
    bool visible = true;
    int lastWatch = 0;
    std::deque<std::pair<int, Watcher>> watchers; // a deque: a watcher may add another while it is told
};

/// Calls an event slot, if something is connected to it.
template <class... Arguments, class... Values>
void Fire(const std::function<void(Arguments...)>& slot, Values&&... values)
{
    if (slot) slot(std::forward<Values>(values)...);
}
using Event = std::function<void()>;

/// A typeface and its size in points. An empty face is the window's own choice.
struct Font {
    std::string face;
    double size = 0;
    bool operator==(const Font&) const = default;
};

} // namespace halvern
