// SPDX-License-Identifier: MIT
#include "reports/export/tiff_file.h"

#include "values/run_time_failure.h"

#include <array>
#include <cstring>
#include <limits>
#include <utility>

namespace zorvane {

namespace {

constexpr std::size_t smallTable = 16;
constexpr std::size_t largeTable = 256;

/// Types of a directory's values, by their numbers in the file.
enum class Field_Type : std::uint32_t { Ascii = 2, Short = 3, Long = 4, Rational = 5 };

struct Directory_Field {
    std::uint32_t tag;
    Field_Type type;
    std::uint32_t count;
    std::uint32_t value; ///< or its place in the file, if it has more than four bytes
};

void add16(std::string& bytes, std::uint32_t value) {
    bytes += static_cast<char>(value & 0xFFU);
    bytes += static_cast<char>(value >> 8 & 0xFFU);
}

void add32(std::string& bytes, std::uint32_t value) {
    add16(bytes, value & 0xFFFFU);
    add16(bytes, value >> 16);
}

/// A place in the file. Values begin at even ones.
std::uint32_t placeAtEnd(std::string& bytes) {
    if (bytes.size() % 2 != 0) bytes += '\0';
    if (bytes.size() > std::numeric_limits<std::uint32_t>::max())
        throw Run_Time_Failure(Failure::PathFileAccess);
    return static_cast<std::uint32_t>(bytes.size());
}

} // namespace

Tiff_File::Tiff_File(int dotsPerInch, const std::vector<Packed_Colour>& colours)
    : pairs_(colours.size() <= smallTable), bytes_("II*\0", 4), link_(4) {
    add32(bytes_, 0); // the link to the first page
    resolutionPlace_ = placeAtEnd(bytes_);
    add32(bytes_, static_cast<std::uint32_t>(dotsPerInch));
    add32(bytes_, 1);
    softwarePlace_ = placeAtEnd(bytes_);
    bytes_.append("Zorvane", sizeof "Zorvane");
    addColourTable(colours);
}

/// All red parts, then the green and the blue ones, each in 16 bits.
void Tiff_File::addColourTable(const std::vector<Packed_Colour>& colours) {
    coloursPlace_ = placeAtEnd(bytes_);
    for (const unsigned shift : {0U, 8U, 16U})
        for (std::size_t index = 0; index < (pairs_ ? smallTable : largeTable); ++index)
            add16(bytes_, index < colours.size() ? (colours[index] >> shift & 0xFFU) * 0x0101U : 0);
}

void Tiff_File::addPage(std::uint32_t width, std::span<const std::uint8_t> dots) {
    const std::uint32_t stripPlace = placeAtEnd(bytes_);
    bytes_ += packer_.pack(pairs_ ? inPairs(width, dots) : dots);
    addDirectory(width, static_cast<std::uint32_t>(dots.size() / width), stripPlace);
}

/// Each row begins with a byte of its own. Most of a page is paper, which is 0.
std::span<const std::uint8_t> Tiff_File::inPairs(std::uint32_t width, std::span<const std::uint8_t> dots) {
    const std::size_t rowSize = (width + std::size_t{1}) / 2;
    strip_.assign(dots.size() / width * rowSize, 0);
    for (std::uint8_t* to = strip_.data(); !dots.empty(); to += rowSize, dots = dots.subspan(width)) {
        const std::uint8_t* const row = dots.data();
        for (std::size_t column = 0; column < width; ++column) {
            std::uint64_t eight = 0;
            if (column + sizeof eight <= width) std::memcpy(&eight, row + column, sizeof eight);
            if (column + sizeof eight <= width && eight == 0)
                column += sizeof eight - 1;
            else
                to[column / 2] |= static_cast<std::uint8_t>(column % 2 == 0 ? row[column] << 4 : row[column]);
        }
    }
    return strip_;
}

void Tiff_File::expect(std::size_t pages) {
    constexpr std::size_t mostPages = 100000;
    const std::size_t size = bytes_.size();
    if (pages <= mostPages) bytes_.reserve(size + pages * (size + size / 4));
}

void Tiff_File::addDirectory(std::uint32_t width, std::uint32_t height, std::uint32_t stripPlace) {
    constexpr std::uint32_t pageOfSeveral = 2;
    constexpr std::uint32_t lzw = 5;
    constexpr std::uint32_t byColourTable = 3;
    constexpr std::uint32_t inch = 2;
    const auto stripSize = static_cast<std::uint32_t>(bytes_.size() - stripPlace);
    const std::array<Directory_Field, 15> fields = {{
        {254, Field_Type::Long, 1, pageOfSeveral},
        {256, Field_Type::Long, 1, width},
        {257, Field_Type::Long, 1, height},
        {258, Field_Type::Short, 1, pairs_ ? 4U : 8U},
        {259, Field_Type::Short, 1, lzw},
        {262, Field_Type::Short, 1, byColourTable},
        {273, Field_Type::Long, 1, stripPlace},
        {277, Field_Type::Short, 1, 1},
        {278, Field_Type::Long, 1, height},
        {279, Field_Type::Long, 1, stripSize},
        {282, Field_Type::Rational, 1, resolutionPlace_},
        {283, Field_Type::Rational, 1, resolutionPlace_},
        {296, Field_Type::Short, 1, inch},
        {305, Field_Type::Ascii, sizeof "Zorvane", softwarePlace_},
        {320, Field_Type::Short, 3 * static_cast<std::uint32_t>(pairs_ ? smallTable : largeTable),
         coloursPlace_},
    }};
    const std::uint32_t place = placeAtEnd(bytes_);
    std::string link;
    add32(link, place);
    bytes_.replace(link_, link.size(), link);
    add16(bytes_, fields.size());
    for (const auto& [tag, type, count, value] : fields) {
        add16(bytes_, tag);
        add16(bytes_, static_cast<std::uint32_t>(type));
        add32(bytes_, count);
        add32(bytes_, value);
    }
    link_ = bytes_.size();
    add32(bytes_, 0);
}

std::string Tiff_File::take() { return std::move(bytes_); }

} // namespace zorvane
