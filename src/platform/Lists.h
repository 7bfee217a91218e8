// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Control.h"
#include "platform/KeyIndex.h"

/// The controls that hold rows of text: stores, lists, combos and tables.
namespace halvern {

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
    /// @throws RuntimeFailure where there is no such row.
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

    /// The selected index, -1 for none.
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
    /// The folder whose entries the rows are.
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

/// A table of texts. Row 0 is the header. Cells are 0-based; a cell that is not there raises a RuntimeFailure.
class Grid : public Control {
public:
    Grid(Form& form, std::string_view name) : Control(form, name), columns(2) { SetSize(2, 2); }
    /// Size, the header row counted.
    int Rows() const { return rows; }
    int Cols() const { return static_cast<int>(columns.size()); }
    /// @throws RuntimeFailure where there is no such cell.
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

} // namespace halvern
