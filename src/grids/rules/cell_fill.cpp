// SPDX-License-Identifier: MIT
#include "grids/rules/cell_fill.h"

#include "cells/cell_reading.h"
#include "template/sections/messages.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/registers.h"
#include "values/times.h"

namespace zorvane {

namespace {

Cell_Fill shownOnly(std::string text) { return Cell_Fill{std::move(text), std::nullopt}; }

Cell_Fill shownAndStored(const std::string& text) { return Cell_Fill{text, text}; }

Cell_Fill codeFill(const Cell_Rec& cell, std::int32_t code) {
    return Cell_Fill{messageText(cell, code), numberText(code)};
}

/// A number that stands for itself or for a message, as the cell has it.
Cell_Fill numberFill(const Cell_Rec& cell, std::int32_t value) {
    return cell.Has_Messages ? codeFill(cell, value) : shownAndStored(numberText(value));
}

/// A cell whose address is no number: one without a "/" shows the document's text, any other shows nothing.
Cell_Fill withoutRegister(const Cell_Rec& cell) {
    return cell.Address.find('/') == std::string::npos ? shownOnly(cell.Value) : Cell_Fill{};
}

Cell_Fill formattedFill(const Cell_Rec& cell, std::int32_t address, const Register_Image& image) {
    const std::string format = upperTrimmed(cell.Format);
    if (format == "NUMERIC_UNSIGNED") return shownAndStored(numberText(image.unsignedAt(address)));
    const std::int32_t value = image.signedAt(address);
    if (format == "TIME") return shownAndStored(timeText(value));
    if (format == "TIMEMM") return shownAndStored(numberText(wholeMinutes(value)));
    if (format == "TIMESS") return shownAndStored(twoDigits(restSeconds(value)));
    // A plain number is shown and on purpose not taken into the document.
    return shownOnly(numberText(value));
}

Cell_Fill scannedFill(const Cell_Rec& cell, const Register_Image& image) {
    const std::int32_t address = longValue(cell.Address);
    if (cell.Is_Ascii_Range) {
        std::string text;
        PRO_Lee_Ascii(image, address, longValue(cell.Address_End), text);
        return shownOnly(std::move(text));
    }
    if (cell.Has_Messages) return codeFill(cell, image.signedAt(address));
    return formattedFill(cell, address, image);
}

} // namespace

Cell_Fill offlineFill(const Cell_Rec& cell) {
    if (isNumeric(cell.Address))
        return shownOnly(cell.Has_Messages ? messageText(cell, longValue(cell.Value)) : cell.Value);
    if (halfAddress(cell.Address)) return numberFill(cell, strictLong(cell.Value));
    return withoutRegister(cell);
}

Cell_Fill onlineFill(const Cell_Rec& cell, const Online_View& view) {
    if (isNumeric(cell.Address)) {
        if (view.request != cell.Modbus_Request) return shownOnly(cell.Value);
        if (view.commLost()) return shownOnly("???");
        return scannedFill(cell, view.image);
    }
    if (const auto half = halfAddress(cell.Address)) {
        const std::int32_t value = view.image.signedAt(longValue(half->number));
        return numberFill(cell, half->half == Register_Half::High ? highByte(value) : lowByte(value));
    }
    return withoutRegister(cell);
}

} // namespace zorvane
