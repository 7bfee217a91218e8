// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/MainWindow.h"

#include <QtWidgets>
#include <cmath>

#include "forms/Bind.h"
#include "forms/FormWindow.h"
#include "forms/Glyphs.h"
#include "forms/Icons.h"
#include "forms/StatusLamps.h"
#include "forms/Watching.h"
#include "view/ChildWindows.h"
#include "view/Geometry.h"

namespace halvern {
namespace {

using Item = MenuItem MainForm::*;
constexpr Item Line = nullptr;

struct MenuTable {
    Item menu;
    std::vector<Item> items;
};

const std::vector<MenuTable>& MenuTables()
{
    using F = MainForm;
    static const std::vector<MenuTable> tables{
        {&F::LogMenu,
         {&F::Log, &F::ImportLog, &F::ImportHistory, &F::ExportMemory, &F::SaveHistory, Line, &F::RestoreMenu,
          &F::ClearMenu, Line, &F::SetupMenu, &F::FontMenu, Line, &F::EndApp}},
        {&F::PortsMn, {&F::PortTnc, &F::PortIp, &F::SoundCardMenu, &F::Psk63Menu, Line, &F::GpsMenu, &F::WeatherMenu}},
        {&F::ViewMenu, {}}, // the windows, then RefreshMnu
        {&F::MapMenu,
         {&F::PanMapMenu, &F::ZoomLastMenu, &F::ZoomUSAmenu, &F::HomeMenu, &F::FindCallSignMenu, &F::RefreshMapMenu,
          Line, &F::DosMapMenu, &F::UsgsMapMenu, &F::BitMapMenu, Line, &F::PlotPhgFixedMenu, &F::PlotPhgMobileMenu,
          Line, &F::SaveBitMapMenu, &F::PrintMapMenu}},
        {&F::PosMenu, {&F::AlarmMenu, &F::TrackMenu, &F::DeleteMenu, &F::JustMenu}},
        {&F::MailMenu, {&F::MailAddMenu, &F::MailChangeMenu, &F::MailDeleteMenu, Line, &F::KillMsg, &F::CLRMsgTxtMenu}},
        {&F::TransmitMenu, {&F::BeaconMenu, &F::QueryMenu, &F::CgiFinduMenu}},
        {&F::MyObjectsMenu,
         {&F::CreateMyObjectsMenu, &F::MoveMyObjMenu, &F::KillMyObjectsMenu, &F::StpTransObjectsMenu,
          &F::TakeTransmitMenu}},
        {&F::WindowMenu, {&F::CascadeMenu, &F::TileMenu, Line}},
        {&F::HelpMenu, {&F::GetHelpMenu, Line, &F::AboutHalvernMenu}},
    };
    return tables;
}

/// Keys that reach an item without its menu.
const std::vector<std::pair<Item, QKeySequence>>& Shortcuts()
{
    using F = MainForm;
    static const std::vector<std::pair<Item, QKeySequence>> keys{
        {&F::GetHelpMenu, QKeySequence::HelpContents},
        {&F::EndApp, Qt::CTRL | Qt::Key_Q},
        {&F::SetupMenu, Qt::CTRL | Qt::Key_Comma},
        {&F::PanMapMenu, Qt::CTRL | Qt::Key_M},
        {&F::ZoomLastMenu, Qt::CTRL | Qt::Key_L},
        {&F::ZoomUSAmenu, Qt::CTRL | Qt::Key_U},
        {&F::HomeMenu, Qt::CTRL | Qt::Key_H},
        {&F::FindCallSignMenu, Qt::CTRL | Qt::Key_F},
        {&F::RefreshMapMenu, Qt::Key_F5},
        {&F::SaveBitMapMenu, Qt::CTRL | Qt::Key_S},
        {&F::PrintMapMenu, QKeySequence::Print},
        {&F::BeaconMenu, Qt::CTRL | Qt::Key_B},
        {&F::PortTnc, Qt::CTRL | Qt::Key_T},
        {&F::PortIp, Qt::CTRL | Qt::Key_I},
    };
    return keys;
}

/// Items that bear a check mark at times keep its place free at all times.
const std::vector<Item>& Checkables()
{
    using F = MainForm;
    static const std::vector<Item> items{&F::PortTnc,     &F::PortIp,      &F::SoundCardMenu,    &F::Psk63Menu,
                                         &F::GpsMenu,     &F::WeatherMenu, &F::PanMapMenu,       &F::DosMapMenu,
                                         &F::UsgsMapMenu, &F::BitMapMenu,  &F::PlotPhgFixedMenu, &F::PlotPhgMobileMenu};
    return items;
}

/// Keeps the place of a widget on a toolbar free only while its control is visible.
void AddToBar(QToolBar* bar, QWidget* widget, Control& control)
{
    auto* action = bar->addWidget(widget);
    action->setVisible(control.Visible());
    WatchFor(action, control, [action, &control](const Change&) { action->setVisible(control.Visible()); });
}

} // namespace

MainWindow::MainWindow(Halvern& halvern, Looks& looks)
    : halvern(halvern), looks(looks), area(new QMdiArea(this)), care(new WindowCare(*area, looks, this))
{
    setObjectName(Shown(halvern.ConMdiFrm.Name()));
    setCentralWidget(area);
    area->setAccessibleName(tr("Windows"));
    menuBar()->setAccessibleName(tr("Menus"));
    statusBar()->setAccessibleName(tr("Status"));
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setBackground(palette().brush(QPalette::Mid));
    MakeMenus();
    MakeStationMenu();
    MakeToolbars();
    MakeStatusBar();
    MakeEscape();
    UseIcons();
    setWindowTitle(Shown(halvern.ConMdiFrm.Caption()));
    setContextMenuPolicy(Qt::NoContextMenu); // the toolbars come and go with the map
    const auto screen = QGuiApplication::primaryScreen()->availableGeometry().size();
    resize(screen.boundedTo({1440, 900}));
    restoreGeometry(looks.Kept("MainWindow").toByteArray());
    WatchFor(this, halvern.ConMdiFrm, [this](const Change&) { Follow(); });
    Follow();
}

void MainWindow::Follow()
{
    auto& form = halvern.ConMdiFrm;
    setWindowTitle(Shown(form.Caption()));
    if (form.Visible() == isVisible()) return;
    if (!form.Visible()) {
        KeepLooks();
        return hide();
    }
    const bool first = !looks.Kept("MainWindow").isValid();
    if (first && QGuiApplication::primaryScreen()->availableGeometry().width() <= 1440) return showMaximized();
    show();
}

void MainWindow::KeepLooks()
{
    looks.Keep("MainWindow", saveGeometry());
    care->KeepPlaces();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    PressCloseBox(halvern.ConMdiFrm);
    event->setAccepted(!halvern.ConMdiFrm.Visible());
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    area->setBackground(palette().brush(QPalette::Mid));
    UseIcons();
}

void MainWindow::UseIcons()
{
    for (auto* action : pictured) action->setIcon(LineIcon(action->data().toString(), palette()));
    notices->setIcon(LineIcon("Notices", palette()));
}

// --- menus -----------------------------------------------------------------------------------------------------------

QAction* MainWindow::ActionFor(MenuItem& item)
{
    auto* action = new QAction(this);
    std::function<bool()> ask;
    if (&item == &halvern.ConMdiFrm.ClearMenu)
        ask = [this] {
            const auto words = tr("Clear all stations, messages, objects and raw packets?");
            return QMessageBox::question(this, tr("Clear Lists"), words, QMessageBox::Yes | QMessageBox::No,
                                         QMessageBox::No) == QMessageBox::Yes;
        };
    BindAction(action, item, ask);
    action->setMenuRole(QAction::NoRole);
    return action;
}

void MainWindow::MakeMenus()
{
    auto& form = halvern.ConMdiFrm;
    for (const auto& table : MenuTables()) {
        auto* menu = menuBar()->addMenu(QString());
        BindAction(menu->menuAction(), form.*table.menu);
        menu->setToolTipsVisible(true);
        if (table.menu == &MainForm::ViewMenu) MakeViewMenu(menu);
        if (table.menu == &MainForm::MapMenu) MakeZoomActions(menu);
        for (const auto item : table.items) {
            if (item == Line) {
                menu->addSeparator();
                continue;
            }
            auto* action = ActionFor(form.*item);
            for (const auto& [keyed, key] : Shortcuts())
                if (keyed == item) action->setShortcut(key);
            if (std::ranges::count(Checkables(), item) > 0) action->setCheckable(true);
            menu->addAction(action);
        }
        if (table.menu == &MainForm::WindowMenu) MakeWindowMenu(menu);
    }
}

void MainWindow::MakeWindowMenu(QMenu* menu)
{
    auto& form = halvern.ConMdiFrm;
    if (!form.CascadeMenu.OnClick) form.CascadeMenu.OnClick = [this] { area->cascadeSubWindows(); };
    if (!form.TileMenu.OnClick) form.TileMenu.OnClick = [this] { care->Tile(); };
    connect(menu, &QMenu::aboutToShow, care, [this, menu] { care->ListOpenWindows(menu); });
}

/// A step on the range selector, about the middle of the map.
void MainWindow::MakeZoomActions(QMenu* menu)
{
    auto& range = halvern.ConMdiFrm.ScaleCombo;
    const auto add = [&](const QString& words, const QList<QKeySequence>& keys, int closer) {
        auto* action = menu->addAction(words);
        action->setShortcuts(keys);
        connect(action, &QAction::triggered, this,
                [this, closer, &range] { FromScreen(range, [&] { ZoomAboutMiddle(halvern, closer); }); });
        const auto follow = [action, &range](const Change& = {}) { action->setEnabled(range.Visible()); };
        WatchFor(action, range, follow);
        follow();
    };
    add(tr("Zoom I&n"), {QKeySequence::ZoomIn, Qt::CTRL | Qt::Key_Equal}, 1);
    add(tr("Zoom &Out"), {QKeySequence::ZoomOut}, -1);
    menu->addSeparator();
}

void MainWindow::MakeViewMenu(QMenu* menu)
{
    auto& form = halvern.ConMdiFrm;
    for (int i = form.FrmMenu.First(); i <= form.FrmMenu.Last(); ++i) {
        auto* action = ActionFor(form.FrmMenu(i));
        action->setCheckable(true);
        action->setShortcut(QKeySequence(QStringLiteral("Ctrl+%1").arg(i % 10)));
        action->setShortcutContext(
            Qt::WidgetShortcut); // shown in the menu; the key itself lifts a covered window first
        menu->addAction(action);
        auto* key = new QShortcut(action->shortcut(), this);
        connect(key, &QShortcut::activated, care,
                [this, i] { care->Press(ChildWindow(halvern, i), halvern.ConMdiFrm.FrmMenu(i)); });
    }
    auto* gate = ActionFor(form.GateMenu);
    gate->setCheckable(true);
    menu->addAction(gate);
    auto* notices = ActionFor(form.NoticesMenu);
    notices->setCheckable(true);
    notices->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_N);
    menu->addAction(notices);
    menu->addSeparator();
    menu->addActions(looks.Actions());
    menu->addSeparator();
    menu->addAction(ActionFor(form.RefreshMnu));
}

