// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/DialogWindows.h"
#include "forms/Glyphs.h"
#include "forms/PlacePicker.h"
#include "forms/SendTimes.h"
#include "forms/Watching.h"
#include "protocol/PositionField.h"

namespace halvern {
namespace {

/// Has the operator click on the map, while the dialog steps aside, and puts the place into the form's fields.
void PickPlace(DialogWindow* window, ObjectFieldsForm& form, MapView& map)
{
    const auto take = [window, &form](std::optional<MapView::Place> place) {
        if (place) FromScreen(form, [&] { form.SetTexts(PositionTextsOf(place->latitude, place->longitude)); });
        window->ComeBack();
    };
    window->StepAside();
    auto* picker = new PlacePicker(map, take);
    WatchFor(picker, form, [picker, &form](const Change&) {
        if (!form.Visible()) picker->End();
    });
}

/// The button that asks for a click on the map, while there is a map to click on.
QPushButton* PlaceButton(DialogWindow* window, Halvern& halvern, ObjectFieldsForm& form, MapView& map)
{
    auto* button = new QPushButton(QObject::tr("&Pick On Map"), window);
    button->setAutoDefault(false);
    button->setToolTip(QObject::tr("Fill the position in by a click on the map; Escape gives up"));
    button->setAccessibleDescription(button->toolTip());
    const auto follow = [button, &halvern] { button->setEnabled(halvern.MapFrm.Visible()); };
    follow();
    WatchFor(button, halvern.MapFrm, [follow](const Change&) { follow(); });
    QObject::connect(button, &QPushButton::clicked, window, [window, &form, &map] { PickPlace(window, form, map); });
    return button;
}

void AddNameAndSymbol(QVBoxLayout* layout, QFormLayout* lines, Halvern& halvern, QWidget* window)
{
    auto& form = halvern.CreateObjectsFrm;
    auto* help = BindLabel(form.HelpLbl, window);
    help->setWordWrap(true);
    layout->addWidget(help);
    AddRow(lines, form.ObjectNameTxt, FixedFor(12, BindField(form.ObjectNameTxt, window)), {});
    auto* symbol = BindCombo(form.SymbolCombo, window);
    ShowSymbols(symbol, halvern.ProgramFolder);
    AddRow(lines, form.SymbolCombo, symbol, {});
}

} // namespace

DialogWindow* MakeObjectWindow(Halvern& halvern, ObjectFieldsForm& form, MapView& map, QWidget* parent)
{
    auto* window = new DialogWindow(form, parent);
    auto* layout = new QVBoxLayout(window);
    auto* lines = new QFormLayout;
    if (&form == &halvern.CreateObjectsFrm)
        AddNameAndSymbol(layout, lines, halvern, window);
    else
        AddList(layout, halvern.MoveMyObjectFrm.ObjectLst,
                DialogRows(halvern, halvern.MoveMyObjectFrm.ObjectLst, window));
    layout->addLayout(lines);
    AddAngle(lines, {form.LatDegtxt, form.LatMintxt, form.LatDectxt, form.LatSigntxt}, nullptr, window);
    auto* pick = PlaceButton(window, halvern, form, map);
    AddAngle(lines, {form.LonDegtxt, form.LonMintxt, form.LonDectxt, form.LonSigntxt}, pick, window);
    QWidget::setTabOrder(window->findChild<QWidget*>(Shown(form.LonSigntxt.Name())), pick);
    auto* course = BindNumber(form.ObjectCourselbl, window);
    auto* speed = BindNumber(form.ObjectSpeedlbl, window);
    auto* instructions = BindButton(form.InstructionsCmd, window);
    instructions->setAutoDefault(false);
    AddRow(lines, form.ObjectCourselbl, course, {LabelFor(speed, form.ObjectSpeedlbl), speed, instructions});
    AddRow(lines, form.CommentTXT, WideFor(43, BindField(form.CommentTXT, window)), {});
    layout->addWidget(ButtonRow(window, {&form.OkCmd, &form.CancelCmd}));
    FocusFault(window, form.OkCmd, [&form]() -> const Control* {
        const auto part = FaultyPart(form.Texts());
        return part ? form.InOrder()[*part] : nullptr;
    });
    return window;
}

} // namespace halvern
