// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The dialogs of the own objects. Each menu item opens its dialog and waits until it has hidden; the dialog's OK
/// button checks what was given, tells the first mistake and stays open, or does the work.
namespace halvern {

void CreateObject(Halvern& halvern);
/// Asks for the path next. A name that is being sent already ends the creation; what was typed stays for another try.
void AcceptObject(Halvern& halvern);
/// The dialog as it comes up: nothing filled in, no symbol picked.
void ClearObject(CreateObjectsForm& form);

void OpenMoveObject(Halvern& halvern);
/// The picked object's place, into the fields.
void ShowPickedObject(MoveMyObjectForm& form);
void MoveObject(Halvern& halvern);

void OpenKillObject(Halvern& halvern);
void KillObject(Halvern& halvern);

void OpenStopObject(Halvern& halvern);
void StopObject(Halvern& halvern);

/// Lists the objects of other stations.
void OpenTakeOver(Halvern& halvern);
/// Goes on as with a new object that has its name already.
void TakeOverObject(Halvern& halvern);

/// What course and speed mean.
void TellCourseAndSpeed(Halvern& halvern);

} // namespace halvern
