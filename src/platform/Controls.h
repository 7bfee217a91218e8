// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/Failure.h"
#include "platform/KeyIndex.h"

/// The kinds of controls. A control is a value with a few operations and one or two event slots. It tells whoever
/// watches it that it changed: a window, a timer service, the console. Setting a control from code and from the
/// screen is the same call. Every control is found by its name, "Form.Control".
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

/// A typeface and its size in points. An empty face is the window's own choice.
struct Font {
    std::string face;
    double size = 0;
    bool operator==(const Font&) const = default;
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

enum class ListStyle { Rows, Combo, TypedCombo, MultiRows };

/// An ordered sequence of text rows with a selected index: a store, a list, or a combo.
///
/// Indices are 0-based. Every access to a row that is not there raises a RuntimeFailure.
class List : public Control {
public:
    List(Form& form, std::string_view name, ListStyle style = ListStyle::Rows,
         std::initializer_list<std::string_view> rows = {}, int selected = -1);
    List(Form& form, std::string_view name, ListStyle style, std::span<const std::string_view> rows, int selected = -1);

    int Count() const { return static_cast<int>(rows.size()); }
    const std::string& Row(int index) const;
    /// Puts a row at the end, or before the row of an index. The selection stays with its row.
    void Add(std::string_view row);
    void Insert(std::string_view row, int index);
    /// Takes a row out; if it was the selected one none is.
    void Remove(int index);
    /// Takes out every row whose index `gone` says so of, in one pass. Watchers hear of it row by row when all are out.
    void RemoveIf(const std::function<bool(int index)>& gone);
    /// Takes the row out and puts another in its place; the selection stays.
    void Replace(int index, std::string_view row);
    /// Takes every row out; none is selected.
    void Clear();
    /// Becomes a copy of another list's rows.
    void CopyRows(const List& other);

    int Selected() const { return selected; }
    /// Selects a row, -1 for none. `OnClick` runs if that changed the selection. @throws RuntimeFailure.
    void Select(int index);
    /// Selects without the click, for a start value.
    void Preselect(int index);
    /// What a click of the operator does: selects; a list runs `OnClick` each time, a combo only at a change.
    void Click(int index);

    /// The selected row; in a combo with typing what was typed.
    const std::string& Text() const { return text; }
    /// Typing: the text goes in, the row that equals it is selected, `OnChange` runs.
    void SetText(std::string_view next);
    /// A key of the operator's, by its character code.
    void Press(int key);
    void Leave() const { Fire(OnLeave); }

    /// Rows that are picked together, in a list that takes several. Marks go with their rows.
    bool Marked(int index) const;
    void Mark(int index, bool marked);
    void ClearMarks();

    /// Index of the first row that equals a text, or NotFound.
    int IndexOf(std::string_view row) const;

    halvern::Font Font() const { return font; }
    void SetFont(const halvern::Font& next) { Put(font, next); }
    PropertyTexts Describe() const override;

    const ListStyle style;
    Event OnClick, OnChange, OnLeave;
    std::function<void(int& key)> OnKey;

protected:
    /// For a list that finds its rows by a key: a row is about to become another one, has come, is gone.
    virtual void Keyed(int, std::string_view) {}
    virtual void KeyInserted(int, std::string_view) {}
    virtual void KeyRemoved(int) {}
    virtual void KeysCleared() {}

private:
    void Require(int index, int bound) const;
    void NoteRemoved(int index);
    std::vector<std::string> rows;
    std::vector<bool> marks;
    int selected = -1;
    std::string text;
    halvern::Font font;
};

/// What a keyed list finds a row by.
using KeyOfRow = std::string (*)(std::string_view row);
/// Columns 1-9: the call field.
std::string CallColumns(std::string_view row);

/// A store whose rows are found by a key.
class KeyedList : public List {
public:
    KeyedList(Form& form, std::string_view name, ListStyle style = ListStyle::Rows, KeyOfRow keyOf = CallColumns)
        : List(form, name, style), keyOf(keyOf)
    {
    }
    /// The first row of a key, or NotFound. The cost does not grow with the rows.
    int Find(std::string_view key) const { return keys.Find(key); }
    /// The rows of the row's key, first to last, until `visit` says true. @return the index of that row, or NotFound.
    int FindAlike(std::string_view row, const std::function<bool(int index)>& visit) const;

protected:
    void Keyed(int index, std::string_view row) override
    {
        if (const auto key = keyOf(row); key != keyOf(Row(index))) keys.Replace(index, key);
    }
    void KeyInserted(int index, std::string_view row) override { keys.Insert(index, keyOf(row)); }
    void KeyRemoved(int index) override { keys.Remove(index); }
    void KeysCleared() override { keys.Clear(); }

private:
    KeyOfRow keyOf;
    KeyIndex keys;
};

/// A list of the folders or files in one place.
class FolderList : public List {
public:
    using List::List;
    const std::string& Path() const { return path; }
    /// The owner fills the rows again in `OnPath`.
    void SetPath(const std::string& next)
    {
        if (path == next) return;
        path = next;
        Fire(OnPath);
    }
    Event OnPath;

private:
    std::string path;
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

/// A table of texts. Row 0 is the header. Cells are 0-based; a cell that is not there raises a RuntimeFailure.
class Grid : public Control {
public:
    Grid(Form& form, std::string_view name) : Control(form, name), columns(2) { SetSize(2, 2); }
    int Rows() const { return rows; }
    int Cols() const { return static_cast<int>(columns.size()); }
    const std::string& Cell(int row, int column) const;
    void SetCell(int row, int column, std::string_view text);
    /// Cells that remain keep their text; new ones are empty.
    void SetSize(int rows, int columns);
    /// Puts a row at the end with a text in its first cell.
    void AddRow(std::string_view first);
    void AddColumn() { SetSize(rows, Cols() + 1); }
    /// Empties every cell; the size stays.
    void Clear();
    /// The first row at or behind `from` whose first cell equals a text, or NotFound.
    int FindRow(std::string_view text, int from) const;
    halvern::Font Font() const { return font; }
    void SetFont(const halvern::Font& next) { Put(font, next); }
    PropertyTexts Describe() const override;

private:
    void Require(int row, int column) const;
    halvern::Font font;
    int rows = 0;
    std::vector<std::vector<std::string>> columns;
    KeyIndex keys;
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
