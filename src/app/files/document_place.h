// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <optional>
#include <string>

namespace zorvane::app {

/// The path of the document's file, spelt as its folder has it: the document itself knows the name in capital
/// letters. Nothing while no document is open, it has no place of its own, or its file isn't there.
[[nodiscard]] std::optional<std::string> documentPlace(const App_Context& app);

} // namespace zorvane::app
