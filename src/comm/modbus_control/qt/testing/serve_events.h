// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QTimer>

namespace zorvane::testing {

/// Serves events until the condition holds; false after ten seconds.
template <class Condition> bool serveUntil(Condition condition) {
    bool late = false;
    QTimer limit;
    QObject::connect(&limit, &QTimer::timeout, &limit, [&late] { late = true; });
    limit.start(10000);
    while (!condition() && !late) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

/// Serves events for that long.
inline void serveFor(int ms) {
    bool over = false;
    QTimer::singleShot(ms, Qt::PreciseTimer, QCoreApplication::instance(), [&over] { over = true; });
    serveUntil([&over] { return over; });
}

} // namespace zorvane::testing
