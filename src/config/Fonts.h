// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <variant>

#include "state/Halvern.h"

/// The fonts of the windows: rows stand in columns, so a window starts with a fixed-width face.
namespace halvern {

inline const Font DesignFont{"Monospace", 9};

/// A control that shows its text in a font of its own.
class FontedControl {
public:
    FontedControl(List& list) : control(&list) {}
    FontedControl(TextField& field) : control(&field) {}
    FontedControl(Grid& grid) : control(&grid) {}
    /// What the font is of, as the file and the window name it.
    const std::string& Name() const;
    Font Get() const;
    void Set(const Font& font) const;

private:
    std::variant<List*, TextField*, Grid*> control;
};

/// The controls whose fonts the settings file keeps, in its order.
std::array<FontedControl, 13> SavedFonts(Halvern& halvern);

/// The controls with a font on the form that `FontFrm.FormOpt` names.
std::vector<FontedControl> FontsOfForm(Halvern& halvern, int entry);

/// Gives every window the font that it starts with.
void SetDesignFonts(Halvern& halvern);

/// Gives each store the font of its list for display, which is the one that the settings file keeps.
void SpreadFontsToStores(Halvern& halvern);

/// Asks for a font and gives it to all controls of the chosen form.
void PickFormFont(Halvern& halvern);

} // namespace halvern
