// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/Bulletins.h"

#include "platform/Text.h"
#include "state/Rows.h"

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

bool FileBulletin(KeyedList& store, std::string_view row)
{
    const auto text = SameText(row);
    if (store.FindAlike(row, [&](int i) { return SameText(store.Row(i)) == text; }) != NotFound) return false;
    const Bulletin fresh(row);
    int lastOfSource = NotFound;
    const int place = store.FindAlike(row, [&](int i) {
        const Bulletin stored(store.Row(i));
        if (stored.source != fresh.source) return false;
        lastOfSource = i;
        return stored.addressee == fresh.addressee || Before(fresh, stored);
    });
    if (place == NotFound)
        store.Insert(row, lastOfSource == NotFound ? store.Count() : lastOfSource + 1);
    else if (Bulletin(store.Row(place)).addressee == fresh.addressee)
        store.Replace(place, row);
    else
        store.Insert(row, place);
    return true;
}

} // namespace halvern
