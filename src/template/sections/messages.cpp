// SPDX-License-Identifier: MIT
#include "template/sections/messages.h"

#include "template/sections/comma_list.h"
#include "values/code_page.h"
#include "values/numbers.h"

namespace zorvane {

std::optional<std::int32_t> listedCode(const Cell_Rec& cell, std::string_view text) {
    const std::string wanted = upperTrimmed(text);
    const bool numeric = isNumeric(text);
    const double number = Val(text);
    for (std::int32_t k = 1; k <= cell.Messages.upperBound(); ++k) {
        const Message_Rec& entry = cell.Messages(k);
        if (upperTrimmed(entry.Text) == wanted || (numeric && number == entry.Code)) return entry.Code;
    }
    return std::nullopt;
}

std::int32_t messageCode(const Cell_Rec& cell, std::string_view text) {
    return listedCode(cell, text).value_or(0);
}

bool isListed(const Cell_Rec& cell, std::int32_t code) {
    for (std::int32_t k = 1; k <= cell.Messages.upperBound(); ++k)
        if (cell.Messages(k).Code == code) return true;
    return false;
}

std::string messageText(const Cell_Rec& cell, std::int32_t code) {
    for (std::int32_t k = 1; k <= cell.Messages.upperBound(); ++k)
        if (cell.Messages(k).Code == code) return cell.Messages(k).Text;
    return {};
}

void readMessages(Cell_Rec& cell, std::string_view list) {
    cell.Has_Messages = true;
    cell.Messages.redim(0);
    forEachItem(list, [&](std::int32_t k, std::string_view item) {
        const std::size_t open = item.find('(');
        const std::size_t close = item.find(')');
        if (open == std::string_view::npos || close == std::string_view::npos) return false;
        cell.Messages.redimPreserve(k);
        if (close < open) throw Run_Time_Failure(Failure::InvalidCall);
        cell.Messages(k).Code = longValue(item.substr(open + 1, close - open - 1));
        cell.Messages(k).Text = item.substr(close + 1);
        return true;
    });
}

void PRO_Codigo_Mensaje(const Declara_Zorvane& document, std::int32_t field, std::int32_t row,
                        std::int32_t col, std::string_view text, std::int32_t& code) {
    code = messageCode(document.Fields(field).Cells(row, col), text);
}

void PRO_Texto_Mensaje(const Declara_Zorvane& document, std::int32_t field, std::int32_t row,
                       std::int32_t col, std::int32_t code, std::string& text) {
    text = messageText(document.Fields(field).Cells(row, col), code);
}

} // namespace zorvane
