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

MapView::MapView(Halvern& halvern, const Looks& looks, QWidget* parent)
    : QWidget(parent), halvern(halvern), looks(looks), form(halvern.MapFrm), sprites(halvern.MapFrm)
{
    for (Surface* surface : form.Surfaces()) drawn.push_back({surface, std::make_unique<MapPainter>(*surface)});
    drawn.front().painter->OnChange = [this] { update(); };
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

void MapView::SettleSprites()
{
    const auto region = sprites.Settle(size(), LabelFont(), devicePixelRatioF());
    if (!region.isEmpty()) update(region);
}

void MapView::paintEvent(QPaintEvent* event)
{
    const auto before = sprites.Settle(size(), LabelFont(), devicePixelRatioF());
    if (!event->region().contains(before.boundingRect()) && !before.isEmpty()) update(before);
    const auto& image = drawn.front().painter->Image(size(), devicePixelRatioF());
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setClipRegion(event->region());
    const auto ratio = image.devicePixelRatio();
    for (const auto& rect : event->region())
        painter.drawImage(QRectF(rect), image, QRectF(QPointF(rect.topLeft()) * ratio, QSizeF(rect.size()) * ratio));
    sprites.Paint(painter, event->region());
    if (const auto band = drawn.front().painter->Band(size())) MapPainter::DrawBand(painter, *band);
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
    if (sprites.Pending() && event->oldSize().isValid())
        sprites.Settle(event->oldSize(), LabelFont(), devicePixelRatioF());
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
    const auto at = PlaceAt(event->position());
    const int station = sprites.At(event->position().toPoint());
    FromScreen(form, [&] {
        if (station >= 0)
            SymbolMouseDown(halvern, station, ButtonOf(event));
        else
            Fire(form.Map1.OnMouseDown, ButtonOf(event), at.longitude, at.latitude);
    });
}

void MapView::mouseMoveEvent(QMouseEvent* event)
{
    const auto at = PlaceAt(event->position());
    const int station = sprites.At(event->position().toPoint());
    FromScreen(form, [&] {
        if (station >= 0)
            SymbolMouseMove(halvern, station);
        else
            Fire(form.Map1.OnMouseMove, at.longitude, at.latitude);
    });
}

void MapView::mouseReleaseEvent(QMouseEvent* event)
{
    const auto at = PlaceAt(event->position());
    const int station = sprites.At(event->position().toPoint());
    FromScreen(form, [&] {
        if (station >= 0)
            SymbolMouseUp(halvern, station, ButtonOf(event));
        else
            Fire(form.Map1.OnMouseUp, ButtonOf(event), at.longitude, at.latitude);
    });
}

void MapView::StepCloser(int steps)
{
    auto& range = halvern.ConMdiFrm.ScaleCombo;
    if (!range.Visible() || !range.Enabled() || range.Selected() < 0) return;
    const int next = std::clamp(range.Selected() + steps, 0, range.Count() - 1);
    FromScreen(range, [&] { range.Click(next); });
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
        {Qt::Key_Home, [](Halvern& station) { station.ConMdiFrm.HomeMenu.Click(); }},
        {Qt::Key_Escape, EndGesture},
    };
    const int code = event->key();
    if (code == Qt::Key_Plus || code == Qt::Key_PageUp) return StepCloser(1);
    if (code == Qt::Key_Minus || code == Qt::Key_PageDown) return StepCloser(-1);
    const auto* key = std::ranges::find(keys, code, &Key::code);
    if (key == std::end(keys)) return QWidget::keyPressEvent(event);
    FromScreen(form, [&] { key->act(halvern); });
}

void MapView::wheelEvent(QWheelEvent* event)
{
    wheelTurn += event->angleDelta().y();
    const int steps = wheelTurn / QWheelEvent::DefaultDeltasPerStep;
    wheelTurn -= steps * QWheelEvent::DefaultDeltasPerStep;
    if (steps != 0) StepCloser(steps);
    event->accept();
}

QString MapView::TextAt(QPoint place) const
{
    const int station = sprites.At(place);
    const auto& rows = halvern.PositionFrm.PosLst;
    return station >= 0 && station < rows.Count() ? Shown(rows.Row(station)) : QString();
}

bool MapView::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), TextAt(help->pos()), this);
        return true;
    }
    return QWidget::event(event);
}

} // namespace halvern
