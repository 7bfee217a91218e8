// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "protocol/MyObject.h"
#include "state/Halvern.h"

/// The objects that the station sends: `MyObjectLst` has their records, `TransmitLst` at the same index the stage of
/// each, `MyObjectTimer` the stage that is served next.
namespace halvern {

/// Row of the object of this name, or NotFound. @param name  is made to fit the name's columns
int FindMyObject(const Halvern& halvern, std::string_view name);

/// Puts a new object behind the others; it is due first.
void AddMyObject(Halvern& halvern, const MyObject& object);
/// Gives the object of a row a new record, by which it is due first again.
void ChangeMyObject(Halvern& halvern, int index, const std::string& record);
/// Sends an object no more. Nothing is said on the air. The last one takes the timer's work.
void RemoveMyObject(Halvern& halvern, int index);

/// `MyObjectTimer` has run out: the objects of the stage at hand go to the own stores and out on every open port.
void ObjectTick(Halvern& halvern);

} // namespace halvern
