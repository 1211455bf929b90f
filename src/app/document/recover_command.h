// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <vector>

namespace zorvane::app {

/// "&Recover...": the copies on offer, the newest first.
[[nodiscard]] std::vector<Recovery_Entry> recoveryEntries(const App_Context& app);

/// Opens a copy as the Open command would, but as a document of its own: it has its name and no place, so
/// Save stays off until Save As gave it one, and it is marked as modified.
void openRecoveryCopy(const App_Context& app, const Recovery_Entry& entry);

} // namespace zorvane::app
