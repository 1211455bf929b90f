// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/active_report.h"

#include <string>
#include <vector>

namespace zorvane {

/// A column of a section: its heading and its part of the width, in percent. The columns of a section have
/// 100.
struct Table_Column {
    std::string heading;
    double percent = 0;
    bool right = false; ///< its texts stand at the right side
};

/// A part of a report as people read it: a title over a table.
struct Table_Section {
    std::string title;
    std::vector<Table_Column> columns;
    bool headings = false; ///< the columns' headings are shown
    bool boxes = false;    ///< rows are boxes to be written into by hand
    std::vector<std::vector<std::string>> rows;
};

/// What stands on each page beside its number.
struct Sections_Texts {
    std::string caption; ///< of the report, in the header
    std::string footLeft;
    std::string footRight;
};

/// Sections below each other on A4 paper, and on each page what it is of and "Page n of m". A text too wide
/// for its column goes on in the next line.
class Sections_Report : public ActiveReport {
  public:
    Sections_Report(const Text_Metrics& metrics, const Sections_Texts& texts,
                    std::vector<Table_Section> sections);

  protected:
    void ActiveReport_DataInitialize() override { next_ = 0; }
    void ActiveReport_FetchData(bool& EOF_) override;
    void Detail_Format() override;
    void PageHeader_Format() override;

  private:
    std::vector<std::string> titles_;
    std::size_t next_ = 0; ///< the section that the next fetch gives
};

} // namespace zorvane
