// SPDX-License-Identifier: MIT
#include "app/desktop/keep_awake.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>

namespace zorvane::app {

/// The lock is a descriptor: the system takes it back when it is closed, however the program ends.
struct Keep_Awake::State {
    QDBusUnixFileDescriptor lock;
    std::unique_ptr<QDBusPendingCallWatcher> asked;
};

Keep_Awake::Keep_Awake() : state_(std::make_unique<State>()) {}

Keep_Awake::~Keep_Awake() = default;

void Keep_Awake::hold(const QString& why) {
    QDBusConnection system = QDBusConnection::systemBus();
    if (!system.isConnected()) return;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
    call << QStringLiteral("sleep:idle") << QStringLiteral("Zorvane") << why << QStringLiteral("block");
    state_->asked = std::make_unique<QDBusPendingCallWatcher>(system.asyncCall(call));
    QObject::connect(state_->asked.get(), &QDBusPendingCallWatcher::finished, state_->asked.get(),
                     [state = state_.get()](QDBusPendingCallWatcher* watcher) {
                         const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *watcher;
                         if (reply.isValid()) state->lock = reply.value();
                     });
}

/// An answer that is still to come is thrown away, and its lock with it.
void Keep_Awake::release() {
    state_->asked.reset();
    state_->lock = {};
}

} // namespace zorvane::app
