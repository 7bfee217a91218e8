// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/MapView.h"

#include <QtWidgets>
#include <algorithm>

#include "forms/Bind.h"
#include "forms/Glyphs.h"
#include "forms/Watching.h"
#include "map/MapMouse.h"
#include "view/Geometry.h"

namespace halvern {
namespace {

/// Dots of a picture for paper to a pixel of an ordinary screen.
constexpr qreal PaperFineness = 2;

MouseButton ButtonOf(const QMouseEvent* event)
{
    return event->button() == Qt::RightButton ? MouseButton::Right : MouseButton::Left;
}

} // namespace

MapView::MapView(Halvern& halvern, const Looks& looks, PlaceNames& places, QWidget* parent)
    : QWidget(parent), halvern(halvern), looks(looks), form(halvern.MapFrm),
      sprites(halvern.MapFrm, halvern.Map.StationPlot), stations(halvern, sprites, places, *this),
      trails(halvern, looks, *this), places(places), names(form, halvern.Map, places), legend(new MapLegend(this))
{
    for (Surface* surface : form.Surfaces()) drawn.push_back({surface, std::make_unique<MapPainter>(*surface)});
    drawn.front().painter->OnChange = [this] {
        furniture.Forget();
        update();
    };
    drawn.front().painter->OnBand = [this] { MoveBand(); };
    BindCommon(this, form.Map1);
    setToolTip({}); // each station has its own
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(120, 90);
    auto* settle = new Pacer(this, [this] { SettleSprites(); });
    const auto note = [this, settle](const Change& change) {
        if (change.what == Change::RowReplaced)
            sprites.Note(change.row);
        else
            sprites.NoteAll();
        settle->Ask();
    };
    WatchFor(this, form.SymPic, note);
    WatchFor(this, form.SymLbl, note);
    WatchFor(this, form.Map1, [this](const Change&) {
        UsePointer();
        update();
    });
    UsePointer();
    for (const auto look : {Look::ScaleBar, Look::GridFigures, Look::Legend, Look::PlaceNames})
        connect(looks.Action(look), &QAction::toggled, this, [this] {
            names.Forget();
            SettleLegend();
            update();
        });
    connect(legend, &MapLegend::PutAway, looks.Action(Look::Legend),
            [&looks] { looks.Action(Look::Legend)->setChecked(false); });
    WatchFor(this, halvern.ConMdiFrm.BitMapMenu, [this](const Change&) { SettleLegend(); });
}

void MapView::UsePointer()
{
    static const std::map<Pointer, Qt::CursorShape> shapes{{Pointer::Default, Qt::ArrowCursor},
                                                           {Pointer::CrossHair, Qt::CrossCursor},
                                                           {Pointer::HourGlass, Qt::WaitCursor},
                                                           {Pointer::Arrow, Qt::ArrowCursor}};
    setCursor(shapes.at(form.Map1.MousePointer()));
}

/// A little smaller than the desktop's, so that more labels find room.
QFont MapView::LabelFont() const
{
    auto smaller = font();
    smaller.setPointSizeF(smaller.pointSizeF() * 0.88);
    return smaller;
}

// --- painting --------------------------------------------------------------------------------------------------------

/// Stations, and the names below them that give way to them. @return what is to be painted anew
QRegion MapView::Settle(QSize viewSize)
{
    auto region = sprites.Settle(viewSize, LabelFont(), devicePixelRatioF());
    if (!looks.On(Look::PlaceNames) || (region.isEmpty() && names.Settled())) return region;
    region += names.Settle(viewSize, LabelFont(), sprites, furniture.ScaleBox());
    if (!std::exchange(namesAsked, true)) QTimer::singleShot(0, this, &MapView::TellNamesTrouble);
    return region;
}

void MapView::TellNamesTrouble()
{
    const auto trouble = places.Trouble();
    if (!trouble.empty()) halvern.All.Dispatch([&] { halvern.Note({"Place Names", trouble}); });
}

void MapView::SettleSprites()
{
    const auto region = Settle(size());
    if (!region.isEmpty()) update(region);
}

void MapView::SettleFurniture()
{
    if (furniture.Settled(size(), LabelFont(), devicePixelRatioF())) return;
    furniture.Settle(form.Map1.Frame(), size(), LabelFont(), devicePixelRatioF(), drawn.front().painter->Net());
    names.Forget();
}

/// Over a picture all labels have the same colours.
void MapView::SettleLegend()
{
    legend->setFont(LabelFont());
    if (looks.On(Look::Legend) && !halvern.ConMdiFrm.BitMapMenu.Checked())
        legend->Settle(size());
    else
        legend->hide();
}

void MapView::paintEvent(QPaintEvent* event)
{
    const auto& image = drawn.front().painter->Image(size(), devicePixelRatioF());
    SettleFurniture();
    const auto before = Settle(size());
    if (!event->region().contains(before.boundingRect()) && !before.isEmpty()) update(before);
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!panBy.isNull()) return PaintPanned(painter, image);
    painter.setClipRegion(event->region());
    const auto ratio = image.devicePixelRatio();
    for (const auto& rect : event->region())
        painter.drawImage(QRectF(rect), image, QRectF(QPointF(rect.topLeft()) * ratio, QSizeF(rect.size()) * ratio));
    if (looks.On(Look::GridFigures)) furniture.PaintFigures(painter, event->region());
    if (looks.On(Look::PlaceNames)) names.Paint(painter, event->region());
    trails.Paint(painter, event->region());
    sprites.Paint(painter, event->region());
    if (looks.On(Look::ScaleBar)) furniture.PaintScale(painter, event->region());
    if (const auto band = drawn.front().painter->Band(size())) MapPainter::DrawBand(painter, *band);
}

