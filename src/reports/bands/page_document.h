// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/printed_report.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace zorvane {

/// All places are in twips from the left upper corner of the paper.

/// The colour of the mark that stands where a text is cut.
inline constexpr Packed_Colour cutMarkColour = 0x0000C0;

/// A text, cut at the sides of its room. A mark at the side tells where something is missing.
struct Text_Item {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    std::size_t style = 0; ///< in the document's style table
    std::string text;
};

/// A filled rectangle.
struct Box_Item {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    Packed_Colour colour = 0;
};

struct Line_Item {
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;
    Packed_Colour colour = 0;
    int style = Border_Solid;
};

using Page_Item = std::variant<Text_Item, Box_Item, Line_Item>;

/// What is painted on a sheet, in that order.
struct Page {
    std::vector<Page_Item> items;
};

/// An entry of the table of contents.
struct Contents_Entry {
    std::string title;
    std::int32_t page = 1; ///< from 1
};

/// A report on its pages: what every painter works from.
struct Page_Document {
    double paperWidth = 0;
    double paperHeight = 0;
    Style_Table styles;
    std::vector<Page> pages;
    std::vector<Contents_Entry> contents;
};

} // namespace zorvane
