// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/SendTimes.h"

#include <QtWidgets>
#include <memory>

#include "forms/Watching.h"
#include "protocol/ObjectSchedule.h"
#include "protocol/UtcTime.h"

namespace halvern {
namespace {

constexpr int SecondMs = 1000;
constexpr std::int64_t ShownInSeconds = 120;

/// Counts along with the timer of the own objects: it tells of every start of its wait.
class SendTimes final : public QObject {
public:
    SendTimes(Halvern& halvern, QObject* parent) : QObject(parent), halvern(halvern)
    {
        WatchFor(this, halvern.ConMdiFrm.MyObjectTimer, [this](const Change&) { started = Now(); });
    }

    QString TextFor(std::string_view record) const
    {
        const auto& main = halvern.ConMdiFrm;
        const int row = main.MyObjectLst.IndexOf(record);
        if (row < 0 || row >= main.TransmitLst.Count()) return {}; // gone since the list was made
        const auto& timer = main.MyObjectTimer;
        const auto rest =
            timer.Interval() - std::clamp<std::int64_t>((Now() - started) * SecondMs, 0, timer.Interval());
        const auto until = UntilObjectGoesOut(main.TransmitLst.Row(row), timer.Interval(), main.ObjectCycle, rest);
        if (!until || !timer.Running()) return tr("not yet set");
        const auto seconds = (*until + SecondMs - 1) / SecondMs;
        return seconds <= ShownInSeconds ? tr("in %1 s").arg(seconds) : tr("in %1 min").arg((seconds + 59) / 60);
    }

private:
    std::int64_t Now() const { return SecondsOf(UtcNow(halvern.Outside.clock)); }

    Halvern& halvern;
    std::int64_t started = 0;
};

} // namespace

RowsView* MakeMyObjectRows(Halvern& halvern, List& list, QWidget* parent)
{
    auto* times = new SendTimes(halvern, parent);
    RowsLook look;
    look.columns = {{1, 10, "Goes out", "When the object is sent next",
                     [times](std::string_view record) { return times->TextFor(record); }},
                    {1, 0, "Object", "The object as it is sent, and the path behind the bar", {}}};
    auto* view = new RowsView(list, look, parent);
    view->RefreshEvery(SecondMs);
    return view;
}

} // namespace halvern