/// The picture as it is, held from its place: what comes into the view is drawn when it is let go.
void MapView::PaintPanned(QPainter& painter, const QImage& image)
{
    painter.fillRect(rect(), Qt::black);
    painter.translate(panBy);
    painter.drawImage(rect(), image);
    if (looks.On(Look::PlaceNames)) names.Paint(painter, rect());
    trails.Paint(painter, rect());
    sprites.Paint(painter, rect());
}

/// A drag costs the pixels of its box, however many stations there are.
void MapView::MoveBand()
{
    const auto before = std::exchange(bandAt, MapPainter::BandRegion(*drawn.front().painter->Band(size())));
    update(before + bandAt);
}

void MapView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (sprites.Pending() && event->oldSize().isValid()) Settle(event->oldSize());
    SettleLegend();
    FromScreen(form, [this] { form.SetClientSize(width(), height()); });
    update();
}

void MapView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) update();
}

QImage MapView::PictureOf(const Control& surface) const
{
    for (const auto& [candidate, painter] : drawn)
        if (candidate == &surface) return painter->Image({candidate->Width(), candidate->Height()}, PaperFineness);
    return {};
}

// --- the pointer -----------------------------------------------------------------------------------------------------

MapView::Place MapView::PlaceAt(QPointF pixel) const
{
    const auto& frame = form.Map1.Frame();
    return {.latitude = frame.top - pixel.y() / height() * (frame.top - frame.bottom),
            .longitude = frame.left - pixel.x() / width() * (frame.left - frame.right)};
}

void MapView::mousePressEvent(QMouseEvent* event)
{
    if (panFrom) return;
    if (event->button() == Qt::MiddleButton) return BeginPan(event->position().toPoint());
    if (event->button() != Qt::LeftButton && event->button() != Qt::RightButton) return;
    const auto at = PlaceAt(event->position());
    const int station = sprites.At(event->position().toPoint());
    if (!PanMode(halvern)) {
        stations.Choose(station);
        if (event->button() == Qt::RightButton) {
            if (station < 0) return OpenGroundMenu(event->globalPosition().toPoint(), at);
            if (stations.OpenPileMenu(event->position().toPoint())) return;
        }
    }
    FromScreen(form, [&] {
        if (station >= 0)
            SymbolMouseDown(halvern, station, ButtonOf(event));
        else
            Fire(form.Map1.OnMouseDown, ButtonOf(event), at.longitude, at.latitude);
    });
}

void MapView::mouseMoveEvent(QMouseEvent* event)
{
    if (panFrom) {
        panBy = event->position().toPoint() - *panFrom;
        return update();
    }
    auto at = PlaceAt(event->position());
    const int station = sprites.At(event->position().toPoint());
    FromScreen(form, [&] {
        if (station >= 0)
            SymbolMouseMove(halvern, station);
        else
            Fire(form.Map1.OnMouseMove, at.longitude, at.latitude);
    });
    if (station >= 0 && station < static_cast<int>(halvern.Map.StationPlot.size()))
        at = {halvern.Map.StationPlot[station].Lat, halvern.Map.StationPlot[station].Lon};
    emit PointerMoved(at.latitude, at.longitude);
}

void MapView::mouseReleaseEvent(QMouseEvent* event)
{
    if (panFrom && event->button() == Qt::MiddleButton) return EndPan(true);
    if (panFrom || (event->button() != Qt::LeftButton && event->button() != Qt::RightButton)) return;
    const auto at = PlaceAt(event->position());
    const int station = sprites.At(event->position().toPoint());
    FromScreen(form, [&] {
        if (station >= 0)
            SymbolMouseUp(halvern, station, ButtonOf(event));
        else
            Fire(form.Map1.OnMouseUp, ButtonOf(event), at.longitude, at.latitude);
    });
}

void MapView::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    emit PointerLeft();
}

