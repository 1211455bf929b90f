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

Cell_Reading codeReading(const Cell_Rec& cell, std::int32_t code) {
    return Cell_Reading{numberText(code), messageText(cell, code)};
}

Cell_Reading plain(std::string text) { return Cell_Reading{std::move(text), std::nullopt}; }

Cell_Reading readByFormat(const Cell_Rec& cell, std::int32_t address, const Register_Image& image) {
    const std::string format = upperTrimmed(cell.Format);
    if (format == "NUMERIC_UNSIGNED") return plain(numberText(image.unsignedAt(address)));
    const std::int32_t value = image.signedAt(address);
    if (format == "TIME") return plain(timeText(value));
    if (format == "TIMEMM") return plain(numberText(wholeMinutes(value)));
    if (format == "TIMESS") return plain(twoDigits(restSeconds(value)));
    return plain(numberText(value));
}

Cell_Reading readWhole(const Cell_Rec& definition, const Cell_Rec& cell, const Register_Image& image) {
    const std::int32_t address = longValue(cell.Address);
    if (const auto bits = negativeBits(definition))
        return plain(numberText(signedByFormat(image.signedAt(address), *bits)));
    if (cell.Is_Ascii_Range) {
        Cell_Reading reading;
        PRO_Lee_Ascii(image, address, longValue(cell.Address_End), reading.value);
        return reading;
    }
    if (cell.Has_Messages) return codeReading(cell, image.signedAt(address));
    return readByFormat(cell, address, image);
}

Cell_Reading readHalf(const Cell_Rec& cell, const Half_Address& half, const Register_Image& image) {
    const std::int32_t value = image.signedAt(longValue(half.number));
    // Masked, unlike the display of an untransferred cell: a transfer keeps 0 to 255 also from 0x8000 on.
    const std::int32_t byte = half.half == Register_Half::High ? highByte(value) & 255 : lowByte(value);
    return cell.Has_Messages ? codeReading(cell, byte) : plain(numberText(byte));
}

} // namespace

std::optional<std::int32_t> negativeBits(const Cell_Rec& definition) {
    const std::string_view bits = trimBlanks(definition.Bits_Negative_Format);
    if (bits.empty() || !isNumeric(bits)) return std::nullopt;
    return longValue(bits);
}

std::optional<Cell_Reading> readCell(const Cell_Rec& definition, const Cell_Rec& cell,
                                     const Register_Image& image) {
    if (isNumeric(cell.Address)) return readWhole(definition, cell, image);
    if (const auto half = halfAddress(cell.Address)) return readHalf(cell, *half, image);
    return std::nullopt;
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
