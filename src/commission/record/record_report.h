// SPDX-License-Identifier: MIT
#pragma once

#include "commission/record/record_sections.h"
#include "reports/bands/sections_report.h"

#include <string>

namespace zorvane::commission {

/// A record on A4 paper: its sections below each other, and on each page what it is of, "Page n of m" and the
/// record's short hash.
class Record_Report : public Sections_Report {
  public:
    /// `shortHash` stands in the footer: the beginning of the hash of the record's JSON.
    Record_Report(const Text_Metrics& metrics, const Record& record, const std::string& shortHash);
};

} // namespace zorvane::commission