void MainWindow::MakeStationMenu()
{
    auto& form = halvern.ConMdiFrm;
    stationMenu = new QMenu(this);
    stationMenu->menuAction()->setObjectName(Shown(form.Pop1Menu.Name()));
    stationMenu->setAccessibleName(Spoken(Shown(form.Pop1Menu.Caption())));
    stationMenu->addAction(ActionFor(form.InfoMenu));
    stationMenu->addAction(ActionFor(form.WXInfo));
    form.Pop1Menu.OnClick = [this] { stationMenu->popup(QCursor::pos()); };
}

// --- bars ------------------------------------------------------------------------------------------------------------

void MainWindow::MakeToolbars()
{
    auto& form = halvern.ConMdiFrm;
    auto* tools = addToolBar(tr("Map Tools"));
    BindCommon(tools, form.Toolbar1, tr("Map Tools"));
    tools->setToolTip({});
    tools->setMovable(false);
    for (int i = form.Toolbar1Button.First(); i <= form.Toolbar1Button.Last(); ++i) {
        auto& button = form.Toolbar1Button(i);
        auto* action = ActionFor(button);
        action->setCheckable(button.Caption() == "PanMap");
        action->setData(Shown(button.Caption()));
        pictured += action;
        tools->addAction(action);
        tools->widgetForAction(action)->setAccessibleName(action->toolTip()); // its caption is one word
    }
    auto* range = addToolBar(tr("Map Range"));
    range->setObjectName("MapRange");
    range->setMovable(false);
    auto* ladder = BindCombo(form.ScaleCombo, range);
    AddToBar(range, ladder, form.ScaleCombo);
    const auto tell = [ladder, words = ladder->toolTip(), &form](const Change& = {}) {
        const double across = RangeOfStep(form.ScaleCombo.Text()) * 2 * 4 / 3; // a view is 4 wide and 3 high
        ladder->setToolTip(words + "\n" +
                           tr("%1 nm across").arg(QLocale(QLocale::English).toString(std::round(across), 'f', 0)));
    };
    WatchFor(ladder, form.ScaleCombo, tell);
    tell();
    auto* scale = BindField(form.ScaleTxt, range);
    auto* map = BindField(form.dMapTxt, range);
    for (auto* field : {scale, map}) {
        field->setReadOnly(true);
        field->setFrame(false);
        field->setFocusPolicy(Qt::ClickFocus);
        field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        auto colours = field->palette();
        colours.setColor(QPalette::Base, Qt::transparent);
        field->setPalette(colours);
    }
    scale->setFixedWidth(ladder->sizeHint().width()); // it takes the selector's place
    AddToBar(range, scale, form.ScaleTxt);
    AddToBar(range, map, form.dMapTxt);
    AddToBar(range, BindCombo(form.BitMapCombo, range), form.BitMapCombo);
}

