// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/unit_access.h"
#include "survey/desk/known_template.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::survey {

/// What the templates make of a controller that was found.
struct Found_Identity {
    std::string verdict = "can't tell"; ///< "is", "isn't" or "can't tell"
    std::optional<std::string> model{}; ///< of the template that fits (Windows-1252)
};

/// Calls `ask` with what reads registers as a template numbers them, or not at all where the port doesn't
/// open.
using With_Reader =
    std::function<void(const Known_Template& known, const std::function<void(Unit_Reader&)>& ask)>;

/// Asks a controller whose it is: the first template that it fits. It isn't any of theirs when none of them
/// may be its own.
[[nodiscard]] Found_Identity identityOfFound(std::int32_t unit, const std::vector<Known_Template>& templates,
                                             const With_Reader& withReader);

} // namespace zorvane::survey
