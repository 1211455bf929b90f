// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/registers/register_map.h"
#include "template/services/files.h"

#include <functional>
#include <string>

namespace zorvane::simulator {

/// Reads a template, and a configuration file over it when `configuration` isn't empty, and gives the
/// registers of the document and of the template's [IDENTITY]; the template tells the address base as well.
/// Paths are as `Files` takes them. A file that isn't there throws `std::runtime_error`; one that is only
/// readable in part gives what was read and is reported to `warn`.
[[nodiscard]] Register_Map readRegisters(Files& files, const std::string& templateFile,
                                         const std::string& configuration,
                                         const std::function<void(const std::string&)>& warn);

} // namespace zorvane::simulator
