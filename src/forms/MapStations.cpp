// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/MapStations.h"

#include <QtWidgets>

#include "forms/Bind.h"
#include "forms/Glyphs.h"
#include "forms/MapAccess.h"
#include "forms/StationTip.h"
#include "forms/Watching.h"
#include "map/MapMouse.h"
#include "platform/qt/screen/Pictures.h"

namespace halvern {
namespace {

/// So many of a pile are told.
constexpr std::size_t MostTold = 10;

} // namespace

MapStations::MapStations(Halvern& halvern, SpriteLayer& sprites, PlaceNames& places, QWidget& view)
    : halvern(halvern), sprites(sprites), places(places), view(view)
{
    MakeReadable(view, *this);
}

MapStations::~MapStations()
{
    ForgetReadable(view);
}

// --- the walk --------------------------------------------------------------------------------------------------------

void MapStations::Choose(int station)
{
    if (station == sprites.Chosen()) return;
    view.update(sprites.Choose(station));
    TellChosen(view, sprites.Chosen());
}

/// From one station in view to the next, from the middle outwards and round again.
void MapStations::Walk(int step)
{
    const auto& all = sprites.InView();
    if (all.empty()) return;
    const auto count = static_cast<int>(all.size());
    const auto at = std::ranges::find(all, sprites.Chosen());
    const int now = at == all.end() ? (step > 0 ? -1 : 0) : static_cast<int>(at - all.begin());
    Choose(all[static_cast<std::size_t>((now + step + count) % count)]);
}

bool MapStations::Press(const QKeyEvent& key)
{
    const int chosen = sprites.Chosen();
    const auto held = key.modifiers() & ~Qt::KeypadModifier;
    const bool menu = key.key() == Qt::Key_F10 && held == Qt::ShiftModifier;
    if (held != Qt::NoModifier && !menu) return false;
    if (key.key() == Qt::Key_Escape) Choose(-1);
    if (key.key() == Qt::Key_N || key.key() == Qt::Key_P) return Walk(key.key() == Qt::Key_N ? 1 : -1), true;
    if (chosen < 0) return false;
    if (menu) return OpenMenu(chosen), true;
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) return OpenInformation(chosen), true;
    return false;
}

// --- menus -----------------------------------------------------------------------------------------------------------

void MapStations::OpenInformation(int station)
{
    auto& item = halvern.ConMdiFrm.InfoMenu;
    FromScreen(item, [&] {
        TurnMenuTo(halvern, station);
        item.Click();
    });
}

void MapStations::OpenMenu(int station)
{
    auto& item = halvern.ConMdiFrm.Pop1Menu;
    FromScreen(item, [&] {
        TurnMenuTo(halvern, station);
        item.Click();
    });
    if (auto* menu = QApplication::activePopupWidget())
        menu->move(view.mapToGlobal(sprites.BoxOf(station).bottomLeft()));
}

bool MapStations::OpenPileMenu(QPoint place)
{
    auto pile = sprites.AllAt(place);
    if (pile.size() < 2) return false;
    pile.resize(std::min(pile.size(), MostTold));
    auto& form = halvern.ConMdiFrm;
    auto* menu = new QMenu(&view);
    menu->setObjectName("PileMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const int station : pile) {
        const auto card = Card(station);
        auto* one = menu->addMenu(QIcon(QPixmap::fromImage(LoadedPicture(card.picture))), Shown(card.call));
        for (MenuItem* item : {&form.InfoMenu, &form.WXInfo}) {
            auto* action = new QAction(one);
            BindAction(action, *item);
            one->addAction(action);
        }
        QObject::connect(one, &QMenu::aboutToShow, one, [this, station] { TurnMenuTo(halvern, station); });
    }
    menu->popup(view.mapToGlobal(place));
    return true;
}

// --- words -----------------------------------------------------------------------------------------------------------

QString MapStations::TipAt(QPoint place) const
{
    const auto pile = sprites.AllAt(place);
    if (pile.empty()) return {};
    std::vector<StationCard> covered;
    const auto told = std::min(pile.size(), MostTold);
    for (std::size_t i = 1; i < told; ++i) covered.push_back(Card(pile[i]));
    return RichText(Card(pile.front()), covered, pile.size() - told);
}

QString MapStations::Description() const
{
    const auto& map = halvern.Map;
    const auto angle = [](double degrees, const char* positive, const char* negative) {
        return QString::number(std::abs(degrees), 'f', 2) + "° " + (degrees < 0 ? negative : positive);
    };
    const auto count = sprites.InView().size();
    return QObject::tr("Centre %1, %2; range %3 nautical miles; %4 in view")
        .arg(angle(map.MapCenterLat, "N", "S"), angle(map.MapCenterLon, "W", "E"))
        .arg(map.MapRange)
        .arg(count == 1 ? QObject::tr("1 station") : QObject::tr("%1 stations").arg(count));
}

} // namespace halvern
