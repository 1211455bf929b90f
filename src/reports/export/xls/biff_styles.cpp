// SPDX-License-Identifier: MIT
#include "reports/export/xls/biff_styles.h"

#include <algorithm>
#include <cmath>

namespace zorvane {

namespace {

// Numbers that every workbook begins with.
constexpr std::uint32_t firstOwnFormat = 164;
constexpr std::uint32_t builtInCellFormats = 16; ///< 15 of styles and the plain cell
constexpr std::uint32_t firstOwnFont = 5;        ///< after four built-in ones; there is no font 4
constexpr std::uint32_t firstPaletteColour = 8;
constexpr std::size_t paletteSize = 56;
constexpr std::uint32_t automaticColour = 0x7FFF;
constexpr std::uint32_t patternForeground = 0x40;
constexpr std::uint32_t patternBackground = 0x41;
constexpr std::uint32_t dottedLine = 4;
constexpr std::uint32_t thinLine = 1;

bool sameFont(const Text_Style& one, const Text_Style& other) {
    return one.Font == other.Font && one.ForeColor == other.ForeColor;
}

template <class Value> std::uint32_t placeOf(const std::vector<Value>& list, const Value& value) {
    return static_cast<std::uint32_t>(std::find(list.begin(), list.end(), value) - list.begin());
}

std::uint32_t fontPlace(const std::vector<Text_Style>& fonts, const Text_Style& style) {
    const auto found = std::find_if(fonts.begin(), fonts.end(),
                                    [&](const Text_Style& font) { return sameFont(font, style); });
    return static_cast<std::uint32_t>(found - fonts.begin());
}

void writeFont(Biff_Stream& stream, const Report_Font& font, std::uint32_t colour) {
    Biff_Bytes data;
    data.u16(static_cast<std::uint32_t>(std::lround(font.Size * 20))).u16(0).u16(colour);
    data.u16(font.Bold ? 700 : 400).u16(0).u8(0).u8(0).u8(0).u8(0).shortText(font.Name.substr(0, 31));
    stream.record(Biff::Font, data);
}

std::uint32_t lineOf(int borderStyle) {
    if (borderStyle == Border_None) return 0;
    return borderStyle == Border_Solid ? thinLine : dottedLine;
}

std::uint32_t horizontalOf(int alignment) {
    if (alignment == Align_Right) return 3;
    return alignment == Align_Center ? 2 : 1;
}

void writeBuiltInCellFormats(Biff_Stream& stream) {
    constexpr std::uint32_t styleParent = 0xFFF5;
    constexpr std::uint32_t cellParent = 0x0001;
    for (std::uint32_t index = 0; index < builtInCellFormats; ++index) {
        const bool cell = index + 1 == builtInCellFormats;
        Biff_Bytes data;
        data.u16(0).u16(0).u16(cell ? cellParent : styleParent).u8(0x20).u8(0).u8(0).u8(cell ? 0 : 0xF4);
        data.u32(0).u32(0).u16(patternForeground | patternBackground << 7);
        stream.record(Biff::Xf, data);
    }
}

} // namespace

Biff_Styles::Biff_Styles() { noteColour(0); }

void Biff_Styles::noteColour(Packed_Colour packed) {
    const bool known = std::find(colours_.begin(), colours_.end(), packed) != colours_.end();
    if (!known && colours_.size() < paletteSize) colours_.push_back(packed);
}

std::uint32_t Biff_Styles::colour(Packed_Colour packed) const {
    const std::uint32_t place = placeOf(colours_, packed);
    return firstPaletteColour + (place < colours_.size() ? place : 0);
}

std::uint16_t Biff_Styles::cellFormat(const Text_Style& style, const std::string& format) {
    const Cell_Format wanted{style, format};
    const std::uint32_t place = placeOf(cellFormats_, wanted);
    if (place == cellFormats_.size()) {
        const Report_Border& border = style.Border;
        for (const Packed_Colour packed : {style.ForeColor, style.BackColor, border.LeftColor,
                                           border.RightColor, border.TopColor, border.BottomColor})
            noteColour(packed);
        if (fontPlace(fonts_, style) == fonts_.size()) fonts_.push_back(style);
        if (!format.empty() && placeOf(formats_, format) == formats_.size()) formats_.push_back(format);
        cellFormats_.push_back(wanted);
    }
    return static_cast<std::uint16_t>(builtInCellFormats + place);
}

void Biff_Styles::write(Biff_Stream& stream) const {
    writeFonts(stream);
    for (std::uint32_t index = 0; index < formats_.size(); ++index)
        stream.record(Biff::Format, Biff_Bytes().u16(firstOwnFormat + index).longText(formats_[index]));
    writeBuiltInCellFormats(stream);
    for (const Cell_Format& format : cellFormats_)
        writeCellFormat(stream, format);
    stream.record(Biff::Style, Biff_Bytes().u16(0x8000).u8(0).u8(0xFF)); // "Normal", the first of the styles
    Biff_Bytes palette;
    palette.u16(paletteSize);
    for (std::size_t index = 0; index < paletteSize; ++index)
        palette.u32(index < colours_.size() ? colours_[index] : 0);
    stream.record(Biff::Palette, palette);
}

void Biff_Styles::writeFonts(Biff_Stream& stream) const {
    for (int builtIn = 0; builtIn < 4; ++builtIn)
        writeFont(stream, {"Arial", 10, false}, automaticColour);
    for (const Text_Style& style : fonts_)
        writeFont(stream, style.Font, style.ForeColor == 0 ? automaticColour : colour(style.ForeColor));
}

void Biff_Styles::writeCellFormat(Biff_Stream& stream, const Cell_Format& format) const {
    constexpr std::uint32_t cellParent = 0x0001;
    constexpr std::uint32_t verticalCenter = 1 << 4;
    constexpr std::uint32_t ownAttributes = 0xFC;
    constexpr std::uint32_t solidFill = std::uint32_t{1} << 26;
    const Text_Style& style = format.style;
    const Report_Border& border = style.Border;
    const bool filled = style.BackStyle == Back_Opaque;
    Biff_Bytes data;
    data.u16(firstOwnFont + fontPlace(fonts_, style));
    data.u16(format.format.empty() ? 0 : firstOwnFormat + placeOf(formats_, format.format));
    data.u16(cellParent).u8(horizontalOf(style.Alignment) | verticalCenter).u8(0).u8(0).u8(ownAttributes);
    data.u32(lineOf(border.LeftStyle) | lineOf(border.RightStyle) << 4 | lineOf(border.TopStyle) << 8 |
             lineOf(border.BottomStyle) << 12 | colour(border.LeftColor) << 16 |
             colour(border.RightColor) << 23);
    data.u32(colour(border.TopColor) | colour(border.BottomColor) << 7 | (filled ? solidFill : 0));
    data.u16((filled ? colour(style.BackColor) : patternForeground) | patternBackground << 7);
    stream.record(Biff::Xf, data);
}

} // namespace zorvane
