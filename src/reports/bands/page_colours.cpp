// SPDX-License-Identifier: MIT
#include "reports/bands/page_colours.h"

#include "reports/bands/text_place.h"

#include <algorithm>
#include <limits>

namespace zorvane {

namespace {

constexpr Packed_Colour white = 0xFFFFFF;
constexpr std::size_t mostColours = 256;
constexpr unsigned levels = 32; ///< of each part

unsigned partOf(Packed_Colour colour, unsigned shift) { return colour >> shift & 0xFFU; }

unsigned distance(Packed_Colour one, Packed_Colour other) {
    unsigned sum = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const unsigned a = partOf(one, shift);
        const unsigned b = partOf(other, shift);
        sum += (a > b ? a - b : b - a) * (a > b ? a - b : b - a);
    }
    return sum;
}

} // namespace

Packed_Colour mixedColour(Packed_Colour ink, Packed_Colour paper, unsigned step) {
    Packed_Colour mixed = 0;
    for (const unsigned shift : {0U, 8U, 16U})
        mixed |= (partOf(ink, shift) * step + partOf(paper, shift) * (inkSteps - step)) / inkSteps << shift;
    return mixed;
}

Page_Colours::Page_Colours(const Style_Table& styles) {
    add(white);
    for (std::size_t index = 0; index < styles.size(); ++index) {
        const Text_Style& style = styles[index];
        const Packed_Colour paper = paperOf(style);
        for (const Packed_Colour solid :
             {paper, style.ForeColor, cutMarkColour, style.Border.LeftColor, style.Border.RightColor,
              style.Border.TopColor, style.Border.BottomColor})
            add(solid);
        for (unsigned step = 1; step < inkSteps; ++step)
            add(mixedColour(style.ForeColor, paper, step));
    }
    findNearest();
}

std::uint8_t Page_Colours::nearest(Packed_Colour colour) const {
    return nearest(partOf(colour, 0), partOf(colour, 8), partOf(colour, 16));
}

void Page_Colours::add(Packed_Colour colour) {
    const bool known = std::find(table_.begin(), table_.end(), colour) != table_.end();
    if (!known && table_.size() < mostColours) table_.push_back(colour);
}

void Page_Colours::findNearest() {
    nearest_.resize(levels * levels * levels);
    for (unsigned index = 0; index < nearest_.size(); ++index) {
        const auto middle = [](unsigned level) { return level << 3 | 4U; };
        const Packed_Colour colour = middle(index / levels / levels) | middle(index / levels % levels) << 8 |
                                     middle(index % levels) << 16;
        unsigned least = std::numeric_limits<unsigned>::max();
        for (std::size_t place = 0; place < table_.size(); ++place) {
            const unsigned away = distance(table_[place], colour);
            if (away >= least) continue;
            least = away;
            nearest_[index] = static_cast<std::uint8_t>(place);
        }
    }
}

} // namespace zorvane
