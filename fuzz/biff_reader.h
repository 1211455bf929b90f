// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace zorvane::fuzz {

/// An empty cell, a number, or a text in UTF-8.
using Sheet_Value = std::variant<std::monostate, double, std::string>;

/// Cells by row and column, from 0.
using Sheet_Cells = std::map<std::pair<std::uint32_t, std::uint32_t>, Sheet_Value>;

/// Reads a workbook stream strictly: every record has room, the streams of all sheets lie where the workbook
/// says, texts and looks that cells name exist, and no text is longer than its record allows. Gives the
/// sheets in their order.
[[nodiscard]] std::vector<Sheet_Cells> readBiff(std::string_view stream);

} // namespace zorvane::fuzz
