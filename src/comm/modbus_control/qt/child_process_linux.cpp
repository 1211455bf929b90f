// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/child_process.h"

#include <QProcess>

#include <sys/prctl.h>

#include <csignal>
#include <unistd.h>

namespace zorvane {

void endWithParent(QProcess& process) {
    process.setChildProcessModifier([parent = ::getpid()] {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (::getppid() != parent) ::_exit(1);
    });
}

} // namespace zorvane
