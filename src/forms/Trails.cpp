// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Trails.h"

#include <QAction>
#include <QPainter>
#include <QTimer>
#include <QWidget>
#include <array>

#include "forms/Watching.h"
#include "platform/qt/screen/Palette.h"
#include "protocol/UtcTime.h"
#include "state/Rows.h"

namespace halvern {
namespace {

constexpr int FadeSteps = 8, MinutesAStep = 8;
constexpr int Brightest = 230, Faintest = 50; ///< opacity, of 255
constexpr float FarApart = 90;                ///< degrees; no station drives that far between two reports

QPen PenOf(int step)
{
    auto ink = PaletteColour(colour::Yellow);
    ink.setAlpha(Brightest - (Brightest - Faintest) * step / (FadeSteps - 1));
    return QPen(ink, 0);
}

/// A line of single pixels, or of two by two, between places in the picture. There are a quarter of a million of them,
/// and a painter takes four times as long.
void DrawLine(QRgb* pixels, qsizetype across, QPoint from, QPoint to, QRgb ink, int thick)
{
    constexpr int whole = 1 << 16;
    const auto way = to - from;
    const int steps = std::max({std::abs(way.x()), std::abs(way.y()), 1});
    int x = from.x() * whole + whole / 2, y = from.y() * whole + whole / 2;
    for (int i = 0; i <= steps; ++i, x += way.x() * whole / steps, y += way.y() * whole / steps)
        for (int down = 0; down < thick; ++down)
            for (int right = 0; right < thick; ++right) pixels[(y / whole + down) * across + x / whole + right] = ink;
}

bool SameFrame(const ViewFrame& a, const ViewFrame& b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

} // namespace

Trails::Trails(Halvern& halvern, const Looks& looks, QWidget& view) : halvern(halvern), view(view)
{
    auto* pacer = new Pacer(this, [this] { DrawFresh(); });
    auto& stations = halvern.PositionFrm.PosLst;
    WatchFor(this, stations, [this, pacer, &stations](const Change& change) {
        if (!on || change.what == Change::Selection || change.what == Change::Property) return;
        if (change.what == Change::RowAdded || change.what == Change::RowReplaced) {
            Note(change.row);
            if (!fresh.empty()) pacer->Ask();
        } else if (stations.Count() < static_cast<int>(trails.size())) {
            Switch(true); // rows went: what is left begins again
        }
    });
    auto* minute = new QTimer(this);
    connect(minute, &QTimer::timeout, this, [this] {
        if (on && places > trails.size()) this->view.update(); // the fading goes on
    });
    minute->start(60 * 1000);
    auto* action = looks.Action(Look::Trails);
    connect(action, &QAction::toggled, this, [this](bool now) { Switch(now); });
    Switch(action->isChecked());
}

// --- collecting ------------------------------------------------------------------------------------------------------

void Trails::Switch(bool now)
{
    on = now;
    trails = {};
    fresh = {};
    picture = {};
    drawnAt = {};
    places = hand = 0;
    view.update();
    const auto& stations = halvern.PositionFrm.PosLst;
    for (int i = 0; on && i < stations.Count(); ++i) Note(i);
}

int Trails::Minute() const
{
    return static_cast<int>(SecondsOf(UtcNow(halvern.Outside.clock)) / 60);
}

void Trails::Note(int station)
{
    const std::string_view row = halvern.PositionFrm.PosLst.Row(station);
    const auto index = static_cast<std::size_t>(station);
    const auto at = PlaceOfRow(row);
    const bool gone = IsGone(row) || at.lat == 0;
    if (index >= trails.size()) {
        if (gone) return; // not placed yet, and perhaps taken out again
        trails.resize(index + 1);
    }
    auto& trail = trails[index];
    const Place place{static_cast<float>(at.lat), static_cast<float>(at.lon), Minute()};
    const bool jumped = !trail.empty() && std::abs(trail.back().lon - place.lon) > FarApart;
    if (gone || jumped) {
        if (trail.size() > 1) drawnAt = {};
        places -= trail.size();
        trail = {};
        if (gone) return;
    }
    if (!trail.empty() && trail.back().lat == place.lat && trail.back().lon == place.lon) return;
    if (trail.size() == MostPlaces)
        trail.erase(trail.begin());
    else if (++places > MostPlacesInAll)
        MakeRoom();
    trail.push_back(place);
    if (trail.size() > 1) fresh.push_back({trail[trail.size() - 2], place});
}

/// Takes the older half of some trails, in turn.
void Trails::MakeRoom()
{
    for (std::size_t looked = 0; places > MostPlacesInAll && looked < trails.size(); ++looked) {
        auto& trail = trails[hand++ % trails.size()];
        const auto older = trail.size() / 2;
        trail.erase(trail.begin(), trail.begin() + static_cast<std::ptrdiff_t>(older));
        trail.shrink_to_fit();
        places -= older;
    }
}

std::vector<GroundPoint> Trails::PlacesOf(int station) const
{
    std::vector<GroundPoint> all;
    if (station >= 0 && station < static_cast<int>(trails.size()))
        for (const auto& place : trails[static_cast<std::size_t>(station)]) all.push_back({place.lat, place.lon});
    return all;
}

// --- drawing ---------------------------------------------------------------------------------------------------------

QPoint Trails::PixelOf(const Place& place) const
{
    return {static_cast<int>(std::floor((frame.left - place.lon) * scale.x() + 0.5)),
            static_cast<int>(std::floor((frame.top - place.lat) * scale.y() + 0.5))};
}

/// All of them anew.
void Trails::Draw()
{
    const auto ratio = view.devicePixelRatioF();
    const int now = Minute(), thick = std::max(1, static_cast<int>(ratio));
    frame = halvern.MapFrm.Map1.Frame();
    scale = {view.width() / (frame.left - frame.right), view.height() / (frame.top - frame.bottom)};
    if (picture.size() != view.size() * ratio)
        picture = QImage(view.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    fresh.clear();
    drawnAt = now;
    std::array<QRgb, FadeSteps> inks;
    for (int step = 0; step < FadeSteps; ++step) inks[step] = qPremultiply(PenOf(step).color().rgba());
    std::array<QList<QLine>, FadeSteps> crossing; // the edge of the view
    const QRect shown = view.rect();
    const auto inside = shown.adjusted(0, 0, -1, -1); // also in finer pixels, and where the line is thick
    auto* pixels = reinterpret_cast<QRgb*>(picture.bits());
    const auto across = picture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    for (const auto& trail : trails) {
        if (trail.size() < 2) continue;
        auto before = PixelOf(trail.front());
        for (std::size_t i = 1; i < trail.size(); ++i) {
            const auto next = PixelOf(trail[i]);
            if (next == before) continue; // no pixel apart
            const auto step =
                static_cast<std::size_t>(std::clamp((now - trail[i].minute) / MinutesAStep, 0, FadeSteps - 1));
            if (inside.contains(before) && inside.contains(next))
                DrawLine(pixels, across, before * ratio, next * ratio, inks[step], thick);
            else if (QRect(before, next).normalized().intersects(shown))
                crossing[step] += QLine(before, next);
            before = next;
        }
    }
    QPainter painter(&picture);
    for (int step = FadeSteps - 1; step >= 0; --step) {
        painter.setPen(PenOf(step));
        painter.drawLines(crossing[static_cast<std::size_t>(step)]);
    }
}

/// What came since, onto what is there.
void Trails::DrawFresh()
{
    const auto strokes = std::exchange(fresh, {});
    if (!drawnAt || !SameFrame(frame, halvern.MapFrm.Map1.Frame())) return view.update(); // all of it is drawn then
    QPainter painter(&picture);
    painter.setPen(PenOf(0));
    for (const auto& [from, to] : strokes) {
        const QLine stroke(PixelOf(from), PixelOf(to));
        painter.drawLine(stroke);
        view.update(QRect(stroke.p1(), stroke.p2()).normalized().adjusted(-1, -1, 1, 1));
    }
}

void Trails::Paint(QPainter& painter, const QRegion& region)
{
    if (!on) return;
    const auto ratio = view.devicePixelRatioF();
    if (drawnAt != Minute() || !SameFrame(frame, halvern.MapFrm.Map1.Frame()) || picture.size() != view.size() * ratio)
        Draw();
    for (const auto& rect : region)
        painter.drawImage(QRectF(rect), picture, QRectF(QPointF(rect.topLeft()) * ratio, QSizeF(rect.size()) * ratio));
}

} // namespace halvern
