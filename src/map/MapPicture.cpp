// SPDX-License-Identifier: GPL-3.0-or-later
#include "map/MapPicture.h"

#include <algorithm>

namespace halvern {
namespace {

/// The map as it stands, without stations, becomes the picture of another surface.
void CopyMap(MapForm& form, Surface& onto)
{
    form.Map1.Keep(form.Map1);
    onto.SetSize(form.Map1.Width(), form.Map1.Height());
    onto.Keep(form.Map1);
}

/// @return false where the operator cancelled
bool ChoosePrinter(Halvern& halvern)
{
    auto& form = halvern.ChosePrinter;
    const auto printers = halvern.Outside.dialogs.Printers();
    form.PrinterLst.Clear();
    for (const auto& printer : printers) form.PrinterLst.Add(printer);
    if (!printers.empty()) form.PrinterLst.Preselect(std::max(0, form.PrinterLst.IndexOf(form.Printer)));
    form.Chosen = false;
    halvern.Outside.dialogs.ShowModal(form);
    return form.Chosen;
}

} // namespace

void SaveMap(Halvern& halvern)
{
    auto& dialogs = halvern.Outside.dialogs;
    auto& form = halvern.MapFrm;
    const auto answer =
        dialogs.Question("Do you want Symbols Saved? Answer Yes if you want your saved BitMap to contain the APRS "
                         "Symbols. Answer No if you want the Map Saved without the APRS Symbols.",
                         "Halvern Save Map Bitmap");
    if (answer == Answer::Left) return;
    CopyMap(form, form.Pic2);
    if (answer == Answer::Yes) dialogs.CaptureScreen(form.Pic2);
    const auto file = dialogs.File({.save = true,
                                    .title = "Save Map As Bitmap",
                                    .filter = "Bitmap Files | *.bmp",
                                    .folder = halvern.ProgramFolder + "\\mapbmpgif\\",
                                    .name = "map.bmp"});
    const auto picture = file ? form.Pic2.Bitmap() : std::string();
    form.Pic2.Clear();
    if (!file) return;
    if (picture.empty()) throw RuntimeFailure(failure::FileAccess, "Nobody here makes pictures of maps.");
    const auto trouble = halvern.Outside.files.Write(*file, picture);
    if (!trouble.empty()) throw RuntimeFailure(failure::FileAccess, trouble);
}

void PrintMap(Halvern& halvern)
{
    if (!ChoosePrinter(halvern)) return;
    auto& dialogs = halvern.Outside.dialogs;
    auto& form = halvern.MapFrm;
    const auto answer = dialogs.Question("Do you want a White Background? Answer Yes if you want a White Background. "
                                         "Answer No if you want the print out to use the maps background.",
                                         "Halvern Print Map");
    if (answer == Answer::Left) return;
    CopyMap(form, form.PrintPicBox);
    if (answer == Answer::Yes) form.PrintPicBox.WhitenGround();
    const auto trouble = dialogs.Print(halvern.ChosePrinter.Printer, form.PrintPicBox);
    form.PrintPicBox.Clear();
    if (!trouble.empty()) throw RuntimeFailure(failure::Printer, trouble);
}

void PickPrinter(Halvern& halvern)
{
    auto& form = halvern.ChosePrinter;
    form.Printer = form.PrinterLst.Text();
    form.Chosen = true;
    form.Hide();
}

} // namespace halvern
