// SPDX-License-Identifier: MIT
// Any bytes as a file of values, as lines of values and as a spreadsheet's clipboard: each value is taken or
// left out, records are read as they were written, what was taken comes back from an export without a
// difference, and goes back by the history to the byte.

#include "edit/block_paste.h"
#include "edit/csv_text.h"
#include "edit/history/history.h"
#include "edit/testing/relay.h"
#include "edit/value_export.h"
#include "edit/value_import.h"
#include "fuzz/require.h"
#include "template/model/each_cell.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;
using fuzz::require;

std::string valuesOf(const Declara_Zorvane& document) {
    std::string all;
    forEachCell(document, [&](const Cell_Place& place, const Cell_Rec&, const Cell_Rec& cell) {
        all += std::to_string(place.field) + "," + std::to_string(place.row) + "," +
               std::to_string(place.column) + "=" + cell.Value + "\n";
    });
    return all;
}

/// Takes the values as one step, and back, and again.
void takeAndBack(Declara_Zorvane& document, const std::vector<edit::Taken_Value>& taken) {
    const std::string before = valuesOf(document);
    edit::History history;
    std::vector<Value_Change> changes = edit::applyNoting(document, taken);
    const std::string after = valuesOf(document);
    history.changed("values", std::move(changes));
    require(history.undoName().has_value() == (before != after), "what changes values is a step");
    if (!history.undoName()) return;
    const auto undone = history.undo(document);
    require(undone && undone->leftOut.empty(), "no cell is left out");
    fuzz::requireSame(valuesOf(document), before, "a step goes back to the byte");
    (void)history.redo(document);
    fuzz::requireSame(valuesOf(document), after, "and again");
}

void checkRoundTrip(const Declara_Zorvane& document) {
    for (const edit::Csv_Style& style :
         {edit::Csv_Style{}, edit::Csv_Style{';', ','}, edit::Csv_Style{'\t', '.'}}) {
        const edit::Value_File file = edit::readValueFile(edit::exportedValues(document, style));
        require(file.problem.empty(), "an export is a file of values");
        const edit::Import_Check check = edit::checkImport(document, file.values, {});
        require(check.leftOut.empty(), "all of an export is taken");
        require(std::none_of(check.taken.begin(), check.taken.end(),
                             [](const edit::Taken_Value& each) { return each.changes; }),
                "an export comes back without a difference");
    }
}

std::vector<std::vector<std::string>> fieldsOf(const std::string& text, char separator) {
    std::vector<std::vector<std::string>> all;
    for (const edit::Csv_Record& record : edit::csvRecords(text, separator))
        all.push_back(record.fields);
    return all;
}

void checkRecords(const std::string& text, char separator) {
    const auto records = fieldsOf(text, separator);
    std::string again;
    for (const std::vector<std::string>& record : records) {
        again += edit::csvLine(record, separator) + "\r\n";
        for (const std::string& field : record)
            fuzz::requireSame(edit::unguarded(edit::guarded(field)), field, "a guard comes off again");
    }
    require(fieldsOf(again, separator) == records, "records are read as they were written");
}

void tryFile(const edit::Value_File& file) {
    if (!file.problem.empty()) return;
    doubles::Relay relay;
    const edit::Import_Check check = edit::checkImport(relay.document, file.values, {});
    require(check.taken.size() + check.leftOut.size() == file.values.size(),
            "each value is taken or left out");
    takeAndBack(relay.document, check.taken);
    checkRoundTrip(relay.document);
}

void tryClipboard(const std::string& text) {
    const edit::Text_Rows rows = edit::textRows(text);
    require(rows == edit::textRows(edit::tabbedText(rows)) || rows.empty(), "rows come back from their text");
    const std::string html = edit::htmlTable(rows);
    require(
        std::all_of(html.begin(), html.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }),
        "a table is ASCII");
    if (rows.empty()) return;
    doubles::Relay relay;
    std::size_t cells = 0;
    for (const auto& row : rows)
        cells += row.size();
    const edit::Block_Check check = edit::checkBlock(relay.document, {1, 1, 2, 1, 2}, rows);
    require(check.taken.size() + check.refused.size() == cells, "each text fits or is refused");
    require(!edit::summaryOf(relay.document, check).empty(), "there is a sentence about it");
    takeAndBack(relay.document, check.taken);
    checkRoundTrip(relay.document);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const char separator : {',', ';', '\t'})
        checkRecords(text, separator);
    tryFile(edit::readValueFile(text));
    const doubles::Relay relay;
    tryFile(edit::readValueLines(relay.document, text));
    tryClipboard(text);
    return 0;
}
