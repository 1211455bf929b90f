// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zorvane {

/// How a controller leaves the works, as its template tells a reader: the keys that the programs pass over
/// when they open a port, because the user's own settings hold there.
struct Works_Settings {
    std::optional<std::string> line; ///< "9600,n,8,1", as written
    std::optional<std::int32_t> unit;

    bool operator==(const Works_Settings&) const = default;
};

/// SETTINGS and RTU of [PORT_CONFIGURATION] in a template's whole text. The later of two lines counts.
[[nodiscard]] Works_Settings readWorksSettings(std::string_view templateText);

} // namespace zorvane
