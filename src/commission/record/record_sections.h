// SPDX-License-Identifier: MIT
#pragma once

#include "commission/record/record.h"
#include "reports/bands/sections_report.h"

#include <vector>

namespace zorvane::commission {

using Record_Column = Table_Column;
using Record_Section = Table_Section;

/// The record in the order in which it is read: head, result, everything that isn't verified, then all else.
[[nodiscard]] std::vector<Record_Section> sectionsOf(const Record& record);

} // namespace zorvane::commission
