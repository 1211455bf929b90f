// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zorvane::fuzz {

/// What a reader of RTF sees of a file, in the bytes of its code page.
struct Rtf_Texts {
    std::vector<std::string> cells; ///< of all tables
    std::string text;               ///< outside of tables, each paragraph ended by LF
};

/// Reads a file strictly: one group holds all, groups are balanced, every byte is printable ASCII or an end
/// of line, and each control word's number has room in 32 bits.
[[nodiscard]] Rtf_Texts readRtf(std::string_view file);

/// A text as a reader should see it: control characters but for the tab, and bytes that stand for no
/// character, are replaced by 0x1A.
[[nodiscard]] std::string seenInRtf(std::string text);

} // namespace zorvane::fuzz
