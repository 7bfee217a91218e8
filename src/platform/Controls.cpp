// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Controls.h"

#include <algorithm>
#include <cstring>
#include <tuple>

#include "platform/Text.h"

namespace halvern {
namespace {

PropertyText Quoted(std::string_view name, const std::string& text)
{
    return {name, text, true};
}

PropertyText Number(std::string_view name, double number)
{
    return {name, ConsoleNumber(number), false};
}

PropertyText Flag(std::string_view name, bool flag)
{
    return {name, flag ? "yes" : "no", false};
}

} // namespace

// --- the directory ---------------------------------------------------------------------------------------------------

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

// --- what all controls share -----------------------------------------------------------------------------------------

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
    return {Flag("enabled", enabled), Flag("visible", visible)};
}

static PropertyTexts Before(PropertyTexts first, PropertyTexts rest)
{
    first.insert(first.end(), rest.begin(), rest.end());
    return first;
}

// --- forms, labels, menus --------------------------------------------------------------------------------------------

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
    return Before({Quoted("caption", caption)}, Control::Describe());
}

PropertyTexts Label::Describe() const
{
    return Before({Quoted("caption", caption)}, Control::Describe());
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
    return Before({Quoted("caption", Caption()), Flag("checked", checked)}, Control::Describe());
}

// --- text fields -----------------------------------------------------------------------------------------------------

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
    return Before({Quoted("text", text)}, Control::Describe());
}

// --- lists -----------------------------------------------------------------------------------------------------------

List::List(Form& form, std::string_view name, ListStyle style, std::initializer_list<std::string_view> start,
           int selected)
    : List(form, name, style, std::span(start.begin(), start.size()), selected)
{
}

List::List(Form& form, std::string_view name, ListStyle style, std::span<const std::string_view> start, int selected)
    : Control(form, name), style(style), rows(start.begin(), start.end()), marks(start.size())
{
    if (selected >= 0) Preselect(selected);
}

void List::Require(int index, int bound) const
{
    if (index < 0 || index >= bound) NoSuchRow();
}

const std::string& List::Row(int index) const
{
    Require(index, Count());
    return rows[index];
}

void List::Add(std::string_view row)
{
    Insert(row, Count());
}

void List::Insert(std::string_view row, int index)
{
    Require(index, Count() + 1);
    rows.emplace(rows.begin() + index, row);
    marks.insert(marks.begin() + index, false);
    KeyInserted(index, row);
    if (selected >= index) ++selected;
    Tell({Change::RowAdded, index});
}

void List::Remove(int index)
{
    Require(index, Count());
    rows.erase(rows.begin() + index);
    marks.erase(marks.begin() + index);
    NoteRemoved(index);
    Tell({Change::RowRemoved, index});
}

void List::RemoveIf(const std::function<bool(int index)>& gone)
{
    std::vector<int> removed; // each as it stands once those before it are out
    int kept = 0;
    for (int index = 0; index < Count(); ++index) {
        if (gone(index)) {
            removed.push_back(kept);
            continue;
        }
        if (kept != index) rows[kept] = std::move(rows[index]);
        marks[kept++] = marks[index];
    }
    rows.resize(kept);
    marks.resize(kept);
    for (const int index : removed) NoteRemoved(index);
    for (const int index : removed) Tell({Change::RowRemoved, index});
}

void List::NoteRemoved(int index)
{
    KeyRemoved(index);
    if (selected == index) {
        selected = -1;
        text.clear();
    } else if (selected > index) {
        --selected;
    }
}

void List::Replace(int index, std::string_view row)
{
    Require(index, Count());
    Keyed(index, row);
    rows[index] = row;
    if (selected == index) text = row;
    Tell({Change::RowReplaced, index});
}

void List::Clear()
{
    rows.clear();
    marks.clear();
    KeysCleared();
    selected = -1;
    text.clear();
    Tell({Change::RowsCleared});
}

void List::CopyRows(const List& other)
{
    Clear();
    for (const auto& row : other.rows) Add(row);
}

