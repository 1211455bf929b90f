// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zorvane {

/// Plain text as an RTF document in a font of fixed width, as "Rich Text Format (RTF) Specification,
/// Version 1.9.1" has it. The text's lines end in CR LF or LF; its bytes are Windows-1252.
[[nodiscard]] std::string rtfDocument(std::string_view text);

} // namespace zorvane
