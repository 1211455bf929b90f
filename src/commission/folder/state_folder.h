// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zorvane::commission {

/// $XDG_STATE_HOME/zorvane, else ~/.local/state/zorvane (XDG Base Directory Specification): where runs, locks
/// and serial numbers are kept. UTF-8, without a separator at its end.
[[nodiscard]] std::string userStateFolder();

/// The folder of all runs in it.
[[nodiscard]] inline std::string runsFolder(const std::string& stateFolder) { return stateFolder + "/runs"; }
/// The folder of the locks of ports.
[[nodiscard]] inline std::string locksFolder(const std::string& stateFolder) {
    return stateFolder + "/locks";
}
/// The file with the heads of records, by site.
[[nodiscard]] inline std::string sitesFile(const std::string& stateFolder) {
    return stateFolder + "/sites.json";
}

} // namespace zorvane::commission
