// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "comm/transfer/requests/download_blocks.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane {

/// A text with blanks after it up to 16 characters; a longer one stays as it is.
[[nodiscard]] std::string filledTo16(std::string text);

/// The same in place, and handed back in `result`.
void PRO_Rellena_16(std::string& text, std::string& result);

/// Two characters a register, the first in the high byte, for `count` registers: a missing character is a
/// blank and what is too long is cut. A character of 128 or more is failure 6.
[[nodiscard]] std::vector<std::int32_t> packAscii(std::string_view text, std::int32_t count);

/// The registers that the text of an ASCII cell goes to: its own, or on the board family those of the ASCII
/// block that it lies in.
[[nodiscard]] Register_Range asciiRegisters(const Declara_Zorvane& document, const Cell_Rec& cell);

/// Writes a text to the registers of an ASCII cell with function 16, waits for the end of the write and then
/// half a second for the controller to settle. On the board family the registers are those of the ASCII block
/// that the cell lies in. The outcome stands in panel 4 and in `failed`; `extra` plays no part. A document
/// that is closed or replaced during a wait ends it there, as failed and without a word.
void PRO_Escribe_Bloque_Ascii(const Comm_Context& comm, const std::string& text, std::int32_t field,
                              std::int32_t column, std::int32_t row, const std::string& extra, bool& failed);

} // namespace zorvane
