// SPDX-License-Identifier: MIT
#pragma once

namespace zorvane::app {

/// Whether there is a display to show windows on. Without one Qt would advise to install the program again,
/// and abort.
[[nodiscard]] bool hasDisplay();

} // namespace zorvane::app
