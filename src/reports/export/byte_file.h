// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zorvane {

/// Writes a whole file of this machine (UTF-8 path), over one that is there, as `Replaced_File` does: as a
/// whole or not at all. Failures: 61 disk full, 70 no permission, 76 no such folder, 75 anything else.
void writeByteFile(const std::string& nativePath, const std::string& bytes);

} // namespace zorvane