/// The picture follows the pointer as it is; it is drawn when it is let go.
void MapView::BeginPan(QPoint at)
{
    if (halvern.ConMdiFrm.BitMapMenu.Checked() || halvern.Map.ZoomDown) return;
    panFrom = at;
    panBy = {};
    setCursor(Qt::ClosedHandCursor);
}

void MapView::EndPan(bool move)
{
    panFrom.reset();
    const auto by = std::exchange(panBy, {});
    UsePointer();
    if (move && !by.isNull())
        FromScreen(form, [&] {
            const auto& view = halvern.Map;
            MoveByDegrees(halvern, 2.0 * view.MapHalfLon * by.x() / width(), 2.0 * view.MapHalfLat * by.y() / height());
        });
    update();
}

/// What can be done where no station stands.
void MapView::OpenGroundMenu(QPoint at, const Place& place)
{
    auto& main = halvern.ConMdiFrm;
    auto* menu = new QMenu(this);
    menu->setObjectName("GroundMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool bound = main.BitMapMenu.Checked(); // the view is the picture's
    const auto add = [&](const QString& words, bool enabled, auto act) {
        menu->addAction(words, this, [this, act] { FromScreen(form, act); })->setEnabled(enabled);
    };
    add(tr("&Centre Here"), !bound, [this, place] {
        GoToView(halvern, std::clamp(static_cast<float>(place.latitude), -FurthestLat, FurthestLat),
                 std::remainder(static_cast<float>(place.longitude), 360.0F), halvern.Map.MapRange);
    });
    add(tr("C&loser"), !bound, [this, place] { ZoomAbout(halvern, place.latitude, place.longitude, 1); });
    add(tr("&Away"), !bound, [this, place] { ZoomAbout(halvern, place.latitude, place.longitude, -1); });
    add(tr("&Home"), !bound && main.HomeMenu.Enabled(), [&main] { main.HomeMenu.Click(); });
    menu->addSeparator();
    add(tr("Copy &Position"), true, [place] {
        const auto degrees = [](double angle) { return QString::number(angle, 'f', 5); };
        QApplication::clipboard()->setText(degrees(place.latitude) + " " +
                                           degrees(-std::remainder(place.longitude, 360.0)));
    });
    menu->popup(at);
}

void MapView::keyPressEvent(QKeyEvent* event)
{
    struct Key {
        int code;
        void (*act)(Halvern& halvern);
    };
    static constexpr Key keys[] = {
        {Qt::Key_Left, [](Halvern& station) { MoveByQuarters(station, 1, 0); }},
        {Qt::Key_Right, [](Halvern& station) { MoveByQuarters(station, -1, 0); }},
        {Qt::Key_Up, [](Halvern& station) { MoveByQuarters(station, 0, 1); }},
        {Qt::Key_Down, [](Halvern& station) { MoveByQuarters(station, 0, -1); }},
        {Qt::Key_Plus, [](Halvern& station) { ZoomAboutMiddle(station, 1); }},
        {Qt::Key_PageUp, [](Halvern& station) { ZoomAboutMiddle(station, 1); }},
        {Qt::Key_Minus, [](Halvern& station) { ZoomAboutMiddle(station, -1); }},
        {Qt::Key_PageDown, [](Halvern& station) { ZoomAboutMiddle(station, -1); }},
        {Qt::Key_Home, [](Halvern& station) { station.ConMdiFrm.HomeMenu.Click(); }},
        {Qt::Key_Escape, EndGesture},
    };
    if (stations.Press(*event)) return;
    const int code = event->key();
    if (panFrom && code == Qt::Key_Escape) return EndPan(false);
    const auto* key = std::ranges::find(keys, code, &Key::code);
    if (key == std::end(keys)) return QWidget::keyPressEvent(event);
    FromScreen(form, [&] { key->act(halvern); });
}

void MapView::wheelEvent(QWheelEvent* event)
{
    wheelTurn += event->angleDelta().y();
    const int steps = wheelTurn / QWheelEvent::DefaultDeltasPerStep;
    wheelTurn -= steps * QWheelEvent::DefaultDeltasPerStep;
    const auto at = PlaceAt(event->position());
    if (steps != 0 && !panFrom) FromScreen(form, [&] { ZoomAbout(halvern, at.latitude, at.longitude, steps); });
    event->accept();
}

void MapView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int station = sprites.At(event->position().toPoint());
    if (station >= 0 && event->button() == Qt::LeftButton && !PanMode(halvern))
        return stations.OpenInformation(station);
    QWidget::mouseDoubleClickEvent(event);
}

/// The menu key; the pointer's own menus come at its press.
void MapView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard && sprites.Chosen() >= 0) stations.OpenMenu(sprites.Chosen());
}

bool MapView::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), stations.TipAt(help->pos()), this);
        return true;
    }
    return QWidget::event(event);
}

} // namespace halvern
