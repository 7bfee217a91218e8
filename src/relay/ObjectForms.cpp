// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/ObjectForms.h"

#include <algorithm>
#include <utility>

#include "platform/Text.h"
#include "protocol/UtcTime.h"
#include "relay/Objects.h"
#include "transmit/OwnTexts.h"

namespace halvern {
namespace {

constexpr char ObjectType = ';';
constexpr const char* NoSymbol = "NONE";
constexpr const char* NoOverlay = " ";

/// True once for a dialog that ended in something to send.
bool TakeDialogOk(MainForm& main)
{
    return std::exchange(main.ObjectDialogOk, false);
}

void ShowDialog(Halvern& halvern, Form& form)
{
    halvern.ConMdiFrm.ObjectDialogOk = false;
    halvern.Outside.dialogs.ShowModal(form);
}

/// Tells what is wrong, if anything is. @return whether nothing is.
bool NoFault(Halvern& halvern, const std::string& fault)
{
    if (!fault.empty()) halvern.Tell(Icon::None, fault);
    return fault.empty();
}

std::string PlaceFault(const ObjectFieldsForm& form)
{
    return PositionFault(form.Texts(), " first.");
}

// --- fields ----------------------------------------------------------------------------------------------------------

ObjectPlace PlaceIn(const ObjectFieldsForm& form)
{
    return {form.Texts(), form.ObjectCourselbl.Number(), form.ObjectSpeedlbl.Number(), form.CommentTXT.Text()};
}

/// What was heard may be past what a control can show.
void PutNumber(NumberLabel& label, int number)
{
    label.SetNumber(std::clamp(number, label.least, label.most));
}

void PutPlace(ObjectFieldsForm& form, const ObjectPlace& place)
{
    form.SetTexts(place.position);
    PutNumber(form.ObjectCourselbl, place.course);
    PutNumber(form.ObjectSpeedlbl, place.speed);
    form.CommentTXT.SetText(place.comment);
}

/// A table that is neither of the two is an overlay character.
void PutSymbol(CreateObjectsForm& form, char table, char code)
{
    const bool overlaid = table != '/' && table != '\\';
    form.OverlayChar = overlaid ? std::string(1, table) : NoOverlay;
    const std::string pair{overlaid ? '\\' : table, code};
    int entry = form.SymbolCombo.Count() - 1;
    while (entry > 0 && !form.SymbolCombo.Row(entry).ends_with(pair)) --entry;
    form.SymbolCombo.Preselect(entry); // without its click, which would ask for an overlay that is known
}

// --- picking one of the own objects ----------------------------------------------------------------------------------

void OpenMyObjects(Halvern& halvern, Form& form, List& shown)
{
    shown.CopyRows(halvern.ConMdiFrm.MyObjectLst);
    ShowDialog(halvern, form);
}

/// The row in the store of the object that is picked. One that another station has taken over meanwhile, or that went
/// with the stores, can't be picked any more: the list says so by what it holds from now on.
int PickedObject(Halvern& halvern, List& shown, const std::string& otherwise)
{
    const auto& objects = halvern.ConMdiFrm.MyObjectLst;
    const int index = shown.Selected() < 0 ? NotFound : objects.IndexOf(shown.Text());
    if (index != NotFound) return index;
    shown.CopyRows(objects);
    halvern.Tell(Icon::None, otherwise);
    return NotFound;
}

// --- creating --------------------------------------------------------------------------------------------------------

/// Shows the dialog of a new object. @return whether the operator went through with it
bool AskForObject(Halvern& halvern, const char* title, bool nameIsSet)
{
    auto& form = halvern.CreateObjectsFrm;
    form.SetCaption(title);
    form.ObjectNameTxt.SetEnabled(!nameIsSet);
    ShowDialog(halvern, form);
    return TakeDialogOk(halvern.ConMdiFrm);
}

/// Takes the dialog's object into the list, due at once.
void AddAskedObject(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    const auto& form = halvern.CreateObjectsFrm;
    AddMyObject(halvern, {.name = form.ObjectNameTxt.Text(),
                          .symbol = SymbolPair(form.SymbolCombo.Text(), form.OverlayChar),
                          .place = PlaceIn(form),
                          .path = halvern.AddPathFrm.PathLbl.Caption()});
    main.KillMyObjectsMenu.SetEnabled(true);
    main.StpTransObjectsMenu.SetEnabled(true);
    main.MyObjectTimer.Start(1);
    halvern.AddPathFrm.Unload();
    halvern.CreateObjectsFrm.Unload();
}

} // namespace

void CreateObject(Halvern& halvern)
{
    if (!AskForObject(halvern, "Create and Send My Objects", false)) return;
    AddAskedObject(halvern);
    halvern.ConMdiFrm.MoveMyObjMenu.SetEnabled(true);
}

void AcceptObject(Halvern& halvern)
{
    auto& form = halvern.CreateObjectsFrm;
    const bool symbol = form.SymbolCombo.Text() != NoSymbol;
    if (!NoFault(halvern, symbol ? PlaceFault(form) : "You have to Pick a Symbol first.")) return;
    form.Hide();
    const auto& name = form.ObjectNameTxt.Text();
    if (FindMyObject(halvern, name) != NotFound)
        return halvern.Tell(Icon::None, "You are already transmitting " + name +
                                            ". Please use MyObjects/Move Object Menu Item Instead");
    halvern.Outside.dialogs.ShowModal(halvern.AddPathFrm);
    halvern.ConMdiFrm.ObjectDialogOk = true;
}

void ClearObject(CreateObjectsForm& form)
{
    form.ObjectNameTxt.SetText("");
    form.SymbolCombo.Preselect(0);
    form.OverlayChar = NoOverlay;
    PutPlace(form, {});
}

// --- moving ----------------------------------------------------------------------------------------------------------

void OpenMoveObject(Halvern& halvern)
{
    auto& form = halvern.MoveMyObjectFrm;
    PutPlace(form, {});
    OpenMyObjects(halvern, form, form.ObjectLst);
    if (TakeDialogOk(halvern.ConMdiFrm)) halvern.ConMdiFrm.MyObjectTimer.SetInterval(1);
}

void ShowPickedObject(MoveMyObjectForm& form)
{
    if (form.ObjectLst.Selected() >= 0) PutPlace(form, ReadMyObject(form.ObjectLst.Text()).place);
}

void MoveObject(Halvern& halvern)
{
    auto& form = halvern.MoveMyObjectFrm;
    auto& main = halvern.ConMdiFrm;
    const int index = PickedObject(halvern, form.ObjectLst, "You must first select an object to Move");
    if (index == NotFound || !NoFault(halvern, PlaceFault(form))) return;
    auto object = ReadMyObject(main.MyObjectLst.Row(index));
    object.place = PlaceIn(form);
    ChangeMyObject(halvern, index, MyObjectRecord(object, DayHourMinute(UtcNow(halvern.Outside.clock))));
    main.ObjectDialogOk = true;
    form.Unload();
}

// --- killing, stopping -----------------------------------------------------------------------------------------------

void OpenKillObject(Halvern& halvern)
{
    OpenMyObjects(halvern, halvern.KillMyObjectsFrm, halvern.KillMyObjectsFrm.ObjectLst);
    if (TakeDialogOk(halvern.ConMdiFrm)) halvern.ConMdiFrm.MyObjectTimer.SetInterval(1);
}

void KillObject(Halvern& halvern)
{
    auto& form = halvern.KillMyObjectsFrm;
    auto& main = halvern.ConMdiFrm;
    const int index = PickedObject(halvern, form.ObjectLst, "You must first select an object to Kill");
    if (index == NotFound) return;
    const auto record = main.MyObjectLst.Row(index);
    if (ColumnAt(record, myObjectRow::Life) == KilledObject)
        return halvern.Tell(Icon::None, "The Object you have selected has already been Killed.");
    ChangeMyObject(halvern, index, KilledRecord(record));
    main.ObjectDialogOk = true;
    form.Unload();
}

void OpenStopObject(Halvern& halvern)
{
    OpenMyObjects(halvern, halvern.StpTransObjectsFrm, halvern.StpTransObjectsFrm.ObjectLst);
}

void StopObject(Halvern& halvern)
{
    auto& form = halvern.StpTransObjectsFrm;
    const int index = PickedObject(halvern, form.ObjectLst, "You must first select an object to Stop Transmitting.");
    if (index == NotFound) return;
    RemoveMyObject(halvern, index);
    form.Unload();
}

// --- taking over -----------------------------------------------------------------------------------------------------

void OpenTakeOver(Halvern& halvern)
{
    auto& form = halvern.TakeTransObjFrm;
    const auto& stations = halvern.PositionFrm.PosLst;
    const auto own = "<" + halvern.Engine.OwnCall + ">";
    form.OthersObjLst.Clear();
    for (int i = 0; i < stations.Count(); ++i) {
        const auto& row = stations.Row(i);
        if (ColumnAt(row, positionRow::Type) == ObjectType && !Holds(row, own)) form.OthersObjLst.Add(row);
    }
    ShowDialog(halvern, form);
}

void TakeOverObject(Halvern& halvern)
{
    auto& list = halvern.TakeTransObjFrm.OthersObjLst;
    auto& form = halvern.CreateObjectsFrm;
    if (list.Selected() < 0)
        return halvern.Tell(Icon::None, "You must first select an object to take over transmission.");
    const std::string row = list.Text();
    form.Load(); // before it is filled: coming up empties it
    form.ObjectNameTxt.SetText(positionRow::Call(row));
    PutSymbol(form, ColumnAt(row, positionRow::Table), ColumnAt(row, positionRow::Code));
    PutPlace(form, HeardObjectPlace(row));
    halvern.TakeTransObjFrm.Hide();
    if (AskForObject(halvern, "Take Over The Sending Of Some Other Stations's Object", true)) AddAskedObject(halvern);
}

// --- help ------------------------------------------------------------------------------------------------------------

void TellCourseAndSpeed(Halvern& halvern)
{
    halvern.Tell(Icon::None, "If Object is stationary then leave Course and Speed at 000.\r\n"
                             "Course of 360 is Due North.\r\n"
                             "Course of 90 is Due East.\r\n"
                             "Course of 180 is Due South.\r\n"
                             "Course of 270 is Due West.\r\n"
                             "Speed is in Knots.\r\n"
                             "To convert MPH to Knots Divide MPH by 1.15\r\n"
                             "Example 30 MPH = 30/1.15 = 26.09 Knots");
}

} // namespace halvern
