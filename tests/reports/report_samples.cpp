// SPDX-License-Identifier: MIT
// Writes a report in all six formats, and as JSON what each of its cells holds, for other programs to
// compare.
//   report_samples FOLDER

#include "reports/documents/main_rep_kvrt.h"
#include "reports/export/byte_file.h"
#include "reports/export/export_format.h"
#include "reports/export/xls/export_xls.h"
#include "reports/export/xls/ole_container.h"
#include "reports/qt/qt_page_exporters.h"
#include "reports/qt/qt_report_fonts.h"
#include "reports/testing/report_bench.h"
#include "values/code_page.h"

#include <QGuiApplication>

#include <nlohmann/json.hpp>

#include <iostream>

namespace {

using namespace zorvane;
using nlohmann::json;

const std::string euro = "\x80";

void designTexts(Field_Rec& field) {
    doubles::design(field, "Texts, \"quoted\" & <angled> {braced} \\ " + euro,
                    {{"Name", 2600}, {"Value, <b>", 1700, "RIGHT", true}, {"K\xFChl {x}", 1900, "CENTER"}},
                    {{"quotes \"double\" 'single'", "1", "plain"},
                     {"angles <b>bold</b> & &amp;", "-40", "a, b, c"},
                     {"braces {a} }{ \\par \\'41", "1.50", "back\\slash\\"},
                     {"accents \xE0\xE9\xEE\xF6\xFC\xDF \xC5\xD8", "007",
                      "degrees 20\xB0"
                      "C \xB1"
                      "5 \xB5"
                      "A"},
                     {"euro " + euro + " dash \x96 dots \x85", "1234567890123456", "quote \x93ok\x94 \x99"},
                     {"=1+1", "+5", "=SUM(A1)"},
                     {"-0", "+49", "1e5"},
                     {".5", "-.50", "123456789012"},
                     {"@home", "-x", "+49 30"},
                     {"'text", "0", "a;b\tc"},
                     {"", "12.5", "last"}});
}

/// More rows than a page has room for, and columns that run past the right margin.
void designLongTable(Field_Rec& field) {
    doubles::design(field, "Long table", {{"Row", 900, "RIGHT"}, {"Wide", 6000}, {"Beyond the margin", 4000}},
                    {});
    Cell_Rec heads[4];
    for (std::int32_t column = 1; column <= 3; ++column)
        heads[column] = field.Cells(0, column);
    field.Rows = 120;
    field.Cells.redim(field.Rows, field.Columns);
    for (std::int32_t column = 1; column <= 3; ++column)
        field.Cells(0, column) = heads[column];
    for (std::int32_t row = 1; row <= field.Rows; ++row) {
        field.Cells(row, 1).Value = std::to_string(row);
        field.Cells(row, 2).Value = "row number " + std::to_string(row);
        field.Cells(row, 3).Value = "far " + std::to_string(row);
    }
}

void designMessages(Field_Rec& field) {
    doubles::design(field, "Messages", {{"Name", 2000}, {"State", 2000}}, {{"one", "1"}, {"two", "7"}});
    for (const std::int32_t row : {1, 2})
        doubles::giveMessages(field.Cells(row, 2), {{1, "On, \"really\" {yes}"}});
}

/// The column in the middle isn't shown, but the one after it shows its text where no message answers.
void designHiddenColumn(Field_Rec& field) {
    doubles::design(field, "Hidden column", {{"Name", 2000}, {"out of sight", 0}, {"State", 2000}},
                    {{"one", "hidden away", "1"}, {"two", "seen beside", "7"}});
    for (const std::int32_t row : {1, 2})
        doubles::giveMessages(field.Cells(row, 3), {{1, "On"}});
}

json expected(const Declara_Zorvane& document) {
    json fields = json::array();
    for (std::int32_t number = 1; number <= document.Field_Count; ++number) {
        const Field_Rec& field = document.Fields(number);
        const auto shown = [&field](std::vector<std::string> texts) {
            json list = json::array();
            for (std::int32_t column = 1; column <= field.Columns; ++column)
                if (field.Cells(0, column).Width != 0)
                    list.push_back(toUtf8(texts.at(static_cast<std::size_t>(column) - 1)));
            return list;
        };
        std::vector<std::string> heads;
        for (std::int32_t column = 1; column <= field.Columns; ++column)
            heads.push_back(field.Cells(0, column).Value);
        const json headings = shown(heads);
        json rows = json::array();
        for (std::int32_t row = 1; row <= field.Rows; ++row)
            rows.push_back(shown(reportRowTexts(field, row)));
        fields.push_back(
            {{"description", toUtf8(field.Description)}, {"headings", headings}, {"rows", rows}});
    }
    return {{"fields", fields}};
}

/// At 12 points the numbers have no room in their column.
void writeCutNumbers(const std::string& path, const Page_Exporters& painted) {
    doubles::Report_Bench bench;
    bench.document.Field_Count = 1;
    doubles::design(bench.document.Fields(1), "Cut", {{"Name", 2000}, {"", 500, "RIGHT"}},
                    {{"Level", "1500"}});
    const Qt_Text_Metrics metrics;
    MainRepKVRT report({bench.document, metrics}, bench.clock, bench.host);
    report.FontSize = 12;
    writeByteFile(path, exportReport(report, Export_Format::Pdf, painted));
}

/// More texts than a record holds, a text longer than one, and more rows and columns than a sheet has.
void writeLargeWorkbook(const std::string& path) {
    Report_Content content;
    const std::size_t style = content.styles.indexOf({});
    const auto addRow = [&](const std::string& name, std::size_t columns) {
        Content_Row row;
        for (std::size_t column = 0; column < columns; ++column)
            row.cells.push_back({name + " " + std::to_string(column) + " " + euro, 0, 1000, style});
        content.rows.push_back(std::move(row));
    };
    addRow("wide", 300);
    content.rows.push_back({Content_Kind::Row, {{std::string(30000, 'x') + euro, 0, 1000, style}}});
    for (int row = 2; row < 65540; ++row)
        addRow("row " + std::to_string(row), 1);
    writeByteFile(path, oleFile("Workbook", biffWorkbook(content)));
}

} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2) return 2;
    const std::string folder = argv[1];
    doubles::Report_Bench bench;
    bench.document.Fields.redim(4);
    bench.document.Field_Count = 4;
    designTexts(bench.document.Fields(1));
    designLongTable(bench.document.Fields(2));
    designMessages(bench.document.Fields(3));
    designHiddenColumn(bench.document.Fields(4));

    const Qt_Text_Metrics metrics;
    const Qt_Page_Exporters painted;
    MainRepKVRT report({bench.document, metrics}, bench.clock, bench.host);
    report.HaveGrid = true;
    for (const std::string& name : formatNames())
        writeByteFile(folder + "/sample." + name, exportReport(report, formatOfName(name).value(), painted));
    writeCutNumbers(folder + "/cut.pdf", painted);
    writeLargeWorkbook(folder + "/large.xls");
    json answer = expected(bench.document);
    answer["pages"] = report.Pages.Count();
    writeByteFile(folder + "/expected.json", answer.dump(1));
    std::cout << report.Pages.Count() << " pages\n";
    return 0;
}
