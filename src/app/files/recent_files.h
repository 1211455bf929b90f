// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zorvane::app {

inline constexpr std::size_t mostRecentFiles = 9;

/// A document that was opened or saved lately.
struct Recent_File {
    std::string path;
    bool there = true; ///< its file is still where it was

    bool operator==(const Recent_File&) const = default;
};

/// The newest first, at most `mostRecentFiles`, each once.
[[nodiscard]] std::vector<Recent_File> recentFiles(const App_Context& app);

/// The document that is open now becomes the newest. One without a place isn't kept.
void noteRecentFile(const App_Context& app);

} // namespace zorvane::app
