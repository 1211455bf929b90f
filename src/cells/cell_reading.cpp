// SPDX-License-Identifier: MIT
#include "cells/cell_reading.h"

#include "template/sections/messages.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/registers.h"
#include "values/times.h"

namespace zorvane {

namespace {

/// The value of a register under a negative format of so many bits.
std::int32_t signedByFormat(std::int32_t value, std::int32_t bits) {
    constexpr std::int32_t registerSpan = 65536;
    if (bits > 0 && bits < 16) return fromSignMagnitude(value, bits);
    if (bits == 0 && value < 0) return registerSpan + value;
    // The image is read as signed, so that this bound is never passed; a link may still say otherwise.
    if (bits >= 16 && value > 32768) return registerSpan + value;
    return value;
}

/// One cell on one path.
struct Read_Cell {
    const Reading_Path& path;
    const Cell_Rec& cell;
    std::optional<std::int32_t> negativeFormat; ///< of its column, where the path asks for it
    const Register_Image& image;

    [[nodiscard]] std::int32_t address() const { return longValue(cell.Address); }
};

Cell_Reading taken(std::string text) { return Cell_Reading{std::move(text), std::nullopt}; }

Cell_Reading plain(const Read_Cell& read, std::string text) {
    return Cell_Reading{std::move(text), std::nullopt, read.path.keepsPlainValues};
}

Cell_Reading numberOrCode(const Read_Cell& read, std::int32_t value) {
    if (!read.cell.Has_Messages) return taken(numberText(value));
    return Cell_Reading{numberText(value), messageText(read.cell, value)};
}

Cell_Reading readByFormat(const Read_Cell& read) {
    const std::int32_t address = read.address();
    const Cell_Format format = cellFormat(read.cell.Format, read.path.words);
    if (format == Cell_Format::Unsigned) return taken(numberText(read.image.unsignedAt(address)));
    const std::int32_t value = read.image.signedAt(address);
    switch (format) {
    case Cell_Format::Time:
        return taken(timeText(value));
    case Cell_Format::Minutes:
        return taken(numberText(timePart(format, value)));
    case Cell_Format::Seconds:
        return taken(twoDigits(timePart(format, value)));
    default:
        return plain(read, numberText(value));
    }
}

Cell_Reading readWhole(const Read_Cell& read) {
    const std::int32_t address = read.address();
    if (read.negativeFormat)
        return taken(numberText(signedByFormat(read.image.signedAt(address), *read.negativeFormat)));
    if (read.cell.Is_Ascii_Range) {
        std::string text;
        PRO_Lee_Ascii(read.image, address, longValue(read.cell.Address_End), text);
        return plain(read, std::move(text));
    }
    if (read.cell.Has_Messages) return numberOrCode(read, read.image.signedAt(address));
    return readByFormat(read);
}

Cell_Reading readHalf(const Read_Cell& read, const Half_Address& half) {
    const std::int32_t value = read.image.signedAt(longValue(half.number));
    if (half.half == Register_Half::Low) return numberOrCode(read, lowByte(value));
    return numberOrCode(read, read.path.masksHighHalf ? highByte(value) & 255 : highByte(value));
}

std::optional<Cell_Reading> readAlong(const Read_Cell& read) {
    if (isNumeric(read.cell.Address)) return readWhole(read);
    if (const auto half = halfAddress(read.cell.Address)) return readHalf(read, *half);
    return std::nullopt;
}

} // namespace

std::optional<Cell_Reading> readCell(const Cell_Rec& definition, const Cell_Rec& cell,
                                     const Register_Image& image) {
    // A half and a text that is no address have no sign, and what stands for the column's isn't looked at.
    const bool asks = paths::transfer.asksNegativeFormat && isNumeric(cell.Address);
    return readAlong({paths::transfer, cell, asks ? negativeBits(definition) : std::nullopt, image});
}

std::optional<Cell_Reading> displayedCell(const Cell_Rec& cell, const Register_Image& image) {
    static_assert(!paths::display.asksNegativeFormat);
    return readAlong({paths::display, cell, std::nullopt, image});
}

std::optional<Register_Range> cellRegisters(const Cell_Rec& definition, const Cell_Rec& cell) {
    if (const auto half = halfAddress(cell.Address)) {
        const std::int32_t address = longValue(half->number);
        return Register_Range{address, address};
    }
    if (!isNumeric(cell.Address)) return std::nullopt;
    const std::int32_t first = longValue(cell.Address);
    const bool range = cell.Is_Ascii_Range && !negativeBits(definition);
    return Register_Range{first, range ? longValue(cell.Address_End) : first};
}

void PRO_Lee_Ascii(const Register_Image& image, std::int32_t first, std::int32_t last, std::string& text) {
    text.clear();
    const std::int32_t count = registerCount(first, last);
    for (std::int32_t i = 0; i < count; ++i)
        text += asciiText(image.signedAt(first + i));
}

} // namespace zorvane
