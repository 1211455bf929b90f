// SPDX-License-Identifier: MIT
#pragma once

#include <QFileSystemWatcher>
#include <QString>
#include <QTimer>

#include <functional>

namespace zorvane {

/// Tells when a serial port may have been plugged in or out: some time after the last change in the folder of
/// the devices, since the system makes an entry first and gives rights to it later. On systems without such a
/// folder it never tells. REQUIRES: a QCoreApplication.
class Qt_Port_Watch final {
  public:
    explicit Qt_Port_Watch(std::function<void()> changed, const QString& folder = QStringLiteral("/dev"));

  private:
    QFileSystemWatcher watcher_;
    QTimer settled_;
};

} // namespace zorvane
