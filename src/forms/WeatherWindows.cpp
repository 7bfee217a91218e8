// SPDX-License-Identifier: GPL-3.0-or-later
#include <QSvgGenerator>
#include <QtCharts>

#include "forms/Dial.h"
#include "forms/DialogWindows.h"
#include "forms/Glyphs.h"
#include "forms/Watching.h"
#include "platform/Text.h"

namespace halvern {
namespace {

// --- the graph -------------------------------------------------------------------------------------------------------

/// A graph that a person can read: grid and units, the value under the pointer with its time, in the desktop's colours.
class GraphView final : public QChartView {
public:
    GraphView(GraphForm& form, QWidget* parent) : QChartView(parent), form(form)
    {
        constexpr int columns = 70, lines = 24;
        setMinimumSize(fontMetrics().averageCharWidth() * columns, fontMetrics().height() * lines);
        setRenderHint(QPainter::Antialiasing);
        setMouseTracking(true);
        viewport()->setMouseTracking(true);
        for (QAbstractSeries* series : std::initializer_list<QAbstractSeries*>{&line, &points}) {
            chart()->addSeries(series);
        }
        chart()->legend()->hide();
        chart()->addAxis(&reports, Qt::AlignBottom);
        chart()->addAxis(&values, Qt::AlignLeft);
        for (QAbstractSeries* series : std::initializer_list<QAbstractSeries*>{&line, &points}) {
            series->attachAxis(&reports);
            series->attachAxis(&values);
        }
        reports.setLabelFormat("%d");
        reports.setTickType(QValueAxis::TicksDynamic);
        reports.setTickAnchor(1);
        values.setLabelFormat("%.4g");
        TakeColours();
        WatchFor(this, form.Graph1, [this](const Change&) { Follow(); });
        WatchFor(this, form, [this](const Change&) { Follow(); });
    }
    ~GraphView() override
    {
        for (QAbstractSeries* series : std::initializer_list<QAbstractSeries*>{&line, &points})
            chart()->removeSeries(series);
        chart()->removeAxis(&reports);
        chart()->removeAxis(&values);
    }

    void FitToValues(bool fits)
    {
        fitted = fits;
        Follow();
    }

    /// Number, time and value of each report, a line each; the values' heading may hold a comma.
    QString Table() const
    {
        QString text = tr("Report,Time,\"%1\"\n").arg(values.titleText());
        for (int i = 0; i < form.GraphLst.Count(); ++i)
            text += QString("%1,%2,%3\n").arg(i + 1).arg(TimeOf(i), Shown(form.GraphLst.Row(i)));
        return text;
    }

    /// Writes what the name's extension asks for: SVG, CSV, or a picture. @return whether the file took it
    bool Save(const QString& path)
    {
        if (path.endsWith(".csv", Qt::CaseInsensitive)) {
            QSaveFile file(path);
            return file.open(QIODevice::WriteOnly) && file.write(Table().toUtf8()) >= 0 && file.commit();
        }
        if (!path.endsWith(".svg", Qt::CaseInsensitive)) return grab().save(path);
        QSvgGenerator svg;
        svg.setFileName(path);
        svg.setSize(size());
        svg.setViewBox(rect());
        svg.setTitle(chart()->title());
        QPainter painter;
        if (!painter.begin(&svg)) return false;
        render(&painter);
        return painter.end();
    }

protected:
    void changeEvent(QEvent* event) override
    {
        if (event->type() == QEvent::PaletteChange) TakeColours();
        QChartView::changeEvent(event);
    }
    /// The tip is the point's under the pointer, at once, and not the window's.
    bool viewportEvent(QEvent* event) override
    {
        if (event->type() == QEvent::ToolTip) return true;
        if (event->type() == QEvent::MouseMove) ShowTip(static_cast<QMouseEvent*>(event)->position().toPoint());
        return QChartView::viewportEvent(event);
    }

private:
    void ShowTip(QPoint pointer)
    {
        const int near = fontMetrics().height();
        for (const auto& point : points.points()) {
            const auto place = mapFromScene(chart()->mapToScene(chart()->mapToPosition(point, &points)));
            if ((place - pointer).manhattanLength() <= near)
                return QToolTip::showText(viewport()->mapToGlobal(pointer), Tip(point), this);
        }
        QToolTip::hideText();
    }

