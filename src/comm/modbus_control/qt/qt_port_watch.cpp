// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_port_watch.h"

#include <QDir>

namespace zorvane {

namespace {

constexpr int settleMs = 150;

} // namespace

Qt_Port_Watch::Qt_Port_Watch(std::function<void()> changed, const QString& folder) {
    settled_.setSingleShot(true);
    settled_.setInterval(settleMs);
    QObject::connect(&settled_, &QTimer::timeout, &settled_, std::move(changed));
    QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &settled_,
                     [this] { settled_.start(); });
    if (QDir(folder).exists()) watcher_.addPath(folder);
}

} // namespace zorvane
