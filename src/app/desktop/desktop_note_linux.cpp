// SPDX-License-Identifier: MIT
#include "app/desktop/desktop_note.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QVariantMap>

namespace zorvane::app {

void showDesktopNote(const QString& summary, const QString& text) {
    QDBusConnection session = QDBusConnection::sessionBus();
    if (!session.isConnected()) return;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    constexpr quint32 newNote = 0;
    constexpr int asLongAsUsual = -1;
    call << QStringLiteral("Zorvane") << newNote << QStringLiteral("zorvane") << summary
         << text.toHtmlEscaped() << QStringList() << QVariantMap() << asLongAsUsual;
    session.asyncCall(call);
}

} // namespace zorvane::app
