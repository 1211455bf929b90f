// SPDX-License-Identifier: MIT
#include "ctl/document/model_text.h"

#include "ctl/document/notices.h"
#include "ctl/text/text_table.h"
#include "template/sections/messages.h"
#include "values/numbers.h"

#include <algorithm>
#include <ostream>

namespace zorvane::ctl {

namespace {

constexpr std::int32_t mostRows = 200;
constexpr std::int32_t mostColumns = 40;

/// What a cell shows: a list cell its code's text.
std::string shownValue(const Cell_Rec& cell) {
    if (!cell.Has_Messages) return printable(cell.Value);
    const double code = Val(cell.Value);
    std::string text;
    ignoringFailure([&] { text = messageText(cell, toLong(code)); });
    return printable(text);
}

void printTable(std::ostream& out, const Cell_Table& cells) {
    const std::int32_t rows = std::min(cells.rows(), mostRows);
    const std::int32_t columns = std::min(cells.columns(), mostColumns);
    Text_Table table;
    for (std::int32_t row = 0; row <= rows; ++row) {
        std::vector<std::string> texts = {row == 0 ? "" : std::to_string(row)};
        for (std::int32_t column = 1; column <= columns; ++column)
            texts.push_back(row == 0 ? printable(cells(0, column).Value) : shownValue(cells(row, column)));
        table.add(std::move(texts));
    }
    table.print(out, 2);
    if (rows < cells.rows() || columns < cells.columns())
        out << "  ... of " << cells.rows() << " rows and " << cells.columns() << " columns; --json has all\n";
}

void printField(std::ostream& out, std::int32_t number, const Field_Rec& field) {
    out << "\nField " << number << ": " << printable(field.Description) << '\n';
    const auto& values = field.Config_Values;
    for (std::int32_t c = 1; values.dimensioned() && c <= std::min(values.upperBound(), mostColumns); ++c)
        if (!values(c).empty()) out << "  [" << c << "] " << printable(values(c)) << '\n';
    if (field.Cells.dimensioned()) printTable(out, field.Cells);
}

void printScan(std::ostream& out, const Checked_Array<Holding_Block_Rec>& blocks) {
    if (!blocks.dimensioned() || blocks.upperBound() < 1) return;
    out << "\nScanned registers\n";
    Text_Table table;
    for (std::int32_t i = 1; i <= blocks.upperBound(); ++i)
        table.add({std::to_string(i),
                   std::to_string(blocks(i).First_Address) + "-" + std::to_string(blocks(i).Last_Address),
                   printable(blocks(i).Request)});
    table.print(out, 2);
}

void printWrites(std::ostream& out, const Declara_Zorvane& document) {
    constexpr const char* kinds[] = {"numeric", "message list", "ASCII"};
    const auto& blocks = document.Download_Blocks;
    Text_Table table;
    for (std::int32_t i = 0; blocks.dimensioned() && i < blocks.upperBound(); ++i)
        table.add({printable(blocks(i).First_Address) + "-" + printable(blocks(i).Last_Address),
                   kinds[blocks(i).Block_Kind]});
    if (blocks.dimensioned() && blocks.upperBound() > 0) out << "\nRegisters written as blocks\n";
    table.print(out, 2);
    const auto& held = document.Not_Downloadable;
    if (!held.dimensioned() || held.upperBound() < 1) return;
    out << "\nNever written:";
    for (std::int32_t i = 1; i <= held.upperBound(); ++i)
        out << ' ' << printable(held(i));
    out << '\n';
}

} // namespace

void printModel(std::ostream& out, const Opened_Document& opened) {
    const Declara_Zorvane& document = opened.document;
    out << "Controller: " << printable(document.Controller_Model) << '\n'
        << "Template:   " << printablePath(opened.ztp.path) << '\n';
    if (opened.configuration) out << "Document:   " << printablePath(opened.configuration->path) << '\n';
    for (std::int32_t f = 0; f <= document.Fields.upperBound(); ++f)
        if (document.Fields(f).Touched) printField(out, f, document.Fields(f));
    printScan(out, document.Holding_Blocks);
    printWrites(out, document);
}

} // namespace zorvane::ctl
