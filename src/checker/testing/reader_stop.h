// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zorvane::checker::doubles {

/// Where a run-time failure stops the real reader, when a template is read into a fresh document: the line
/// from 1, or 0 for a failure after the last one. Nothing when it reads to the end.
[[nodiscard]] std::optional<std::int32_t> readerStop(const std::string& text);

} // namespace zorvane::checker::doubles
