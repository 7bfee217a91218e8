// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Mail.h"

#include <QGuiApplication>

#include "forms/Watching.h"

namespace halvern {
namespace {

constexpr int Minimised = 1; ///< the state of a place

} // namespace

Mail::Mail(Halvern& halvern, QObject* parent) : QObject(parent), halvern(halvern)
{
    auto& form = halvern.MessageFrm;
    List* const lists[] = {&form.TrafficLst, &form.MsgToYouLst, &form.BullLst};
    for (int tab = 0; tab < MailTabs; ++tab)
        WatchFor(this, *lists[tab], [this, tab](const Change& change) { Note(tab, change); });
    WatchFor(this, form.SSTab2, [this](const Change&) { Look(); });
    WatchFor(this, form, [this](const Change&) { Look(); });
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &Mail::Look);
}

void Mail::Note(int tab, const Change& change)
{
    const auto& form = halvern.MessageFrm;
    if (change.what == Change::RowsCleared) return Count(tab, 0);
    const bool updated = change.what == Change::RowReplaced && tab == BulletinsTab;
    if (change.what != Change::RowAdded && !updated) return;
    const auto& engine = halvern.Engine;
    if (!form.Directory().Present().station || engine.ReviewMode || Seen(tab)) return;
    if (tab == SendTab && form.MsgToYouLst.Row(change.row).starts_with(engine.OwnCall + ">")) return;
    Count(tab, News(tab) + 1);
}

void Mail::Look()
{
    for (int tab = 0; tab < MailTabs; ++tab)
        if (Seen(tab)) Count(tab, 0);
}

bool Mail::Seen(int tab) const
{
    const auto& form = halvern.MessageFrm;
    return form.Visible() && form.Place().state != Minimised && form.SSTab2.On(tab) &&
           QGuiApplication::applicationState() == Qt::ApplicationActive;
}

void Mail::Count(int tab, int rows)
{
    if (std::exchange(news[static_cast<std::size_t>(tab)], rows) == rows) return;
    emit NewsChanged(tab, rows);
    if (tab == SendTab) emit UnreadChanged(rows);
}

} // namespace halvern
