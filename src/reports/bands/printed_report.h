// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/text_style.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zorvane {

/// The looks that occur in a report, each once.
class Style_Table {
  public:
    /// The place of a look, which is added if it is new. Looks added last are found first.
    [[nodiscard]] std::size_t indexOf(const Text_Style& style);
    [[nodiscard]] const Text_Style& operator[](std::size_t index) const { return styles_[index]; }
    [[nodiscard]] std::size_t size() const { return styles_.size(); }

  private:
    std::vector<Text_Style> styles_;
};

/// A text as a band prints it. Places are in twips from the band's left upper corner.
struct Printed_Text {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    std::size_t style = 0; ///< in the style table
    std::string text;
    bool totalPages = false; ///< in place of the text, the number of all pages
};

/// A rule as a band prints it.
struct Printed_Line {
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;
};

enum class Band_Role {
    Head, ///< of a group: stays on the page of the row that follows
    Row,
    Foot, ///< of a group
    Text, ///< a line of running text
};

/// One printing of a band, with everything in it settled.
struct Printed_Band {
    Band_Role role = Band_Role::Row;
    double height = 0;
    std::vector<Printed_Text> texts;
    std::vector<Printed_Line> lines;
    std::optional<double> repeatFrom;          ///< of a head: the texts from here on are the table's headings
    std::shared_ptr<const Printed_Band> again; ///< of a row: what stands above it when it begins a page
    std::optional<std::string> contentsTitle;  ///< the entry of the table of contents that begins here
};

/// All that a run printed between page headers and footers, from the first band to the last.
struct Printed_Report {
    Style_Table styles;
    std::vector<Printed_Band> bands;
};

} // namespace zorvane
