// SPDX-License-Identifier: MIT
#pragma once

#include "commission/record/record_sections.h"
#include "reports/bands/active_report.h"

#include <memory>
#include <string>
#include <vector>

namespace zorvane::commission {

/// A record on A4 paper: its sections below each other, and on each page what it is of, "Page n of m" and the
/// record's short hash.
class Record_Report : public ActiveReport {
  public:
    /// `shortHash` stands in the footer: the beginning of the hash of the record's JSON.
    Record_Report(const Text_Metrics& metrics, const Record& record, const std::string& shortHash);

  protected:
    void ActiveReport_DataInitialize() override { next_ = 0; }
    void ActiveReport_FetchData(bool& EOF_) override;
    void Detail_Format() override;
    void PageHeader_Format() override;

  private:
    std::vector<std::string> titles_;
    std::size_t next_ = 0; ///< the section that the next fetch gives
};

} // namespace zorvane::commission
