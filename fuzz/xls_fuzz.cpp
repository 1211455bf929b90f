// SPDX-License-Identifier: MIT
// Any bytes as a report in Excel's format: a strict reader gets every cell back, as text or as number.

#include "fuzz/biff_reader.h"
#include "fuzz/fuzz_report.h"
#include "fuzz/require.h"
#include "reports/export/xls/export_xls.h"
#include "values/code_page.h"
#include "values/numbers.h"

#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;
using fuzz::require;

constexpr std::size_t sheetColumns = 256;
constexpr std::size_t longestText = 32767;

void checkCell(const fuzz::Sheet_Value& found, const Content_Cell& cell, Content_Kind kind) {
    if (const double* const number = std::get_if<double>(&found)) {
        require(kind == Content_Kind::Row && isNumeric(cell.text), "a number was one in the report");
        require(*number == Val(cell.text), "a number has its value");
    } else if (const auto* const text = std::get_if<std::string>(&found)) {
        fuzz::requireSame(*text, toUtf8(cell.text.substr(0, longestText)), "a cell has its text");
    } else {
        require(cell.text.empty(), "only an empty text is an empty cell");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Report_Content content = fuzz::reportFrom(std::string(data, data + size));
    std::vector<fuzz::Sheet_Cells> sheets = fuzz::readBiff(biffWorkbook(content));
    for (std::uint32_t row = 0; row < content.rows.size(); ++row) {
        const Content_Row& texts = content.rows[row];
        for (std::uint32_t column = 0; column < texts.cells.size(); ++column) {
            fuzz::Sheet_Cells& sheet = sheets.at(column / sheetColumns);
            const auto cell = sheet.find({row, column % sheetColumns});
            require(cell != sheet.end(), "every text is there");
            checkCell(cell->second, texts.cells[column], texts.kind);
            sheet.erase(cell);
        }
    }
    for (const fuzz::Sheet_Cells& sheet : sheets)
        require(sheet.empty(), "no other cell is there");
    return 0;
}
