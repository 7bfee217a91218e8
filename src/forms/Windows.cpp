// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Windows.h"

#include <QtWidgets>

#include "forms/DialogWindows.h"
#include "forms/Glyphs.h"
#include "forms/Icons.h"
#include "forms/Layouts.h"
#include "forms/MapRoom.h"
#include "forms/StoreWindows.h"
#include "forms/Tints.h"
#include "forms/Watching.h"
#include "platform/Files.h"
#include "view/Ground.h"

namespace halvern {
namespace {

/// Place `slot` of `count` below each other beside the map; `layer` puts one a little below another of the same slot.
FirstPlace BesideMap(int slot, int count, int layer)
{
    return [=](const QRect& area) {
        const int left = std::min(area.width() * 68 / 100, area.height() * 4 / 3), high = area.height() / count,
                  step = 24 * layer;
        return QRect(left + step, slot * high + step, area.width() - left - step, high - step);
    };
}

/// Over the lower right of the map, where a long row can be read to its end.
QRect OverMap(const QRect& area)
{
    const int wide = area.width() * 11 / 20, high = area.height() / 2;
    return {area.width() - wide, area.height() - high, wide, high};
}

} // namespace

Windows::Windows(Halvern& halvern, const std::string& looksFile)
    : halvern(halvern), looks(Shown(looksFile)),
      places(halvern.Outside.files, halvern.ProgramFolder + R"(\places\places.dat)"),
      main(std::make_unique<MainWindow>(halvern, looks))
{
    QApplication::setWindowIcon(ProgramIcon());
    KeepPlaceholdersLegible(main.get());
    windows.emplace(&halvern.ConMdiFrm, main.get());
    help = new HelpWindow(main.get());
    AddChildren();
    AddDialogs();
}

Windows::~Windows() = default;

void Windows::AddChildren()
{
    map = new MapView(halvern, looks, places);
    const auto& item = halvern.ConMdiFrm.FrmMenu;
    AddChild(halvern.MapFrm, new MapRoom(halvern, map), item(1), {});
    QObject::connect(map, &MapView::PointerMoved, main.get(), [this](double latitude, double longitude) {
        main->TellPlace(Shown(PlaceInWords(OwnPlace(halvern), {latitude, longitude})));
    });
    QObject::connect(map, &MapView::PointerLeft, main.get(), [this] { main->TellPlace({}); });
    auto* range = main->findChild<QComboBox*>(Shown(halvern.ConMdiFrm.ScaleCombo.Name()));
    QObject::connect(range, &QComboBox::activated, map, [this] { map->setFocus(); }); // its keys move the map now
    AddChild(halvern.PositionFrm, MakePositionWindow(halvern), item(2), BesideMap(0, 3, 0));
    AddChild(halvern.StatusFrm, MakeStatusWindow(halvern), item(3), BesideMap(1, 3, 1));
    AddChild(halvern.DigiFrm, MakeDigiWindow(halvern), item(4), BesideMap(1, 3, 2));
    AddChild(halvern.MessageFrm, Scrolled(MakeMessageWindow(halvern)), item(5), BesideMap(1, 3, 0));
    AddChild(halvern.HeardFrm, MakeHeardWindow(halvern), item(6), BesideMap(0, 3, 1));
    AddChild(halvern.TerminalFrm, MakeTerminalWindow(halvern), item(7), BesideMap(2, 3, 0));
    AddChild(halvern.DxFrm, MakeDxWindow(halvern), item(8), BesideMap(2, 3, 1));
    AddChild(halvern.WeatherFrm, Scrolled(MakeWeatherWindow(halvern)), item(9), BesideMap(0, 3, 2));
    AddChild(halvern.TelemetryFrm, MakeTelemetryWindow(halvern), item(10), BesideMap(2, 3, 2));
    AddChild(halvern.GateFrm, MakeGateWindow(halvern), halvern.ConMdiFrm.GateMenu, OverMap);
}

/// @param place  none: it fills what the others leave
void Windows::AddChild(Form& form, QWidget* content, const MenuItem& item, const FirstPlace& place)
{
    auto* window = new ChildWindow(form, content, Spoken(Shown(item.Caption())));
    place ? main->Care().Add(window, place) : main->Care().AddMap(window);
    windows.emplace(&form, window);
}

void Windows::AddDialogs()
{
    auto& h = halvern;
    windows.emplace(&h.SetUpfrm, MakeSetUpWindow(h, main.get()));
    windows.emplace(&h.AddPathFrm, MakeAddPathWindow(h, main.get()));
    windows.emplace(&h.FontFrm, MakeFontWindow(h, main.get()));
    windows.emplace(&h.FindFrm, MakeFindWindow(h, places, main.get()));
    windows.emplace(&h.InformationFrm, MakeInformationWindow(h, places, main.get()));
    windows.emplace(&h.Hist, MakeHistoryWindow(h, main.get()));
    windows.emplace(&h.GraphFrm, MakeGraphWindow(h, main.get()));
    windows.emplace(&h.CompassFrm, MakeCompassWindow(h, main.get()));
    windows.emplace(&h.NoticesFrm, MakeNoticesWindow(h, main.get()));
    for (ObjectFieldsForm* form : std::initializer_list<ObjectFieldsForm*>{&h.CreateObjectsFrm, &h.MoveMyObjectFrm})
        windows.emplace(form, MakeObjectWindow(h, *form, *map, main.get()));
    for (Form* form : std::initializer_list<Form*>{&h.KillMsgFrm, &h.KillMyObjectsFrm, &h.StpTransObjectsFrm,
                                                   &h.TakeTransObjFrm, &h.FindFoundFrm, &h.browfrm, &h.ChosePrinter,
                                                   &h.PosAlarmFrm, &h.PosTrackFrm, &h.JustSym, &h.QueryFrm})
        windows.emplace(form, MakePlainWindow(h, *form, main.get()));
}

QWidget* Windows::WindowOf(const Form& form) const
{
    const auto found = windows.find(&form);
    return found == windows.end() ? nullptr : found->second;
}

void Windows::Serve(QtDialogs& dialogs)
{
    dialogs.Unattended = [this] { return halvern.All.Present().station; };
    dialogs.WindowOf = [this](Form& form) { return WindowOf(form); };
    dialogs.PictureOf = [this](Control& surface) { return map->PictureOf(surface); };
    // the help was one file once, and its name is still how the program asks for its first page
    dialogs.OnHelp = [this](const std::string& file) {
        const auto page = file.ends_with(".html") ? file : halvern.ProgramFolder + "/help/index.html";
        help->ShowPage(Shown(DiskFiles().Resolved(page)));
    };
    dialogs.OnShowText = [this](const std::string& file) { help->ShowTextFile(Shown(DiskFiles().Resolved(file))); };
}

std::string Windows::SavePicture(const Form& form, const std::string& file) const
{
    auto* window = WindowOf(form);
    if (window == nullptr) return form.Name() + " has no window";
    ShowNow();
    return window->grab().save(Shown(file), "PNG") ? std::string{} : "can't write " + file;
}

} // namespace halvern
