// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/trial_exchange.h"
#include "comm/modbus_control/line/network_port.h"

#include <string>
#include <vector>

namespace zorvane {

// What to do about a test on a port on a network, in order of likelihood.

[[nodiscard]] std::vector<std::string> silenceAdvice(const Network_Port& port, const Port_Settings& settings);
[[nodiscard]] std::vector<std::string> damageAdvice(const Network_Port& port);
/// What came back is a whole answer, but not the one asked for.
[[nodiscard]] std::vector<std::string> strangerAdvice(const Network_Port& port,
                                                      const Port_Settings& settings);
/// The gateway's own exceptions 10 and 11: it is there, the unit isn't.
[[nodiscard]] std::vector<std::string> gatewayAdvice(std::uint8_t exception, const Port_Settings& settings);
[[nodiscard]] std::vector<std::string> closedAdvice();

} // namespace zorvane
