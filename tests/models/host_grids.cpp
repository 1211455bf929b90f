// SPDX-License-Identifier: MIT
// Filling the lower grid, and committing one edit in it.

#include "grids/fill/fill_settings.h"
#include "grids/testing/commit_outcome.h"
#include "tests/models/host.h"

namespace zorvane::models {

namespace {

std::int32_t number(const Json& value) { return value.get<std::int32_t>(); }

Field_Rec& tableOn(doubles::Grid_Bench& bench, const Json& asked) {
    const Json& table = asked["table"];
    Field_Rec& field =
        bench.addTable(table["rows"].get<std::int16_t>(), static_cast<std::int16_t>(table["columns"].size()));
    fillField(field, table);
    for (const auto& [address, value] : asked["image"].items())
        bench.link.image[std::stoi(address)] = number(value);
    return field;
}

Json shownIn(const Memory_Grid& grid) {
    Json rows = Json::array();
    for (std::int32_t r = 1; r < grid.Rows(); ++r) {
        Json row = Json::array();
        for (std::int32_t c = 0; c < grid.Cols(); ++c)
            row.push_back(charactersOf(grid.TextMatrix(r, c)));
        rows.push_back(std::move(row));
    }
    return rows;
}

Json columnsOf(const Memory_Grid& grid) {
    Json columns = Json::array();
    for (std::int32_t c = 0; c < grid.Cols(); ++c)
        columns.push_back({charactersOf(grid.TextMatrix(0, c)), grid.ColWidth(c), grid.ColAlignment(c)});
    return columns;
}

Json coloursOf(Memory_Grid& grid) {
    Json rows = Json::array();
    for (std::int32_t r = 1; r < grid.Rows(); ++r) {
        Json row = Json::array();
        for (std::int32_t c = 0; c < grid.Cols(); ++c) {
            grid.setRow(r);
            grid.setCol(c);
            row.push_back({grid.CellForeColor(), grid.CellBackColor()});
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

Json linesOf(const std::vector<std::string>& lines) {
    Json list = Json::array();
    for (const std::string& line : lines)
        list.push_back(charactersOf(line));
    return list;
}

} // namespace

Json filledTable(const Json& asked) {
    doubles::Grid_Bench bench;
    Field_Rec& field = tableOn(bench, asked);
    const Json& colours = asked["colours"];
    bench.document.Colors.Color_Txt_Normal = bytesOf(colours[0]);
    bench.document.Colors.Color_Back_Normal = bytesOf(colours[1]);
    bench.document.Colors.Color_Txt_Modifiable = bytesOf(colours[2]);
    bench.document.Colors.Color_Back_Modifiable = bytesOf(colours[3]);
    bench.form.Online = asked["online"].get<bool>();
    bench.form.Current_Request = bytesOf(asked["request"]);
    bench.link.lost = asked["lost"].get<bool>();
    const std::int32_t failure = failureOf([&] { PRO_Llena_Settings(bench.grids, 1, false); });
    Json outcome{{"failure", failure},
                 {"values", valuesOf(field)},
                 {"shown", shownIn(bench.ownLower)},
                 {"visible", bench.ownLower.Visible()}};
    if (failure != 0) return outcome;
    outcome["columns"] = columnsOf(bench.ownLower);
    outcome["colours"] = coloursOf(bench.ownLower);
    return outcome;
}

Json committedEdit(const Json& asked) {
    doubles::Grid_Bench bench;
    Field_Rec& field = tableOn(bench, asked);
    bench.document.File_Stem = asked["stem"].get<std::string>();
    bench.form.Online = asked["online"].get<bool>();
    bench.link.writeFailed = asked["failed before"].get<bool>();
    if (asked["fails"].get<bool>()) bench.link.writes = {{doubles::Exchange{.good = false}}};
    bench.mainForm.advance = [&bench] { return bench.link.advance(); };
    const std::int32_t row = number(asked["row"]);
    const std::int32_t col = number(asked["column"]) - 1;
    const std::int32_t failure = failureOf([&] {
        if (asked.contains("entry"))
            bench.choose(row, col, bytesOf(asked["entry"]));
        else
            bench.type(row, col, bytesOf(asked["text"]));
    });
    const Cell_Rec& cell = field.Cells(row, col + 1);
    Json outcome{{"failure", failure},
                 {"values", valuesOf(field)},
                 {"limits", {charactersOf(cell.Min_Value), charactersOf(cell.Max_Value)}},
                 {"shown", charactersOf(bench.ownLower.TextMatrix(row, col))},
                 {"col", bench.ownLower.Col()},
                 {"tab stop", bench.ownLower.TabStop()},
                 {"focus", bench.ownLower.focusCalls()},
                 {"scan", !bench.journal.beginningWith("link StartScan").empty()},
                 {"writes", linesOf(bench.journal.beginningWith("link Preset"))},
                 {"panel", linesOf(bench.journal.beginningWith("panel 4"))},
                 {"boxes", linesOf(bench.journal.beginningWith("Msgb"))},
                 {"marked", !bench.mainForm.caption().empty()},
                 {"save", bench.journal.beginningWith("MNU_Save ").empty()   ? "as before"
                          : bench.mainForm.menuEnabled(Menu_Entry::MNU_Save) ? "on"
                                                                             : "off"}};
    bench.ownLower.setRow(row);
    bench.ownLower.setCol(col);
    outcome["colours"] = doubles::colourNames(bench.ownLower);
    return outcome;
}

} // namespace zorvane::models
