// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/Bulletins.h"

#include <algorithm>

#include "platform/Text.h"

namespace halvern {
namespace {

struct Bulletin {
    std::string_view source, addressee;
    explicit Bulletin(std::string_view row)
    {
        const auto arrow = PositionOf(row, '>');
        const auto colon = PositionOf(row, ':', arrow + 1);
        source = Columns(row, 1, arrow == 0 ? 0 : arrow - 1);
        addressee = Columns(row, arrow + 1, colon == 0 ? 0 : colon - arrow - 1);
    }
    std::string_view Identifier() const { return Columns(addressee, 4); }
    bool Lettered() const { return static_cast<unsigned char>(ColumnAt(addressee, 4)) > 64; }
};

/// Lettered bulletins go by letter, numbered ones by number; a letter and a number are not compared.
bool Before(const Bulletin& one, const Bulletin& other)
{
    if (one.Lettered() && other.Lettered()) return one.addressee < other.addressee;
    if (one.Lettered() || other.Lettered()) return false;
    return LeadingNumber(one.Identifier()) < LeadingNumber(other.Identifier());
}

} // namespace

int FindSameRow(const List& store, std::string_view row)
{
    const auto alike = [](char a, char b) { return UpperCase(a) == UpperCase(b); };
    for (int i = 0; i < store.Count(); ++i) {
        const auto& stored = store.Row(i);
        if (stored.size() == row.size() && std::equal(stored.begin(), stored.end(), row.begin(), alike)) return i;
    }
    return NotFound;
}

bool FileBulletin(List& store, std::string_view row)
{
    if (FindSameRow(store, row) != NotFound) return false;
    const Bulletin fresh(row);
    int lastOfSource = NotFound;
    for (int i = 0; i < store.Count(); ++i) {
        const Bulletin stored(store.Row(i));
        if (stored.source != fresh.source) continue;
        lastOfSource = i;
        if (stored.addressee == fresh.addressee) {
            store.Replace(i, row);
            return true;
        }
        if (Before(fresh, stored)) {
            store.Insert(row, i);
            return true;
        }
    }
    store.Insert(row, lastOfSource == NotFound ? store.Count() : lastOfSource + 1);
    return true;
}

} // namespace halvern
