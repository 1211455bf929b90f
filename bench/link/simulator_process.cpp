// SPDX-License-Identifier: MIT
#include "bench/link/simulator_process.h"

#include <stdexcept>

namespace zorvane::bench {

Simulator_Process::Simulator_Process(const std::string& program, const std::string& link, const Wire& wire,
                                     const QStringList& arguments)
    : link_(link) {
    QStringList words = arguments;
    words << "--pty" << QString::fromStdString(link) << "--settings"
          << QString::fromStdString(wire.settingsText());
    if (wire.paced) words << "--pace" << QString::number(wire.baud);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QString::fromStdString(program), words);
    while (!process_.canReadLine())
        if (!process_.waitForReadyRead(10'000)) throw std::runtime_error(program + " doesn't start");
}

Simulator_Process::~Simulator_Process() {
    process_.terminate();
    process_.waitForFinished();
}

} // namespace zorvane::bench
