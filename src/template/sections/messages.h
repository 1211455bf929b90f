// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zorvane {

/// The code of a list cell's text. A text matches an entry by its trimmed upper case, or by being a number
/// equal to the entry's code; the first entry that matches either way wins. 0 when none does.
void PRO_Codigo_Mensaje(const Declara_Zorvane& document, std::int32_t field, std::int32_t row,
                        std::int32_t col, std::string_view text, std::int32_t& code);

/// The text of the first entry with that code; empty when there is none.
void PRO_Texto_Mensaje(const Declara_Zorvane& document, std::int32_t field, std::int32_t row,
                       std::int32_t col, std::int32_t code, std::string& text);

/// The same for a cell at hand.
[[nodiscard]] std::int32_t messageCode(const Cell_Rec& cell, std::string_view text);
/// The code of the first entry that matches a text; nothing when none does.
[[nodiscard]] std::optional<std::int32_t> listedCode(const Cell_Rec& cell, std::string_view text);
/// Whether a code has an entry.
[[nodiscard]] bool isListed(const Cell_Rec& cell, std::int32_t code);
[[nodiscard]] std::string messageText(const Cell_Rec& cell, std::int32_t code);

/// Fills a cell's list from `(code)text,(code)text,...` and flags the cell. An item without "(" or ")" ends
/// the list there; a ")" before the "(" is failure 5.
void readMessages(Cell_Rec& cell, std::string_view list);

} // namespace zorvane
