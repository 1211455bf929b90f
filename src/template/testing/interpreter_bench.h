// SPDX-License-Identifier: MIT
#pragma once

#include "template/pro_interpreta_linea.h"
#include "template/testing/document_text.h"
#include "template/testing/reading_bench.h"
#include "values/testing/failure_number.h"

#include <string>
#include <string_view>

namespace zorvane::doubles {

/// A reading bench that also takes single key lines, as the scanner hands them over.
struct Interpreter_Bench : Reading_Bench {
    /// One key line of a section whose number is `number`; whether it was accepted.
    bool line(std::string_view section, std::int32_t number, std::string_view key, std::string_view value) {
        bool ok = false;
        PRO_Interpreta_Linea(document, link, section, key, value, number, ok);
        return ok;
    }

    bool line(std::string_view section, std::string_view key, std::string_view value) {
        return line(section, 0, key, value);
    }

    /// The failure's number of such a line, 0 for none.
    [[nodiscard]] int failureOf(std::string_view section, std::int32_t number, std::string_view key,
                                std::string_view value) {
        return failureNumber([&] { (void)line(section, number, key, value); });
    }

    /// Gives field `number` a table.
    void makeField(std::int32_t number, const std::string& rowsAndColumns) {
        (void)line("CONFIGURATION_FIELDS", "FIELD_" + std::to_string(number) + "_RC", rowsAndColumns);
    }

    [[nodiscard]] std::string cellTextOf(std::int32_t field, std::int32_t row, std::int32_t column) const {
        return cellText(document.Fields(field).Cells(row, column));
    }
};

} // namespace zorvane::doubles
