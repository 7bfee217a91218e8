// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Looks.h"

#include <QAction>

namespace halvern {
namespace {

struct LookRow {
    Look look;
    const char *key, *words, *tip;
    bool atStart;
};

constexpr LookRow LookRows[] = {
    {Look::DesktopNotices, "DesktopNotices", "Desktop &Notifications",
     "Have the desktop tell of messages to this station", false},
    {Look::ScaleBar, "ScaleBar", "Scale &Bar", "Nautical miles and kilometres on the map", true},
    {Look::GridFigures, "GridFigures", "Gr&id Figures", "Degrees at the edges of the map", true},
    {Look::Legend, "Legend", "&Legend", "What the colours of the labels say", true},
    {Look::PlaceNames, "PlaceNames", "Pla&ce Names", "Towns on the map, below the stations", true},
    {Look::Trails, "Trails", "T&rails", "The last places of stations that move, fading with age", false},
};

} // namespace

Looks::Looks(const QString& name, QObject* parent)
    : QObject(parent), file(name.isEmpty() ? nullptr : std::make_unique<QSettings>(name, QSettings::IniFormat))
{
    for (const auto& row : LookRows) {
        auto* action = new QAction(tr(row.words), this);
        action->setObjectName(QStringLiteral("Looks.%1").arg(row.key));
        action->setToolTip(tr(row.tip));
        action->setCheckable(true);
        const auto kept = Kept(row.key);
        action->setChecked(kept.isValid() ? kept.toBool() : row.atStart);
        connect(action, &QAction::toggled, this, [this, key = row.key](bool on) { Keep(key, on); });
        actions.emplace(row.look, action);
    }
}

QList<QAction*> Looks::Actions() const
{
    QList<QAction*> all;
    for (const auto& row : LookRows) all += Action(row.look);
    return all;
}

bool Looks::On(Look look) const
{
    return Action(look)->isChecked();
}

void Looks::Keep(const QString& key, const QVariant& value)
{
    if (file) file->setValue(key, value);
}

QVariant Looks::Kept(const QString& key) const
{
    return file ? file->value(key) : QVariant();
}

} // namespace halvern
