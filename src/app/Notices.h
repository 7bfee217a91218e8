// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The notices: what the station had to say while nobody may have been sitting there. Each text stands once, with how
/// often and when it was told last, and about whom.
namespace halvern {

/// Files a notice; what `halvern.OnNotice` runs. Where there were none the window comes up, without taking the keys
/// away; later ones are counted on the status bar.
void FileNotice(Halvern& halvern, const Notice& notice);

/// Shows the notices or hides them.
void ShowNotices(Halvern& halvern, bool on);
/// Puts the selected notice into the field below the list, in full.
void ReadNotice(NoticesForm& form);
/// Empties the list and its mark on the status bar.
void ClearNotices(Halvern& halvern);

} // namespace halvern
