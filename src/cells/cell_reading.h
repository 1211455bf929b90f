// SPDX-License-Identifier: MIT
#pragma once

#include "cells/format/cell_encoding.h"
#include "comm/modbus_control/register_image.h"
#include "template/model/cell_rec.h"

#include <cstdint>
#include <optional>
#include <string>

namespace zorvane {

/// What the register image says about one cell, on the path that asked.
struct Cell_Reading {
    std::string value;                  ///< the text for the cell's `Value`
    std::optional<std::string> message; ///< the text of the code, for a cell with a message list
    bool kept = true;                   ///< whether the document takes the value

    /// What the lower grid shows.
    [[nodiscard]] const std::string& shown() const { return message ? *message : value; }
};

/// Turns the registers of a cell into the text that a transfer takes, by address form, negative format of the
/// column, kind and `Format`, in this order. Nothing for a cell without a register. `definition` is the
/// column's row 0.
[[nodiscard]] std::optional<Cell_Reading> readCell(const Cell_Rec& definition, const Cell_Rec& cell,
                                                   const Register_Image& image);

/// The same for the lower grid while the link is on: in its own way, which asks nothing of the column.
[[nodiscard]] std::optional<Cell_Reading> displayedCell(const Cell_Rec& cell, const Register_Image& image);

/// The registers that `readCell` takes the text from; nothing for a cell without a register.
[[nodiscard]] std::optional<Register_Range> cellRegisters(const Cell_Rec& definition, const Cell_Rec& cell);

/// Two characters a register, high byte first, an empty byte as "-".
void PRO_Lee_Ascii(const Register_Image& image, std::int32_t first, std::int32_t last, std::string& text);

} // namespace zorvane
