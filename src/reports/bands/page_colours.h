// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/page_document.h"

#include <array>
#include <cstdint>
#include <vector>

namespace zorvane {

/// Steps from paper to ink at the edge of a letter.
inline constexpr unsigned inkSteps = 2;

/// So many of the steps from paper to ink.
[[nodiscard]] Packed_Colour mixedColour(Packed_Colour ink, Packed_Colour paper, unsigned step);

/// The colours that a report is painted in, for pictures whose dots are places
/// in a table of 256 colours: papers, rules and inks as they are, and between
/// each ink and its paper the steps of a letter's edge.
class Page_Colours {
  public:
    explicit Page_Colours(const Style_Table& styles);

    /// The first one is white.
    [[nodiscard]] const std::vector<Packed_Colour>& table() const { return table_; }
    /// The place of the colour that comes nearest. Each part is of 0 to 255.
    [[nodiscard]] std::uint8_t nearest(unsigned red, unsigned green, unsigned blue) const {
        return nearest_[red >> 3 << 10 | green >> 3 << 5 | blue >> 3];
    }
    [[nodiscard]] std::uint8_t nearest(Packed_Colour colour) const;

  private:
    void add(Packed_Colour colour);
    void findNearest();

    std::vector<Packed_Colour> table_;
    std::vector<std::uint8_t> nearest_; ///< by the upper five bits of each part
};

} // namespace zorvane
