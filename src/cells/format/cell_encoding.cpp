// SPDX-License-Identifier: MIT
#include "cells/format/cell_encoding.h"

#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

#include <cmath>

namespace zorvane {

namespace {

constexpr double registerSpan = 65536.0;
constexpr double secondsPerMinute = 60.0;
constexpr double wholeRegister = 16.0; ///< bits

bool hasNegativeFormat(const Cell_Rec& definition) {
    const std::string_view bits = trimBlanks(definition.Bits_Negative_Format);
    return !bits.empty() && isNumeric(bits);
}

double partNumber(Part_Reading reading, std::string_view text) {
    switch (reading) {
    case Part_Reading::Whole:
        return strictLong(text);
    case Part_Reading::Strictly:
        return strictDouble(text);
    case Part_Reading::Leniently:
        break;
    }
    return Val(text);
}

} // namespace

std::optional<std::int32_t> negativeBits(const Cell_Rec& definition) {
    if (!hasNegativeFormat(definition)) return std::nullopt;
    return longValue(definition.Bits_Negative_Format);
}

std::int32_t timePart(Cell_Format format, std::int32_t seconds) noexcept {
    return format == Cell_Format::Minutes ? wholeMinutes(seconds) : restSeconds(seconds);
}

double withTimePart(Cell_Format format, double part, std::int32_t seconds) noexcept {
    if (format == Cell_Format::Minutes) return part * secondsPerMinute + restSeconds(seconds);
    return part + wholeMinutes(seconds) * secondsPerMinute;
}

std::int32_t withHalf(Register_Half half, double value, std::int32_t whole) {
    return toLong(half == Register_Half::High ? value * 256.0 + (whole & 255)
                                              : static_cast<double>(whole & ~255) + value);
}

std::optional<double> encodedByFormat(const Writing_Path& path, const Cell_Rec& cell, std::string_view text,
                                      const std::function<std::int32_t()>& seconds) {
    const Cell_Format format = cellFormat(cell.Format, path.words);
    if (isTimePart(format)) {
        const double part = partNumber(path.part, text);
        return withTimePart(format, part, seconds());
    }
    if (format == Cell_Format::Time) return timeSeconds(text);
    if (format == Cell_Format::Unsigned && path.unsignedStands) return Val(text);
    return std::nullopt;
}

std::int32_t plainWord(const Writing_Path& path, double number) {
    return toLong(path.wrapsPlainNegatives && number < 0.0 ? number + registerSpan : number);
}

std::optional<std::int32_t> negativeWord(const Writing_Path& path, const Cell_Rec& definition,
                                         double number) {
    if (!hasNegativeFormat(definition)) return std::nullopt;
    const double written = Val(definition.Bits_Negative_Format);
    const double bits = path.roundsBitCount ? toLong(written) : written;
    if (bits >= wholeRegister)
        return number < 0.0 ? std::optional(toLong(registerSpan + number)) : std::nullopt;
    const std::int32_t count = path.roundsBitCount ? toLong(bits) : toInteger(bits);
    if (number >= 0.0 || (count < 1 && !path.encodesWithoutABit)) return std::nullopt;
    return toLong(std::exp2(count - 1.0) - number);
}

std::optional<std::int32_t> negativeWord(const Cell_Rec& definition, const Cell_Rec& cell) {
    return negativeWord(paths::download, definition, Val(cell.Value));
}

std::int32_t rawNegative(std::string_view number, const Cell_Rec& definition) {
    return negativeWord(paths::liveWrite, definition, strictDouble(number)).value_or(0);
}

} // namespace zorvane