void MainWindow::MakeStatusBar()
{
    auto& form = halvern.ConMdiFrm;
    auto* news = BindLabel(form.StatusBar1, statusBar());
    news->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addWidget(news, 1);
    statusBar()->addPermanentWidget(MakeLamps());
    statusBar()->addPermanentWidget(MakeNoticesMark());
    place = new QLabel(statusBar());
    place->setObjectName("PointerPlace");
    place->setToolTip(tr("Locator under the pointer, distance and bearing from the own station"));
    statusBar()->addPermanentWidget(place);
    place->hide();
    auto* position = BindLabel(form.StatusBar2, statusBar());
    position->setMinimumWidth(fontMetrics().horizontalAdvance("-00.00000000 -000.00000000"));
    position->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    statusBar()->addPermanentWidget(position);
}

QWidget* MainWindow::MakeLamps()
{
    constexpr int messages = 5, saveTab = 3;
    auto* lamps = new StatusLamps(halvern, looks, statusBar());
    connect(lamps, &StatusLamps::MailWanted, this, [this] {
        care->BringUp(halvern.MessageFrm, halvern.ConMdiFrm.FrmMenu(messages));
        FromScreen(halvern.MessageFrm.SSTab2, [this] { halvern.MessageFrm.SSTab2.Select(SendTab); });
    });
    connect(lamps, &StatusLamps::SaveTabWanted, this, [this] {
        FromScreen(halvern.ConMdiFrm.SetupMenu, [this] {
            halvern.ConMdiFrm.SetupMenu.Click();
            halvern.SetUpfrm.SSTab1.Select(saveTab);
        });
    });
    return lamps;
}

