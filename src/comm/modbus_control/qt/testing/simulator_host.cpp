// SPDX-License-Identifier: MIT
// Starts the simulated controller as the window does, tells its line and its process, and waits to be killed:
// simulator_host PROGRAM TEMPLATE
#include "comm/modbus_control/qt/qt_simulator.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 3) return 2;
    zorvane::Qt_Simulator simulator([argv] { return std::string(argv[2]); }, QString::fromLocal8Bit(argv[1]));
    const zorvane::Simulator::Start started = simulator.start(1);
    std::printf("%s %lld\n", started.path.c_str(), static_cast<long long>(simulator.processId()));
    std::fflush(stdout);
    return QCoreApplication::exec();
}
