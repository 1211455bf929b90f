// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace zorvane::edit {

/// The columns of a file of values. The first three say which cell, the last one what stands there; what is
/// between them is for people.
inline constexpr std::array<std::string_view, 8> value_columns = {"field", "row",     "column",   "page",
                                                                  "name",  "heading", "register", "value"};

} // namespace zorvane::edit
