// SPDX-License-Identifier: MIT
#include "survey/listen/read_times.h"

#include "comm/modbus_control/line/network_port.h"

#include <algorithm>

namespace zorvane::survey {

void Read_Times::add(const Exchange_Record& exchange, const Port_Settings& port) {
    if (!exchange.good || exchange.function != Function_Code::ReadHoldingRegisters) return;
    Port_Settings same = port;
    same.timeOutMs = port_.timeOutMs;
    if (!(same == port_)) {
        port_ = port;
        times_ = {};
    }
    const bool onLine = !framingOf(port.port).numbersRequests();
    const Micros sending = onLine ? wireTime(port.line, exchange.sent.size()) : 0;
    times_.add(std::max<Micros>(exchange.duration - sending, 0));
}

std::int32_t Read_Times::proposedTimeOutMs() const {
    return times_.count() < readsForProposal ? 0 : survey::proposedTimeOutMs(times_);
}

std::string Read_Times::text() const {
    if (times_.count() == 0) return "No read was answered yet.";
    const std::string reads = std::to_string(times_.count()) + (times_.count() == 1 ? " read" : " reads");
    return reads + " of unit " + std::to_string(port_.slave) + ": half answered within " +
           msText(times_.median()) + ", 99 % within " + msText(times_.p99()) + ".";
}

std::string msText(Micros time) {
    const std::int64_t tenths = (time + microsPerMs / 20) / (microsPerMs / 10);
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " ms";
}

} // namespace zorvane::survey
