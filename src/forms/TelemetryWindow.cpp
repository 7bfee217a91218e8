// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/DialogWindows.h"
#include "forms/Glyphs.h"
#include "forms/StoreWindows.h"
#include "forms/Watching.h"
#include "protocol/Telemetry.h"

namespace halvern {
namespace {

/// The telemetry of the raw packets in a table, by station, the newest first. It reads only what is new, and only while
/// it is on the screen.
class TelemetryTable final : public QTableWidget {
public:
    TelemetryTable(List& raw, QWidget* parent) : QTableWidget(parent), raw(raw), pacer(this, [this] { Follow(); })
    {
        setColumnCount(3);
        setHorizontalHeaderLabels({tr("Call"), tr("Number"), tr("Readings")});
        setEditTriggers(NoEditTriggers);
        setSelectionBehavior(SelectRows);
        setAlternatingRowColors(true);
        setWordWrap(false);
        setTabKeyNavigation(false);
        verticalHeader()->hide();
        verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 5 / 4);
        horizontalHeader()->setStretchLastSection(true);
        setAccessibleName(tr("Telemetry by station"));
        WatchFor(this, raw, [this](const Change& change) { Note(change); });
    }

protected:
    void showEvent(QShowEvent* event) override
    {
        QTableWidget::showEvent(event);
        Follow();
    }

private:
    void Note(const Change& change)
    {
        if (change.what == Change::RowsCleared) book.Clear(), taken = 0;
        if (change.what == Change::RowRemoved) taken = std::min(taken, change.row);
        if (isVisible()) pacer.Ask();
    }

    void Follow()
    {
        if (!isVisible()) return;
        bool news = taken == 0;
        for (; taken < raw.Count(); ++taken) news |= book.Take(raw.Row(taken));
        if (news) ShowLines(book.Lines());
    }

    void ShowLines(const std::vector<TelemetryLine>& lines)
    {
        setRowCount(static_cast<int>(lines.size()));
        for (int row = 0; row < rowCount(); ++row) {
            const auto& line = lines[static_cast<std::size_t>(row)];
            const std::string* const texts[] = {&line.call, &line.number, &line.words};
            for (int column = 0; column < columnCount(); ++column) {
                if (item(row, column) == nullptr) setItem(row, column, new QTableWidgetItem);
                item(row, column)->setText(Shown(*texts[column]));
                item(row, column)->setToolTip(Shown(*texts[column]));
            }
        }
        resizeColumnToContents(0);
        resizeColumnToContents(1);
    }

    List& raw;
    TelemetryBook book;
    int taken = 0; ///< raw rows that the book has
    Pacer pacer;
};

} // namespace

QWidget* MakeTelemetryWindow(Halvern& halvern)
{
    auto* window = new QWidget;
    auto* layout = new QVBoxLayout(window);
    layout->setContentsMargins({});
    layout->addWidget(new TelemetryTable(halvern.TerminalFrm.RawPacketLst, window));
    return window;
}

} // namespace halvern
