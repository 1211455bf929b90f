// SPDX-License-Identifier: MIT
#include "compare/held_value.h"

#include "cells/cell_reading.h"
#include "comm/transfer/requests/download_request.h"
#include "template/sections/messages.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/registers.h"
#include "values/run_time_failure.h"
#include "values/times.h"

#include <cstddef>

namespace zorvane::compare {

namespace {

constexpr std::int32_t highestByte = 255;
constexpr std::int32_t lowestWord = -32768;
constexpr std::int32_t highestWord = 65535;

std::optional<Held> word(std::int32_t value) {
    if (value < lowestWord || value > highestWord) return std::nullopt;
    return Held{value & highestWord};
}

std::optional<Held> half(std::int32_t value) {
    if (value < 0 || value > highestByte) return std::nullopt;
    return Held{value};
}

/// The characters of a text in the registers of a range: the rest of them are blanks, what is too long is
/// cut.
Held characters(const std::string& text, const Register_Range& range) {
    Held held;
    std::size_t at = 0;
    const auto next = [&] {
        return at < text.size() ? static_cast<unsigned char>(text[at++]) : static_cast<unsigned char>(' ');
    };
    for (std::int32_t i = registerCount(range.first, range.last); i > 0; --i) {
        const std::int32_t high = next();
        held.push_back(high * 256 + next());
    }
    return held;
}

/// A number that stands for itself, in the column's way with negative ones.
std::optional<Held> plainNumber(const Cell_Rec& definition, const Cell_Rec& cell) {
    if (const auto negative = negativeWord(definition, cell)) return word(*negative);
    return word(longValue(cell.Value));
}

std::optional<Held> wholeHeld(const Cell_Rec& definition, const Cell_Rec& cell) {
    if (holdsCharacters(definition, cell))
        return characters(cell.Value, {longValue(cell.Address), longValue(cell.Address_End)});
    if (cell.Has_Messages || negativeBits(definition)) return plainNumber(definition, cell);
    const Cell_Format format = cellFormat(cell.Format, paths::transfer.words);
    if (format == Cell_Format::Time) return word(timeSeconds(cell.Value));
    if (isTimePart(format)) return Held{longValue(cell.Value)};
    return plainNumber(definition, cell);
}

/// The bytes of a text's registers without what counts as its end.
std::string textOf(const Held& held) {
    std::string text;
    for (const std::int32_t each : held) {
        text += static_cast<char>(each >> 8);
        text += static_cast<char>(each & highestByte);
    }
    const std::size_t last = text.find_last_not_of(std::string_view("\0 -", 3));
    return text.substr(0, last == std::string::npos ? 0 : last + 1);
}

} // namespace

std::optional<Register_Range> registersOf(const Cell_Rec& definition, const Cell_Rec& cell) {
    std::optional<Register_Range> range;
    (void)ignoringFailure([&] {
        const auto named = cellRegisters(definition, cell);
        if (named && registerCount(named->first, named->last) > 0) range = named;
    });
    return range;
}

bool holdsCharacters(const Cell_Rec& definition, const Cell_Rec& cell) {
    return cell.Is_Ascii_Range && isNumeric(cell.Address) && !negativeBits(definition);
}

bool isBlankValue(const Cell_Rec& definition, const Cell_Rec& cell) {
    return !cell.Has_Messages && !holdsCharacters(definition, cell) && trimBlanks(cell.Value).empty();
}

std::optional<Held> heldOf(const Cell_Rec& definition, const Cell_Rec& cell) {
    std::optional<Held> held;
    (void)ignoringFailure([&] {
        if (!registersOf(definition, cell)) return;
        held = halfAddress(cell.Address) ? half(longValue(cell.Value)) : wholeHeld(definition, cell);
    });
    return held;
}

Held heldIn(const Cell_Rec& definition, const Cell_Rec& cell, const Register_Image& image) {
    if (const auto address = halfAddress(cell.Address)) {
        const std::int32_t value = image.unsignedAt(longValue(address->number));
        return {address->half == Register_Half::High ? value / 256 : lowByte(value)};
    }
    const std::int32_t first = longValue(cell.Address);
    if (holdsCharacters(definition, cell)) {
        Held held;
        for (std::int32_t i = 0; i < registerCount(first, longValue(cell.Address_End)); ++i)
            held.push_back(image.unsignedAt(first + i));
        return held;
    }
    const Cell_Format format = cellFormat(cell.Format, paths::transfer.words);
    if (isTimePart(format) && !cell.Has_Messages && !negativeBits(definition))
        return {timePart(format, image.signedAt(first))};
    return {image.unsignedAt(first)};
}

bool sameHeld(const Cell_Rec& definition, const Cell_Rec& cell, const Held& a, const Held& b) {
    if (holdsCharacters(definition, cell)) return textOf(a) == textOf(b);
    return a == b;
}

std::string shownText(const Cell_Rec& cell) {
    const bool number = isNumeric(cell.Address);
    if (!cell.Has_Messages || !(number || halfAddress(cell.Address))) return cell.Value;
    std::string text = cell.Value;
    (void)ignoringFailure([&] { text = messageText(cell, longValue(cell.Value)); });
    return text;
}

} // namespace zorvane::compare
