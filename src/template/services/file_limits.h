// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>

namespace zorvane {

/// From now on a file that would grow beyond the limit set for this process fails as it does on a full disk,
/// with 75, where the system's signal would have ended the program in the midst of its work.
void takeFileSizeLimitAsFailure();

/// Waits until the disk has what was flushed to a file. 0, or -1 with `errno`.
[[nodiscard]] int syncToDisk(std::FILE* file);

} // namespace zorvane
