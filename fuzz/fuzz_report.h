// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/report_content.h"

#include <string_view>

namespace zorvane::fuzz {

/// A report as any bytes: a row of settings and the rows of the report (`split.h`).
///
///   settings: title, route, date, looks, measures: five texts
///   row:      L, H, R, T or G for its kind, and its texts after it
///
/// Each byte of `looks` is the look of a text, taken in turn. `measures` are paper width, paper height and
/// the margins left, top, right and bottom with commas between; what is missing stands at its default.
[[nodiscard]] Report_Content reportFrom(std::string_view input);

} // namespace zorvane::fuzz
