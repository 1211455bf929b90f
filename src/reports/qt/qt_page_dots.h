// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/page_colours.h"
#include "reports/bands/text_place.h"
#include "reports/qt/qt_report_fonts.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <vector>

namespace zorvane {

/// A letter as dots.
struct Letter_Dots {
    double advance = 0; ///< twips to the next letter
    int left = 0;       ///< of the first dot from where the letter stands, and of the
                        ///< uppermost from the base line
    int top = 0;
    int width = 0;
    std::vector<std::uint8_t> ink; ///< of each dot, from 0 for paper to `inkSteps`, row by row
};

/// The letters of a font at a size in dots. Each is painted once.
class Qt_Letters {
  public:
    Qt_Letters(const Report_Font& name, double scale);

    [[nodiscard]] const Letter_Dots& of(char letter);
    [[nodiscard]] Text_Extent extentOf(const std::string& text);

  private:
    [[nodiscard]] Letter_Dots painted(const QString& letter) const;

    QFont font_;
    QFontMetricsF metrics_;
    double scale_; ///< dots to a twip
    std::array<std::unique_ptr<Letter_Dots>, 256> letters_;
};

/// Pages as pictures, one after the other in the same memory: each dot is a
/// place in the table of colours. Letters stand on whole dots, so that the same
/// letter always looks the same, which packs well.
class Qt_Page_Dots {
  public:
    /// The document outlives it.
    Qt_Page_Dots(const Page_Document& document, int dotsPerInch);

    [[nodiscard]] const Page_Colours& colours() const { return colours_; }
    /// Of a row.
    [[nodiscard]] std::uint32_t width() const { return static_cast<std::uint32_t>(width_); }
    /// The dots of a page, from 0, row by row; until the next call.
    [[nodiscard]] std::span<const std::uint8_t> of(std::size_t page);

  private:
    /// A part of the picture, its right and lower sides left out.
    struct Dots_Rect {
        int left;
        int top;
        int right;
        int bottom;
    };
    using Ink_Steps = std::array<std::uint8_t, inkSteps + 1>; ///< from paper to ink

    void put(const Box_Item& box);
    void put(const Line_Item& line);
    void put(const Text_Item& item);
    void putLetter(const Letter_Dots& letter, int x, int y, const Dots_Rect& clip, const Ink_Steps& steps);
    void putMark(const Cut_Mark& mark, Packed_Colour paper);
    void fill(Dots_Rect area, std::uint8_t colour);
    [[nodiscard]] int dot(double twips) const;
    [[nodiscard]] Ink_Steps stepsOf(const Text_Style& style) const;
    [[nodiscard]] Qt_Letters& lettersOf(const Text_Style& style, std::size_t index);

    const Page_Document& document_;
    double scale_; ///< dots to a twip
    int width_;
    int height_;
    Page_Colours colours_;
    std::map<std::size_t, std::shared_ptr<Qt_Letters>> letters_; ///< by style; styles of one font share them
    std::vector<std::uint8_t> dots_;
};

} // namespace zorvane
