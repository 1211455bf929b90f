// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace zorvane::fuzz {

/// Ends the run as a finding, and says what doesn't hold.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

/// The same for two texts.
inline void requireSame(const std::string& found, const std::string& expected, const char* what) {
    if (found == expected) return;
    std::fprintf(stderr, "does not hold: %s\n  found    \"%s\"\n  expected \"%s\"\n", what, found.c_str(),
                 expected.c_str());
    std::abort();
}

} // namespace zorvane::fuzz
