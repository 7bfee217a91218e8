// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/DialogWindows.h"

#include "forms/Glyphs.h"
#include "forms/SendTimes.h"
#include "forms/StationTip.h"
#include "forms/StoreWindows.h"
#include "forms/Watching.h"
#include "forms/Words.h"

namespace halvern {
namespace {

/// Characters that a list or a long field of a dialog shows at least.
constexpr int DialogColumns = 56;
/// The same of an own object, with the column of its times.
constexpr int ObjectColumns = 84;
/// What the stores hold of a station that was found: rows longer than this go on in a second line.
constexpr int FoundColumns = 74;
constexpr int FoundLines = 2;

/// The controls of a form in the order in which it declares them.
QList<Control*> ControlsOf(const Form& form)
{
    QList<Control*> controls;
    const auto prefix = form.Name() + ".";
    for (auto* control : form.Directory().All())
        if (control->Name().starts_with(prefix)) controls += control;
    return controls;
}

struct ListSize {
    std::string_view list;
    int rows, columns;
    const std::vector<RowColumn>* header = nullptr;
    bool picker = false; ///< from as many stations as there are
};

/// Lists of which is known how much they hold, and what.
constexpr ListSize KnownLists[] = {{"InformationFrm.InformationLst", 3, 66},
                                   {"ChosePrinter.PrinterLst", 6, 36},
                                   {"FindFoundFrm.CallSignLst", 8, 24, nullptr, true},
                                   {"PosAlarmFrm.AlarmLst", 12, DialogColumns, nullptr, true},
                                   {"PosTrackFrm.TrackLst", 12, DialogColumns, nullptr, true},
                                   {"QueryFrm.CallSignLst", 12, DialogColumns, nullptr, true},
                                   {"GraphFrm.GraphLst", 8, 12},
                                   {"MoveMyObjectFrm.ObjectLst", 6, ObjectColumns},
                                   {"KillMyObjectsFrm.ObjectLst", 8, ObjectColumns},
                                   {"StpTransObjectsFrm.ObjectLst", 8, ObjectColumns},
                                   {"TakeTransObjFrm.OthersObjLst", 8, ObjectColumns, &PositionColumns, true},
                                   {"GraphFrm.GraphLst", 12, 10},
                                   {"CompassFrm.CompassLst", 6, 10},
                                   {"CompassFrm.DirectionLst", 6, 10},
                                   {"CompassFrm.SpeedLst", 6, 10}};

bool IsRows(const List& list)
{
    return list.style == ListStyle::Rows || list.style == ListStyle::MultiRows;
}

/// The controls of a form below each other in a layout. @return its buttons, which go to the foot
QList<Button*> AddControls(QVBoxLayout* layout, Halvern& halvern, Form& form, QWidget* parent)
{
    QList<Button*> buttons;
    QFormLayout* lines = nullptr;
    for (auto* control : ControlsOf(form)) {
        if (auto* button = dynamic_cast<Button*>(control)) {
            buttons += button;
        } else if (auto* list = dynamic_cast<List*>(control); list != nullptr && IsRows(*list)) {
            lines = nullptr;
            AddList(layout, *list, DialogRows(halvern, *list, parent));
        } else if (auto* choice = dynamic_cast<Choice*>(control)) {
            lines = nullptr;
            layout->addWidget(BindChoice(*choice, choice->Count() > 4 ? 2 : choice->Count(), parent));
        } else if (auto* widget = BindAny(*control, parent)) {
            if (lines == nullptr) layout->addLayout(lines = new QFormLayout);
            if (auto* field = qobject_cast<QLineEdit*>(widget)) WideFor(DialogColumns, field);
            if (auto* label = qobject_cast<QLabel*>(widget)) WideFor(DialogColumns, label)->setWordWrap(true);
            AddRow(lines, *control, widget, {});
        }
    }
    return buttons;
}

/// How high a text stands that shows so many lines.
int HeightOf(int lines, const QPlainTextEdit* text)
{
    const int around = 2 * (text->frameWidth() + static_cast<int>(text->document()->documentMargin()) + 1);
    return lines * (text->fontMetrics().lineSpacing() + 1) + around;
}

/// Selects the whole text of a line when it gets the keys, by the mouse too.
class SelectsWhenEntered final : public QObject {
public:
    explicit SelectsWhenEntered(QLineEdit* line) : QObject(line), line(line) {}
    bool eventFilter(QObject* object, QEvent* event) override
    {
        // the press that brought the keys sets the cursor first
        if (event->type() == QEvent::FocusIn) QTimer::singleShot(0, line, &QLineEdit::selectAll);
        return QObject::eventFilter(object, event);
    }

private:
    QLineEdit* const line;
};

/// Shows a station's card in a window, and anew whenever a control has been filled.
CardView* ShowCard(Halvern& halvern, PlaceNames& places, Control& filled, int (*station)(Halvern&), QWidget* parent)
{
    auto* card = WideFor(DialogColumns, new CardView(parent));
    WatchFor(card, filled,
             [=, &halvern, &places](const Change&) { card->Show(CardOf(halvern, station(halvern), places)); });
    return card;
}

/// A row that is picked twice is picked for good.
void PressOkByDoubleClick(QWidget* window)
{
    for (auto* button : window->findChildren<QPushButton*>())
        for (auto* view : window->findChildren<RowsView*>())
            if (button->objectName().endsWith(".OkCmd"))
                QObject::connect(view, &QAbstractItemView::doubleClicked, button, [button] { button->click(); });
}

/// Enter takes the first row of a window's list unless another is picked.
void OfferFirst(const QWidget* window, const Button& ok)
{
    auto* view = window->findChild<RowsView*>();
    view->OfferFirst();
    QObject::connect(window->findChild<QPushButton*>(Shown(ok.Name())), &QPushButton::pressed, view,
                     &RowsView::TakeOffered);
}

/// Enter sends no query to everybody, and where no radio is there to send one, the window says so.
void GuardQuery(Halvern& halvern, QWidget* window, QVBoxLayout* layout)
{
    auto& form = halvern.QueryFrm;
    auto* line = new QLabel(QObject::tr("Queries go to the radio ports, and none is open."), window);
    layout->insertWidget(layout->count() - 1, line);
    const auto buttonOf = [window](const Button& button) {
        return window->findChild<QPushButton*>(Shown(button.Name()));
    };
    const auto show = [&halvern, &form, line, ok = buttonOf(form.OkCmd), cancel = buttonOf(form.CancelCmd)] {
        constexpr int toEverybody = 3; // the first kinds
        const auto& main = halvern.ConMdiFrm;
        (form.QueryOpt.Selected() < toEverybody ? cancel : ok)->setDefault(true);
        line->setVisible(!main.MSComm1.IsOpen() && !main.SoundSoc.Connected() && !main.Psk63Soc.Connected());
    };
    show();
    auto& main = halvern.ConMdiFrm;
    const std::initializer_list<Control*> watched{&form, &form.QueryOpt, &main.MSComm1, &main.SoundSoc, &main.Psk63Soc};
    for (auto* control : watched) WatchFor(window, *control, [show](const Change&) { show(); });
}

/// The one that acts is what Enter presses, so it comes first.
QList<Button*> InOrder(QList<Button*> buttons)
{
    std::ranges::stable_partition(buttons, [](const Button* button) { return button->Name().ends_with(".OkCmd"); });
    return buttons;
}

} // namespace

RowsView* DialogRows(Halvern& halvern, List& list, QWidget* parent)
{
    ListSize size{list.Name(), 12, DialogColumns};
    for (const auto& known : KnownLists)
        if (known.list == list.Name()) size = known;
    const bool ownObjects = list.Name().ends_with(".ObjectLst");
    RowsLook look{size.header != nullptr ? *size.header : std::vector<RowColumn>{}};
    look.picker = size.picker;
    auto* view = ownObjects ? MakeMyObjectRows(halvern, list, parent) : new RowsView(list, look, parent);
    BindCommon(view, list);
    view->WantRows(size.rows);
    return WideFor(size.columns, view);
}

void AddList(QVBoxLayout* layout, List& list, RowsView* view)
{
    layout->addWidget(LabelFor(view, list));
    layout->addWidget(view, 1);
    if (view->Picker()) view->ShowFilter();
}

DialogWindow* MakePlainWindow(Halvern& halvern, Form& form, QWidget* parent)
{
    auto* window = new DialogWindow(form, parent);
    auto* layout = new QVBoxLayout(window);
    layout->addWidget(ButtonRow(window, InOrder(AddControls(layout, halvern, form, window))));
    PressOkByDoubleClick(window);
    if (&form == &halvern.FindFoundFrm) OfferFirst(window, halvern.FindFoundFrm.OkCmd);
    if (&form == &halvern.QueryFrm) GuardQuery(halvern, window, layout);
    if (auto* symbols = window->findChild<RowsView*>("JustSym.SymbolLst")) ShowSymbols(symbols, halvern.ProgramFolder);
    return window;
}

DialogWindow* MakeInformationWindow(Halvern& halvern, PlaceNames& places, QWidget* parent)
{
    auto& form = halvern.InformationFrm;
    auto* window = MakePlainWindow(halvern, form, parent);
    auto* layout = static_cast<QVBoxLayout*>(window->layout());
    auto* card = ShowCard(
        halvern, places, form.InformationLst, [](Halvern& station) { return station.Map.PopStation; }, window);
    layout->insertWidget(layout->count() - 1, card); // above the buttons
    return window;
}

DialogWindow* MakeAddPathWindow(Halvern& halvern, QWidget* parent)
{
    auto& form = halvern.AddPathFrm;
    auto* window = new DialogWindow(form, parent);
    auto* layout = new QVBoxLayout(window);
    auto* built = new QGroupBox(WordsOf(form.PathLbl.Name()).label, window);
    auto* path = BindLabel(form.PathLbl, built);
    path->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    path->setMinimumHeight(path->fontMetrics().height() * 2);
    path->setWordWrap(true);
    WideFor(44, path);
    (new QVBoxLayout(built))->addWidget(path);
    layout->addWidget(built);
    auto* entry = BindChoice(form.PathOpt, 1, window);
    auto* grid = static_cast<QGridLayout*>(entry->layout());
    auto* call = FixedFor(10, BindField(form.PathCallTxt, entry));
    grid->addWidget(call, form.PathOpt.Count() - 1, 1);
    grid->setColumnStretch(2, 1);
    grid->addWidget(BindButton(form.PathUpDateCmd, entry), form.PathOpt.Count() - 1, 3);
    layout->addWidget(entry);
    layout->addWidget(ButtonRow(window, {&form.OkCmd, &form.CancelCmd, &form.ClearCmd}));
    return window;
}

DialogWindow* MakeFontWindow(Halvern& halvern, QWidget* parent)
{
    auto& form = halvern.FontFrm;
    auto* window = new DialogWindow(form, parent);
    auto* layout = new QVBoxLayout(window);
    layout->addWidget(BindChoice(form.FormOpt, 2, window));
    layout->addWidget(ButtonRow(window, {&form.FontOkCmd, &form.CancelCmd}));
    return window;
}

DialogWindow* MakeFindWindow(Halvern& halvern, PlaceNames& places, QWidget* parent)
{
    auto& form = halvern.FindFrm;
    auto* window = new DialogWindow(form, parent);
    auto* layout = new QVBoxLayout(window);
    layout->addWidget(ShowCard(
        halvern, places, form.FindPosTxt,
        [](Halvern& station) { return station.PositionFrm.PosLst.Find(station.Map.FindCall); }, window));
    auto* lines = new QFormLayout;
    for (TextField* field : {&form.FindPosTxt, &form.FindStatusTxt, &form.FindDigiTxt, &form.PhgTxt}) {
        auto* text = WideFor(FoundColumns, BindText(*field, window));
        text->setFixedHeight(HeightOf(FoundLines, text));
        AddRow(lines, *field, text, {});
    }
    auto* raw = BindCombo(form.RawPacCombo, window);
    raw->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon); // its rows are long, and come later
    AddRow(lines, form.RawPacCombo, raw, {});
    layout->addLayout(lines);
    layout->addWidget(ButtonRow(window, {&form.GoToCmd, &form.FindCloseCmd}));
    return window;
}

