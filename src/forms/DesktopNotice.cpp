// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/DesktopNotice.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

namespace halvern {

void NotifyDesktop(const QString& title, const QString& text)
{
    constexpr int byTheDesktop = -1; // how long it stands, ms
    auto call = QDBusMessage::createMethodCall("org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                                               "org.freedesktop.Notifications", "Notify");
    const QVariantMap hints{{"category", "im.received"}, {"desktop-entry", "halvern"}};
    call.setArguments({"Halvern", 0U, "halvern", title, text.toHtmlEscaped(), QStringList(), hints, byTheDesktop});
    QDBusConnection::sessionBus().send(call);
}

} // namespace halvern