    QString TimeOf(int report) const
    {
        const auto index = static_cast<std::size_t>(report);
        return index < form.Times.size() ? Shown(form.Times[index]) : QString();
    }

    QString Tip(const QPointF& point) const
    {
        const int report = qRound(point.x());
        const auto time = TimeOf(report - 1);
        return tr("Report %1%2\n%3: %4")
            .arg(report)
            .arg(time.isEmpty() ? QString() : tr(" at %1 UTC").arg(time), values.titleText())
            .arg(point.y());
    }

    void Follow()
    {
        QList<QPointF> drawn;
        for (int i = 0; i < form.GraphLst.Count(); ++i) drawn += {i + 1.0, LeadingNumber(form.GraphLst.Row(i))};
        line.replace(drawn);
        points.replace(drawn);
        reports.setTitleText(Shown(form.BottomTitle));
        values.setTitleText(form.LeftTitle == "Temperature" ? tr("Temperature, °F") : Shown(form.LeftTitle));
        constexpr double ticks = 8, margin = 0.5; // the first and the last point stand whole within the frame
        const auto count = std::max(2.0, static_cast<double>(drawn.size()));
        reports.setRange(1 - margin, count + margin);
        reports.setTickInterval(std::max(1.0, std::ceil(count / ticks)));
        if (form.UpperBound > form.LowerBound) values.setRange(form.LowerBound, form.UpperBound);
        values.setTickCount(11);
        if (fitted && !drawn.isEmpty()) FitAxis(drawn);
        const bool seen = std::ranges::any_of(
            drawn, [this](const QPointF& point) { return point.y() >= values.min() && point.y() <= values.max(); });
        chart()->setTitle(Shown(form.Graph1.Caption()) +
                          (seen ? QString() : tr(" (all values lie outside of these bounds)")));
        setAccessibleDescription(tr("%1 values").arg(drawn.size()));
    }

    void FitAxis(const QList<QPointF>& drawn)
    {
        const auto [low, high] =
            std::minmax_element(drawn.begin(), drawn.end(), [](auto one, auto other) { return one.y() < other.y(); });
        const double room = std::max((high->y() - low->y()) / 10, 0.5);
        values.setRange(low->y() - room, high->y() + room);
        values.applyNiceNumbers();
    }

    void TakeColours()
    {
        const auto& colours = palette();
        const auto text = colours.color(QPalette::Text), ground = colours.color(QPalette::Base);
        auto grid = text;
        grid.setAlphaF(0.2F);
        chart()->setBackgroundBrush(ground);
        chart()->setTitleBrush(text);
        for (QValueAxis* axis : {&reports, &values}) {
            axis->setLabelsBrush(text);
            axis->setTitleBrush(text);
            axis->setLinePenColor(text);
            axis->setGridLineColor(grid);
        }
        line.setPen(QPen(colours.color(QPalette::Highlight), 2));
        points.setColor(colours.color(QPalette::Highlight));
        points.setPen(Qt::NoPen); // a rim would hide the line where many reports stand close
        points.setMarkerSize(fontMetrics().height() / 2.5);
    }

