// SPDX-License-Identifier: MIT
#include "grids/rules/cell_fill.h"

#include "cells/cell_reading.h"
#include "template/sections/messages.h"
#include "values/numbers.h"
#include "values/registers.h"

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

Cell_Fill readFill(const std::optional<Cell_Reading>& reading) {
    if (!reading) return Cell_Fill{};
    return Cell_Fill{reading->shown(), reading->kept ? std::optional(reading->value) : std::nullopt};
}

} // namespace

Cell_Fill offlineFill(const Cell_Rec& cell) {
    if (isNumeric(cell.Address))
        return shownOnly(cell.Has_Messages ? messageText(cell, longValue(cell.Value)) : cell.Value);
    if (halfAddress(cell.Address)) return numberFill(cell, strictLong(cell.Value));
    return withoutRegister(cell);
}

Cell_Fill onlineFill(const Cell_Rec& cell, const Online_View& view) {
    // The number of an address is made first, whether the cell is read or not.
    (void)longValue(cell.Address);
    if (isNumeric(cell.Address)) {
        if (view.request != cell.Modbus_Request) return shownOnly(cell.Value);
        if (view.commLost()) return shownOnly("???");
        return readFill(displayedCell(cell, view.image));
    }
    if (halfAddress(cell.Address)) return readFill(displayedCell(cell, view.image));
    return withoutRegister(cell);
}

} // namespace zorvane
