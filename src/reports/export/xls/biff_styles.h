// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/text_style.h"
#include "reports/export/xls/biff_records.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zorvane {

/// The looks of a workbook's cells: fonts, colours, number formats, and their combinations, which cells name
/// by number.
class Biff_Styles {
  public:
    Biff_Styles();

    /// The number of the look of a cell. `format` is a number format; empty is the worksheet's own.
    [[nodiscard]] std::uint16_t cellFormat(const Text_Style& style, const std::string& format);

    void write(Biff_Stream& stream) const;

  private:
    struct Cell_Format {
        Text_Style style;
        std::string format;
        friend bool operator==(const Cell_Format&, const Cell_Format&) = default;
    };

    void writeFonts(Biff_Stream& stream) const;
    void writeCellFormat(Biff_Stream& stream, const Cell_Format& format) const;
    [[nodiscard]] std::uint32_t colour(Packed_Colour packed) const;
    void noteColour(Packed_Colour packed);

    std::vector<Text_Style> fonts_; ///< of which only the font and its colour matter
    std::vector<Packed_Colour> colours_;
    std::vector<std::string> formats_;
    std::vector<Cell_Format> cellFormats_;
};

} // namespace zorvane
