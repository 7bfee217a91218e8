// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/MapAccess.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

#include "forms/Glyphs.h"
#include "forms/MapStations.h"
#include "forms/StationTip.h"

namespace halvern {
namespace {

/// The maps that can be read.
QHash<const QObject*, MapStations*>& Maps()
{
    static QHash<const QObject*, MapStations*> maps;
    return maps;
}

/// One station on a map.
class StationAccess final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    StationAccess(QWidget& map, int station) : map(&map), station(station) {}

    bool isValid() const override
    {
        return map && Maps().contains(map) && !Stations().Sprites().BoxOf(station).isEmpty();
    }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return map ? map->window()->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(map); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Graphic; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text kind) const override
    {
        if (!isValid()) return {};
        const auto card = Stations().Card(station);
        if (kind == QAccessible::Description) return SpokenText(card);
        if (kind != QAccessible::Name) return {};
        const auto place = std::ranges::find(card.lines, std::string_view("Place"), &StationCard::Line::word);
        QStringList words{Shown(card.call), Shown(card.symbol)};
        if (place != card.lines.end()) words += Shown(place->text);
        words.removeAll({});
        return words.join(", ");
    }
    QRect rect() const override
    {
        if (!isValid()) return {};
        const auto box = Stations().Sprites().BoxOf(station);
        return {map->mapToGlobal(box.topLeft()), box.size()};
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        state.offscreen = isValid() && !map->rect().intersects(Stations().Sprites().BoxOf(station));
        state.focusable = state.selectable = true;
        state.focused = state.selected = isValid() && Stations().Sprites().Chosen() == station;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction(), showMenuAction(), setFocusAction()}; }
    void doAction(const QString& action) override
    {
        if (!isValid()) return;
        Stations().Choose(station);
        if (action == pressAction()) Stations().OpenInformation(station);
        if (action == showMenuAction()) Stations().OpenMenu(station);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    MapStations& Stations() const { return *Maps().value(map); }
    const QPointer<QWidget> map;
    const int station;
};

/// A map, whose children are the stations in view.
class MapAccess final : public QAccessibleWidget {
public:
    explicit MapAccess(QWidget* map) : QAccessibleWidget(map, QAccessible::Canvas) {}
    ~MapAccess() override
    {
        for (const auto id : known) QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return static_cast<int>(InView().size()); }
    QAccessibleInterface* child(int index) const override
    {
        return index >= 0 && index < childCount() ? Of(InView()[static_cast<std::size_t>(index)]) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto& all = InView();
        const auto at = std::ranges::find_if(all, [&](int station) { return Of(station) == child; });
        return at == all.end() ? -1 : static_cast<int>(at - all.begin());
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        auto* stations = Maps().value(widget());
        const int at = stations == nullptr ? -1 : stations->Sprites().At(widget()->mapFromGlobal(QPoint(x, y)));
        return at < 0 ? nullptr : Of(at);
    }
    QAccessibleInterface* focusChild() const override
    {
        auto* stations = Maps().value(widget());
        if (stations == nullptr || !widget()->hasFocus()) return nullptr;
        const int chosen = stations->Sprites().Chosen();
        return chosen < 0 ? QAccessibleWidget::focusChild() : Of(chosen);
    }
    QString text(QAccessible::Text kind) const override
    {
        auto* stations = Maps().value(widget());
        if (kind != QAccessible::Description || stations == nullptr) return QAccessibleWidget::text(kind);
        return stations->Description();
    }
    /// The interface of a station, the same one each time.
    QAccessibleInterface* Of(int station) const
    {
        auto& id = known[station];
        if (id == 0) id = QAccessible::registerAccessibleInterface(new StationAccess(*widget(), station));
        return QAccessible::accessibleInterface(id);
    }

private:
    const std::vector<int>& InView() const
    {
        static const std::vector<int> none;
        auto* stations = Maps().value(widget());
        return stations == nullptr ? none : stations->Sprites().InView();
    }
    mutable QHash<int, QAccessible::Id> known;
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object)
{
    return Maps().contains(object) ? new MapAccess(static_cast<QWidget*>(object)) : nullptr;
}

} // namespace

void MakeReadable(QWidget& map, MapStations& stations)
{
    static const bool installed = (QAccessible::installFactory(MakeAccess), true);
    Q_UNUSED(installed)
    Maps().insert(&map, &stations);
}

void ForgetReadable(QWidget& map)
{
    Maps().remove(&map);
}

void TellChosen(QWidget& map, int station)
{
    if (!QAccessible::isActive() || station < 0) return;
    if (auto* access = dynamic_cast<MapAccess*>(QAccessible::queryAccessibleInterface(&map))) {
        QAccessibleEvent focus(access->Of(station), QAccessible::Focus);
        QAccessible::updateAccessibility(&focus);
    }
}

} // namespace halvern
