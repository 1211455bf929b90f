// SPDX-License-Identifier: MIT
// Any bytes as a report in RTF: a strict reader gets all its texts back.

#include "fuzz/fuzz_report.h"
#include "fuzz/require.h"
#include "fuzz/rtf_reader.h"
#include "reports/export/export_rtf.h"

#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;

/// A line of labels and values, or of running text, as one paragraph.
std::string paragraphOf(const Content_Row& row) {
    std::string text;
    for (const Content_Cell& cell : row.cells)
        text += (&cell == &row.cells.front() ? "" : " ") + fuzz::seenInRtf(cell.text);
    return text + "\n";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Report_Content content = fuzz::reportFrom(std::string(data, data + size));
    const fuzz::Rtf_Texts found = fuzz::readRtf(exportRtf(content));
    std::size_t place = 0;
    std::string text;
    for (std::size_t row = 0; row < content.rows.size(); ++row) {
        const auto table = tableAt(content, row);
        if (table.empty()) {
            text += paragraphOf(content.rows[row]);
            continue;
        }
        text += "\n"; // keeps two tables apart
        for (const Content_Row& each : table)
            for (const Content_Cell& cell : each.cells) {
                fuzz::require(place < found.cells.size(), "every text of a table is there");
                fuzz::requireSame(found.cells[place++], fuzz::seenInRtf(cell.text), "a cell has its text");
            }
        row += table.size() - 1;
    }
    fuzz::require(place == found.cells.size(), "no other texts are there");
    fuzz::requireSame(found.text, text, "the text around the tables is there");
    return 0;
}
