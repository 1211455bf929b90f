// SPDX-License-Identifier: MIT
#include "bench/link/pymodbus_engine.h"

#include <sstream>
#include <stdexcept>

namespace zorvane::bench {

namespace {

constexpr int longestWaitMs = 120'000;

} // namespace

Pymodbus_Engine::Pymodbus_Engine(const std::string& python, const std::string& script,
                                 const std::string& device, const Wire& wire) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(
        QString::fromStdString(python),
        {QString::fromStdString(script), QString::fromStdString(device), QString::number(wire.baud)});
    if (answerLine() != "ready") throw std::runtime_error("pymodbus doesn't start");
}

Pymodbus_Engine::~Pymodbus_Engine() {
    process_.closeWriteChannel();
    process_.waitForFinished();
}

std::vector<double> Pymodbus_Engine::exchange(const Rtu_Request& request, int count) {
    const QString order = QString("%1 %2 %3 %4\n")
                              .arg(static_cast<int>(request.function))
                              .arg(request.address)
                              .arg(request.count)
                              .arg(count);
    process_.write(order.toUtf8());
    std::istringstream line(answerLine());
    std::vector<double> times;
    for (double time = 0; line >> time;)
        times.push_back(time);
    if (times.size() != static_cast<std::size_t>(count)) throw std::runtime_error("pymodbus: " + line.str());
    return times;
}

std::string Pymodbus_Engine::answerLine() {
    while (!process_.canReadLine())
        if (!process_.waitForReadyRead(longestWaitMs)) throw std::runtime_error("pymodbus: no answer");
    return process_.readLine().trimmed().toStdString();
}

} // namespace zorvane::bench
