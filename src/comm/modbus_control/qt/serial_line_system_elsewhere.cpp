// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/serial_line_system.h"

namespace zorvane {

std::string whyNotOpened(const std::string&, bool notFound, const std::string& systemText) {
    if (notFound) return portIsGone;
    if (systemText.find("denied") != std::string::npos) return portIsBusy;
    return systemText + ": check the adapter, or choose another port.";
}

bool isPseudoTerminal(const std::string&) { return false; }
bool enableKernelRs485(std::intptr_t, std::int32_t) { return false; }
void askLowLatency(std::intptr_t) {}
bool inputWaits(std::intptr_t) { return false; }
Byte_Array takeWaitingInput(std::intptr_t) { return {}; }
bool lineStands(std::intptr_t, const std::string&) { return false; }

} // namespace zorvane