void List::Preselect(int index)
{
    if (index != -1) Require(index, Count());
    selected = index;
    text = index == -1 ? std::string{} : rows[index];
    Tell({Change::Selection, index});
}

void List::Select(int index)
{
    if (index == selected) return;
    Preselect(index);
    Fire(OnClick);
}

void List::Click(int index)
{
    const bool combo = style == ListStyle::Combo || style == ListStyle::TypedCombo;
    if (index != selected) return Select(index);
    if (!combo && index != -1) Fire(OnClick);
}

void List::SetText(std::string_view next)
{
    if (next == text) return;
    const int row = IndexOf(next);
    selected = row == NotFound ? -1 : row;
    text = next;
    Tell({Change::Selection, selected});
    Fire(OnChange);
}

void List::Press(int key)
{
    Fire(OnKey, key);
    if (style != ListStyle::TypedCombo) return;
    if (key == 8 && !text.empty()) SetText(std::string(text, 0, text.size() - 1));
    if (key >= 32 && key <= 255) SetText(text + static_cast<char>(key));
}

bool List::Marked(int index) const
{
    Require(index, Count());
    return marks[index];
}

void List::Mark(int index, bool marked)
{
    Require(index, Count());
    marks[index] = marked;
    Tell({Change::Selection, index});
}

void List::ClearMarks()
{
    marks.assign(rows.size(), false);
    Tell({Change::Selection, -1});
}

int List::IndexOf(std::string_view row) const
{
    const auto found = std::find(rows.begin(), rows.end(), row);
    return found == rows.end() ? NotFound : static_cast<int>(found - rows.begin());
}

PropertyTexts List::Describe() const
{
    return Before({Quoted("text", text), Number("count", Count()), Number("selected", selected)}, Control::Describe());
}

std::string CallColumns(std::string_view row)
{
    return std::string(row.substr(0, 9));
}

int KeyedList::FindAlike(std::string_view row, const std::function<bool(int index)>& visit) const
{
    const auto key = keyOf(row);
    int left = keys.Count(key);
    for (int index = keys.Find(key); left > 0; ++index) {
        if (keyOf(Row(index)) != key) continue;
        if (visit(index)) return index;
        --left;
    }
    return NotFound;
}

// --- choices, gauges, timers, grids ----------------------------------------------------------------------------------

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
    return Before({Number("selected", selected)}, Control::Describe());
}

PropertyTexts Gauge::Describe() const
{
    return Before({Number("value", value)}, Control::Describe());
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
    return {Number("interval", interval), Flag("enabled", Enabled())};
}

void Grid::Require(int row, int column) const
{
    if (row < 0 || row >= rows || column < 0 || column >= Cols()) NoSuchRow();
}

const std::string& Grid::Cell(int row, int column) const
{
    Require(row, column);
    return columns[column][row];
}

void Grid::SetCell(int row, int column, std::string_view text)
{
    Require(row, column);
    auto& cell = columns[column][row];
    if (cell == text) return;
    cell = text;
    if (column == 0) keys.Replace(row, text);
    Tell({Change::RowReplaced, row});
}

void Grid::SetSize(int newRows, int newColumns)
{
    columns.resize(newColumns);
    for (auto& column : columns) column.resize(newRows);
    while (rows < newRows) keys.Insert(rows++, "");
    while (rows > newRows) keys.Remove(--rows);
    Tell({});
}

void Grid::AddRow(std::string_view first)
{
    for (auto& column : columns) column.emplace_back();
    columns[0].back() = first;
    keys.Insert(rows++, first);
    Tell({});
}

void Grid::Clear()
{
    for (auto& column : columns) column.assign(rows, "");
    for (int row = 0; row < rows; ++row) keys.Replace(row, "");
    Tell({Change::RowsCleared});
}

int Grid::FindRow(std::string_view text, int from) const
{
    return keys.Find(text, from);
}

PropertyTexts Grid::Describe() const
{
    return Before({Number("count", rows)}, Control::Describe());
}

} // namespace halvern
