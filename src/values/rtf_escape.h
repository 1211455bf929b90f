// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zorvane {

/// A text in Windows-1252 within a line of an RTF document ("Rich Text Format (RTF) Specification,
/// Version 1.9.1"): printable ASCII only. What stands for no character, a control character or one of the
/// bytes without one, becomes U+FFFD, since readers stumble over some of them.
[[nodiscard]] std::string rtfEscaped(std::string_view text);

} // namespace zorvane