DialogWindow* MakeHistoryWindow(Halvern& halvern, QWidget* parent)
{
    auto& form = halvern.Hist;
    auto* window = new DialogWindow(form, parent);
    auto* layout = new QVBoxLayout(window);
    auto* box = new QGroupBox(QObject::tr("Call signs"), window);
    auto* grid = new QGridLayout(box);
    constexpr int columns = 4;
    for (int i = form.Callsign.First(); i <= form.Callsign.Last(); ++i) {
        auto* field = WideFor(10, BindField(form.Callsign(i), box));
        field->setAccessibleName(QObject::tr("Call sign %1").arg(i));
        grid->addWidget(field, (i - 1) / columns, (i - 1) % columns);
    }
    layout->addWidget(box);
    layout->addWidget(ButtonRow(window, {&form.Search1, &form.CancelCmd}));
    return window;
}

DialogWindow* MakeNoticesWindow(Halvern& halvern, QWidget* parent)
{
    static const std::vector<RowColumn> columns{
        {1, 20, "Time (UTC)", "When it was told last"},
        {21, 7, "Times", "How often it was told"},
        {28, 19, "About", "The station in hand, or the port or timer: the last one"},
        {47, 2, "", "! a failure, i an information"},
        {49, 0, "What", "What was told"},
    };
    auto& form = halvern.NoticesFrm;
    auto* window = new DialogWindow(form, parent);
    auto* layout = new QVBoxLayout(window);
    auto* view = MakeRows(form.NoticeLst, {columns, true}, window);
    view->WantRows(6);
    layout->addWidget(WideFor(96, view), 1);
    auto* text = BindText(form.NoticeTxt, window);
    text->setFixedHeight(HeightOf(3, text));
    layout->addWidget(text);
    layout->addWidget(ButtonRow(window, {&form.CloseCmd, &form.ClearCmd}));
    window->StandInTheCorner();
    return window;
}

QWidget* MakeWeatherWindow(Halvern& halvern)
{
    auto& form = halvern.WeatherFrm;
    auto* window = new QWidget;
    auto* layout = new QVBoxLayout(window);
    auto* call = BindField(form.CallSignTxt, window);
    FixedFor(12, call)->installEventFilter(new SelectsWhenEntered(call));
    auto* compute = BindButton(form.ComputeCmd, window);
    layout->addWidget(Beside({LabelFor(call, form.CallSignTxt), call, compute}, window));
    layout->addWidget(BindChoice(form.GraphOpt, 3, window));
    AddList(layout, form.PacketLst, DialogRows(halvern, form.PacketLst, window));
    return window;
}

} // namespace halvern
