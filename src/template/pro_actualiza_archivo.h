// SPDX-License-Identifier: MIT
#pragma once

#include "template/services/files.h"

#include <string>
#include <string_view>

namespace zorvane {

/// Rewrites a configuration file of the older KVRT generation, whose first two fields stood in the other
/// order, as `stem_path` + "_Updated." + `extension`. The old file, `stem_path` + "." + `extension`, stays as
/// it is. Failures of the files go to the caller.
void PRO_Actualiza_Archivo(Files& files, const std::string& stem_path, const std::string& extension);

/// The name of the file that the update writes.
[[nodiscard]] std::string updatedPath(const std::string& stem_path, const std::string& extension);

} // namespace zorvane
