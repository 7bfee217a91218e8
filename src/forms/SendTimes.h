// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/RowsView.h"
#include "state/Halvern.h"

namespace halvern {

/// A list of the own objects, with a column in front that tells when each goes out next. The column is the window's
/// own: the list holds the records alone.
RowsView* MakeMyObjectRows(Halvern& halvern, List& list, QWidget* parent);

} // namespace halvern
