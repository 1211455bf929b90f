// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/faults/fault_rule.h"
#include "simulator/faults/quirk_rule.h"
#include "simulator/line/line_pace.h"
#include "simulator/registers/register_map.h"

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zorvane::simulator {

/// The controller that takes the place of the first one.
struct Exchange_Options {
    int after = 0;             ///< requests; 0: never
    std::string templateFile;  ///< empty: that of the first one
    std::string configuration; ///< empty: the template's own values
    std::string registers;     ///< empty: none
};

/// What the command line of zorvane-sim says.
struct Options {
    std::string templateFile;
    std::string configuration; ///< empty: the template's own values
    std::string registers;     ///< empty: none
    int slave = 1;
    std::string ptyLink; ///< one of these three is set
    std::string device;
    std::optional<std::uint16_t> tcpPort; ///< 0: the system chooses
    std::string listenAddress = "127.0.0.1";
    bool rtuOverTcp = false; ///< the frames of a serial line over TCP
    Line_Settings settings;
    std::optional<int> pace; ///< baud; none: as fast as it goes
    int turnaroundMs = 0;
    std::uint64_t seed = 1;
    std::vector<Fault_Rule> faults;
    std::vector<Quirk_Rule> quirks;
    Device_Objects objects;
    std::string storage; ///< empty: none
    int storeAfterMs = 0;
    Exchange_Options exchange;
    std::string log; ///< empty: none, "-": standard output
};

/// The options, or the exit code with which to end: 0 after the help, 2 after wrong usage. Both are printed.
[[nodiscard]] std::variant<Options, int> parseOptions(int argc, const char* const* argv, std::ostream& out,
                                                      std::ostream& complaints);

/// Whether requests and answers are frames of Modbus TCP.
[[nodiscard]] inline bool speaksModbusTcp(const Options& options) {
    return options.tcpPort.has_value() && !options.rtuOverTcp;
}

/// The pace that the options ask for.
[[nodiscard]] Line_Pace paceOf(const Options& options);

} // namespace zorvane::simulator
