// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "state/Halvern.h"

/// The dialogs of the own objects. Each menu item opens its dialog and waits until it has hidden; the dialog's OK
/// button checks what was given, tells the first mistake and stays open, or does the work.
namespace halvern {

/// Asks for a new object and its path, and begins to send it.
void CreateObject(Halvern& halvern);
/// Asks for the path next. A name that is being sent already ends the creation; what was typed stays for another try.
void AcceptObject(Halvern& halvern);
/// The dialog as it comes up: nothing filled in, no symbol picked.
void ClearObject(CreateObjectsForm& form);

/// Lists the own objects; a moved one goes out at once.
void OpenMoveObject(Halvern& halvern);
/// The picked object's place, into the fields.
void ShowPickedObject(MoveMyObjectForm& form);
/// Puts the picked object where the fields say. A fault in them is told, and nothing moves.
void MoveObject(Halvern& halvern);

/// Lists the own objects; a killed one goes out at once.
void OpenKillObject(Halvern& halvern);
/// Sends the picked object as killed from now on. One that is killed already is told.
void KillObject(Halvern& halvern);

/// Lists the own objects.
void OpenStopObject(Halvern& halvern);
/// Forgets the picked object: others keep it until they let it go themselves.
void StopObject(Halvern& halvern);

/// Lists the objects of other stations.
void OpenTakeOver(Halvern& halvern);
/// Goes on as with a new object that has its name already.
void TakeOverObject(Halvern& halvern);

/// What course and speed mean.
void TellCourseAndSpeed(Halvern& halvern);

} // namespace halvern
