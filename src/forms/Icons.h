// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPalette>

namespace halvern {

/// One of our line icons, by its name, in the text colour of a palette and, disabled, in its greyed one.
QIcon LineIcon(const QString& name, const QPalette& palette);

/// The program's own icon.
QIcon ProgramIcon();

} // namespace halvern
