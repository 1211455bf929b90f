// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_finder.h"
#include "comm/modbus_control/line/port_settings.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zorvane {

/// What the template says of the link's timings, in ms; 0 or below where it says nothing.
struct Template_Timings {
    std::int32_t pauseMs = 0;
    std::int32_t timeOutMs = 0;
};

/// Which timings are in force, a sentence a line.
[[nodiscard]] std::string timingsText(const Template_Timings& ofTemplate, std::int32_t ownTimeOutMs);

/// A port as a list shows it: its name and what is known of it.
[[nodiscard]] std::string portListText(const Port_Entry& port);

/// Why a port can't be used whose driver doesn't take these settings.
[[nodiscard]] std::string lineRefusal(const Line_Settings& line);

/// "The serial port ttyUSB0 can't be opened.", or what stands for that on a network.
[[nodiscard]] std::string cannotOpenText(const std::string& port);

/// What is said of a port that went away while it was used: why, and what to do.
[[nodiscard]] std::string portLostText(const std::string& port, const std::string& reason);

/// A reason as the end of a sentence, whether or not it was one by itself.
[[nodiscard]] std::string endOfSentence(const std::string& reason);

/// What is known of the port that is chosen or typed, in one line.
[[nodiscard]] std::string portHint(const std::vector<Port_Entry>& ports, const std::string& chosen);

} // namespace zorvane
