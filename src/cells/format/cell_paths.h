// SPDX-License-Identifier: MIT
#pragma once

#include "cells/format/cell_format.h"

namespace zorvane {

/// The ways of a value between a cell and its register differ where they must, and nowhere but in this table.
/// Whoever finds one more difference adds it here, or takes it out of the code.

/// From the register image to the cell.
struct Reading_Path {
    Word_Rule words;
    bool asksNegativeFormat; ///< the column's negative format goes before characters, list and format word
    bool masksHighHalf;      ///< a high half is 0 to 255; else it has a sign from 0x8000 on
    bool keepsPlainValues;   ///< plain numbers and characters go into the document, and aren't only shown
};

/// How the text of minutes or seconds becomes a number.
enum class Part_Reading : std::uint8_t {
    Leniently, ///< by its longest numeric beginning
    Whole,     ///< rounded; no number is failure 13, one beyond 32 bits failure 6
    Strictly   ///< as it is; no number is failure 13
};

/// Where the other part of a shared time comes from.
enum class Other_Part : std::uint8_t {
    Own_Register,  ///< the register that is written
    Grid_Selection ///< the register of the cell next to where the user stands
};

/// From the cell to the register.
struct Writing_Path {
    Word_Rule words;
    Part_Reading part;
    Other_Part otherPart;
    bool unsignedStands;      ///< the word for unsigned numbers keeps the column's negative format out
    bool roundsBitCount;      ///< the bit count of a negative format is rounded before it is held against 16
    bool encodesWithoutABit;  ///< a count below 1 makes a sign bit of a fraction; else no register at all
    bool wrapsPlainNegatives; ///< a negative number goes out as its 16 bits; else the link does that
};

/// A text that is typed, or read from a file.
struct Typing_Path {
    Word_Rule words;
    Word_Rule limits; ///< for what a register holds
};

namespace paths {

//                                      words              negative  masks  keeps
inline constexpr Reading_Path display{Word_Rule::Trimmed, false, false, false};
inline constexpr Reading_Path transfer{Word_Rule::Trimmed, true, true, true};

//                                        words   part   other part   unsigned  rounds  no bit  wraps
inline constexpr Writing_Path download{
    Word_Rule::Trimmed, Part_Reading::Whole, Other_Part::Grid_Selection, true, true, true, false};
inline constexpr Writing_Path boardDownload{
    Word_Rule::Trimmed, Part_Reading::Leniently, Other_Part::Own_Register, false, true, true, true};
inline constexpr Writing_Path liveWrite{
    Word_Rule::Upper_Case, Part_Reading::Strictly, Other_Part::Own_Register, false, false, false, false};

//                                     words                  limits
inline constexpr Typing_Path typing{Word_Rule::Upper_Case, Word_Rule::Exact};

} // namespace paths

} // namespace zorvane
