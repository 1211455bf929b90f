// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace zorvane {

/// A colour with blue in the high byte: 0xBBGGRR.
using Packed_Colour = std::uint32_t;

/// The font that reports are designed with.
inline const std::string reportFont = "Microsoft Sans Serif";

struct Report_Font {
    std::string Name = reportFont;
    double Size = 8.5; ///< points
    bool Bold = false;
    friend bool operator==(const Report_Font&, const Report_Font&) = default;
};

/// Kinds of a border's side, by the numbers that the controls' properties take.
enum Border_Style : int {
    Border_None = 0,
    Border_Solid = 1,
    Border_Dot = 3,
};

struct Report_Border {
    int LeftStyle = Border_None;
    Packed_Colour LeftColor = 0;
    int RightStyle = Border_None;
    Packed_Colour RightColor = 0;
    int TopStyle = Border_None;
    Packed_Colour TopColor = 0;
    int BottomStyle = Border_None;
    Packed_Colour BottomColor = 0;
    bool Shadow = false;
    friend bool operator==(const Report_Border&, const Report_Border&) = default;
};

/// Places of a text in its control, from side to side.
enum Text_Alignment : int {
    Align_Left = 0,
    Align_Right = 1,
    Align_Center = 2,
};

/// Places of a text in its control, from top to bottom.
enum Vertical_Alignment : int {
    Align_Top = 0,
    Align_Middle = 1,
};

enum Back_Style : int {
    Back_Transparent = 0,
    Back_Opaque = 1,
};

/// Between a control's side and a text that stands at it, in twips.
inline constexpr double textInset = 45;

/// All of a control that concerns how its text looks.
struct Text_Style {
    Report_Font Font;
    Packed_Colour ForeColor = 0;
    Packed_Colour BackColor = 0xFFFFFF;
    int BackStyle = Back_Transparent;
    int Alignment = Align_Left;
    int VerticalAlignment = Align_Top;
    Report_Border Border;
    friend bool operator==(const Text_Style&, const Text_Style&) = default;
};

} // namespace zorvane