    GraphForm& form;
    QLineSeries line;
    QScatterSeries points;
    QValueAxis reports, values;
    bool fitted = false;
};

void SaveGraph(GraphView* graph)
{
    QFileDialog dialog(graph, QObject::tr("Save Graph"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(
        {QObject::tr("Pictures (*.png)"), QObject::tr("Drawings (*.svg)"), QObject::tr("Tables (*.csv)")});
    const auto suffix = [&dialog](const QString& filter) { dialog.setDefaultSuffix(filter.section('.', 1).left(3)); };
    QObject::connect(&dialog, &QFileDialog::filterSelected, suffix);
    suffix(dialog.selectedNameFilter());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    const auto path = dialog.selectedFiles().constFirst();
    if (!graph->Save(path))
        QMessageBox::critical(graph, ProgramTitle, QObject::tr("%1 could not be written.").arg(path));
}

/// The buttons that only the window has.
QWidget* GraphTools(GraphView* graph, QWidget* parent)
{
    auto* fit = new QCheckBox(QObject::tr("&Fit the axis to the values"), parent);
    auto* copy = new QPushButton(QObject::tr("Cop&y"), parent);
    auto* save = new QPushButton(QObject::tr("&Save..."), parent);
    copy->setToolTip(QObject::tr("Puts the graph on the clipboard as a picture"));
    save->setToolTip(QObject::tr("Saves the graph as a picture, a drawing or a table"));
    for (auto* button : {copy, save}) button->setAutoDefault(false);
    QObject::connect(fit, &QCheckBox::toggled, graph, [graph](bool on) { graph->FitToValues(on); });
    QObject::connect(copy, &QPushButton::clicked, graph,
                     [graph] { QApplication::clipboard()->setPixmap(graph->grab()); });
    QObject::connect(save, &QPushButton::clicked, graph, [graph] { SaveGraph(graph); });
    return Beside({fit, copy, save}, parent);
}

// --- the wind --------------------------------------------------------------------------------------------------------

constexpr int RoseStep = 10, RoseLabels = 90;
constexpr double FullCircle = 360;
constexpr double SpeedArc = 270; ///< degrees of the speed's scale

DialScale Rose()
{
    return {.first = 0,
            .last = FullCircle,
            .start = 0,
            .sweep = FullCircle,
            .step = RoseStep,
            .labelled = RoseLabels,
            .label = [](double degrees) { return QString("NESW").mid(qRound(degrees) / RoseLabels % 4, 1); }};
}

/// A scale that the fastest wind of the list still fits on.
DialScale SpeedScale(const List& speeds)
{
    double fastest = 0;
    for (int i = 0; i < speeds.Count(); ++i) fastest = std::max(fastest, LeadingNumber(speeds.Row(i)));
    double top = 25;
    while (top < fastest) top *= 2;
    return {.first = 0,
            .last = top,
            .start = -SpeedArc / 2,
            .sweep = SpeedArc,
            .step = top / 25,
            .labelled = top / 5,
            .label = [](double speed) { return QString::number(speed); }};
}

} // namespace

DialogWindow* MakeGraphWindow(Halvern& halvern, QWidget* parent)
{
    auto& form = halvern.GraphFrm;
    auto* window = new DialogWindow(form, parent);
    auto* layout = new QVBoxLayout(window);
    auto* graph = new GraphView(form, window);
    BindCommon(graph, form.Graph1, QObject::tr("Graph"));
    auto* list = DialogRows(halvern, form.GraphLst, window);
    auto* column = new QVBoxLayout;
    list->setFixedWidth(list->minimumWidth()); // the room is the graph's
    AddList(column, form.GraphLst, list);
    auto* above = new QHBoxLayout;
    above->addWidget(graph, 1);
    above->addLayout(column);
    layout->addLayout(above, 1);
    layout->addWidget(GraphTools(graph, window));
    layout->addWidget(ButtonRow(window, {&form.CloseCmd}));
    return window;
}

DialogWindow* MakeCompassWindow(Halvern& halvern, QWidget* parent)
{
    auto& form = halvern.CompassFrm;
    auto* window = new DialogWindow(form, parent);
    auto* layout = new QVBoxLayout(window);
    auto* dials = new QHBoxLayout;
    auto* rose = new Dial(Rose(), QObject::tr("%1 degrees"), window);
    auto* speed = new Dial(SpeedScale(form.SpeedLst), QObject::tr("%1 mph"), window);
    BindCommon(rose, form.DirGage);
    BindCommon(speed, form.Slider1);
    // the gauge of the form counts from its left end, the rose from the north: the report says where the wind is from
    WatchFor(rose, form.DirectionLst,
             [rose, &form](const Change&) { rose->Point(LeadingNumber(form.DirectionLst.Text())); });
    WatchFor(speed, form.SpeedLst, [speed, &form](const Change&) { speed->SetScale(SpeedScale(form.SpeedLst)); });
    WatchFor(speed, form.Slider1, [speed, &form](const Change&) { speed->Point(form.Slider1.Value()); });
    dials->addWidget(rose, 1);
    dials->addWidget(speed, 1);
    layout->addLayout(dials, 2);
    auto* lists = new QHBoxLayout;
    for (List* each : {&form.CompassLst, &form.DirectionLst, &form.SpeedLst}) {
        auto* column = new QVBoxLayout;
        AddList(column, *each, DialogRows(halvern, *each, window));
        lists->addLayout(column);
    }
    layout->addLayout(lists, 1);
    layout->addWidget(ButtonRow(window, {&form.RunSimulation, &form.CancelButton}));
    return window;
}

} // namespace halvern
