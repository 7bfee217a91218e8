// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSettings>
#include <map>
#include <memory>

class QAction;

namespace halvern {

/// What the operator may switch about looks: pure display, that no rule of the station knows of.
enum class Look { DesktopNotices, ScaleBar, GridFigures, Legend, PlaceNames, Trails };

/// Looks, and where windows stood: kept by key in a file of its own, apart from the station's settings.
class Looks final : public QObject {
public:
    /// @param file  INI; an empty name keeps nothing beyond the run. One that can't be read counts as empty.
    explicit Looks(const QString& file, QObject* parent = nullptr);

    /// The check item of a look, which tells of its switching by `toggled`.
    QAction* Action(Look look) const { return actions.at(look); }
    /// In the order of the View menu.
    QList<QAction*> Actions() const;
    bool On(Look look) const;
    /// Whatever else is to be found again next time, such as the main window's size.
    void Keep(const QString& key, const QVariant& value);
    QVariant Kept(const QString& key) const;

private:
    std::unique_ptr<QSettings> file;
    std::map<Look, QAction*> actions;
};

} // namespace halvern
