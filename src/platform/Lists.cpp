// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Lists.h"

#include <algorithm>
#include <cstring>

#include "platform/Failure.h"
#include "platform/Form.h"
#include "platform/Text.h"

namespace halvern {

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
    return OwnFirst(
        {QuotedProperty("text", text), NumberProperty("count", Count()), NumberProperty("selected", selected)});
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
    return OwnFirst({NumberProperty("count", rows)});
}

} // namespace halvern
