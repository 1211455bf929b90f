// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/text_style.h"
#include "reports/export/lzw_packer.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace zorvane {

/// A TIFF file of several pages in memory ("TIFF Revision 6.0"): each dot is a
/// place in a table of colours, of which there are 256 at most, packed without
/// loss (LZW). The first colour is the paper's.
class Tiff_File {
  public:
    Tiff_File(int dotsPerInch, const std::vector<Packed_Colour>& colours);

    /// A page of so many dots in a row, from the left upper corner on. A file beyond 4 GB is failure 75.
    void addPage(std::uint32_t width, std::span<const std::uint8_t> dots);
    /// Makes room for so many more pages like those that there are.
    void expect(std::size_t pages);
    /// The file, which is at its end then.
    [[nodiscard]] std::string take();

  private:
    void addColourTable(const std::vector<Packed_Colour>& colours);
    void addDirectory(std::uint32_t width, std::uint32_t height, std::uint32_t stripPlace);

    [[nodiscard]] std::span<const std::uint8_t> inPairs(std::uint32_t width,
                                                        std::span<const std::uint8_t> dots);

    bool pairs_; ///< a byte holds two dots
    Lzw_Packer packer_{0};
    std::vector<std::uint8_t> strip_;
    std::string bytes_;
    std::size_t link_; ///< where the place of the next page's directory is to be written
    std::uint32_t resolutionPlace_ = 0;
    std::uint32_t softwarePlace_ = 0;
    std::uint32_t coloursPlace_ = 0;
};

} // namespace zorvane