void MainWindow::TellPlace(const QString& words)
{
    place->setText(words);
    place->setVisible(!words.isEmpty());
}

// --- keys ------------------------------------------------------------------------------------------------------------

/// Escape gives up the connections that are being tried; at all other times it is left to the windows.
void MainWindow::MakeEscape()
{
    auto& form = halvern.ConMdiFrm;
    auto* escape = new QShortcut(Qt::Key_Escape, this);
    escape->setContext(Qt::ApplicationShortcut);
    escape->setEnabled(false);
    const std::array<Socket*, 3> sockets{&form.InternetSoc, &form.SoundSoc, &form.Psk63Soc};
    for (Socket* socket : sockets) {
        WatchFor(escape, *socket, [escape, sockets](const Change&) {
            escape->setEnabled(std::ranges::any_of(sockets, &Socket::Connecting));
        });
        connect(escape, &QShortcut::activated, [this, socket] {
            halvern.All.Dispatch([socket] {
                if (socket->Connecting()) socket->Disconnect();
            });
        });
    }
}

/// Says how many notices there are, and opens them.
QWidget* MainWindow::MakeNoticesMark()
{
    auto& control = halvern.ConMdiFrm.NoticesCmd;
    auto* const mark = notices = new QToolButton(statusBar());
    mark->setAutoRaise(true);
    auto room = mark->sizePolicy();
    room.setRetainSizeWhenHidden(true); // a bar that grows would move the map
    mark->setSizePolicy(room);
    mark->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    auto* pacer = new Pacer(mark, [this, mark, &control] {
        mark->setText(Shown(control.Caption()));
        mark->setAccessibleName(mark->text());
        auto font = statusBar()->font();
        font.setBold(halvern.NoticesFrm.News > 0);
        mark->setFont(font);
        if (font.bold()) QApplication::alert(this);
    });
    BindCommon(mark, control);
    WatchFor(mark, control, [pacer](const Change&) { pacer->Ask(); });
    connect(mark, &QToolButton::clicked, mark, [&control] { FromScreen(control, [&] { control.Click(); }); });
    return mark;
}

} // namespace halvern
