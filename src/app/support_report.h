// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/last_traffic.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace zorvane::app {

/// How many of the newest exchanges and notes of the line go into a report.
inline constexpr std::size_t reportedTraffic = 200;

/// What somebody who helps needs to know, and nobody's name: no file, no user, no computer.
struct Support_Facts {
    std::string program; ///< "Zorvane 0.1.0"
    std::string library; ///< "Qt 6.4.2"
    std::string system;  ///< "Debian GNU/Linux 12, linux 6.1.0, x86_64"
    std::string screen;  ///< "1920x1080 at 100 %, dark"
    std::string model;   ///< of the document; empty for none
    std::string port;    ///< its settings in words
};

/// The report as a text of lines, UTF-8. `midnight` as for the monitor's rows.
[[nodiscard]] std::string supportReport(const Support_Facts& facts, const std::deque<Traffic_Entry>& traffic,
                                        Micros midnight);

/// The port without what may name somebody: "/dev/ttyUSB0, 9600,n,8,1, unit 1"; of a network line, host and
/// number are left out: "tcp, unit 1".
[[nodiscard]] std::string reportedPort(std::string_view port, std::string_view settings, std::int32_t unit);

} // namespace zorvane::app
