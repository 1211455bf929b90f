// SPDX-License-Identifier: MIT
#pragma once

#include "commission/record/record.h"

#include <string>
#include <vector>

namespace zorvane::commission {

/// A column of a section: its heading and its part of the width, in percent. The columns of a section have
/// 100.
struct Record_Column {
    std::string heading;
    double percent = 0;
    bool right = false; ///< its texts stand at the right side
};

/// A part of a record as people read it: a title over a table.
struct Record_Section {
    std::string title;
    std::vector<Record_Column> columns;
    bool headings = false; ///< the columns' headings are shown
    bool boxes = false;    ///< rows are boxes to be written into by hand
    std::vector<std::vector<std::string>> rows;
};

/// The record in the order in which it is read: head, result, everything that isn't verified, then all else.
[[nodiscard]] std::vector<Record_Section> sectionsOf(const Record& record);

} // namespace zorvane::commission
