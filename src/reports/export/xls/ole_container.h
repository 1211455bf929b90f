// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zorvane {

/// An OLE2 compound file with one stream of that name. Failure 75 when it can't be made.
[[nodiscard]] std::string oleFile(const std::string& streamName, const std::string& stream);

} // namespace zorvane
