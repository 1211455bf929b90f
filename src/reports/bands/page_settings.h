// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zorvane {

/// The sheet of paper, in twips.
struct Page_Settings {
    double LeftMargin = 1440;
    double TopMargin = 1440;
    double RightMargin = 1440;
    double BottomMargin = 1440;
    /// Room for the binding and the change of sides of a two-sided book. They go with the report; a sheet
    /// printed on one side is laid out without them.
    double Gutter = 0;
    bool MirrorMargins = false;
    double PaperWidth = 12240;
    double PaperHeight = 15840;
    friend bool operator==(const Page_Settings&, const Page_Settings&) = default;
};

/// The printer that the user chose.
struct Report_Printer {
    std::string DeviceName; ///< empty: the desktop's own
    int Copies = 1;
    friend bool operator==(const Report_Printer&, const Report_Printer&) = default;
};

} // namespace zorvane
