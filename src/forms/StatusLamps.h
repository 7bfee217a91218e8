// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QToolButton>
#include <array>

#include "forms/Looks.h"
#include "forms/Mail.h"
#include "reports/PortLamps.h"

namespace halvern {

/// What of the station the status bar answers at a glance: each port by its lamp, packets a minute and stations,
/// messages that nobody has read, and whether the settings are saved. Looked at once a second, and at once when a port
/// opens, closes or is lost.
class StatusLamps final : public QWidget {
    Q_OBJECT
public:
    StatusLamps(Halvern& halvern, const Looks& looks, QWidget* parent);

signals:
    void MailWanted();
    void SaveTabWanted();

protected:
    void changeEvent(QEvent* event) override;

private:
    QToolButton* MakeLamp(MenuItem& item);
    void WatchPorts();
    void Look();
    void ShowLamp(QToolButton* button, const PortLamp& lamp, PortCondition& shown);
    void ShowFigures();
    void ShowSaved();
    void MakeMailMark(QHBoxLayout* row);
    void TellOfMail();

    Halvern& halvern;
    const Looks& looks;
    PortLamps ports;
    std::array<QToolButton*, PortLamps::Count> lamps{};
    std::array<PortCondition, PortLamps::Count> conditions{};
    QLabel* figures;
    QToolButton* unsaved;
    Mail* mail;
    std::array<int, 60> packets{}; ///< that came in each second of the last minute
    std::size_t second = 0;
    QTimer everySecond;
};

} // namespace halvern
