// SPDX-License-Identifier: MIT
#include "ctl/compare/comparison_text.h"

#include "compare/comparison_words.h"
#include "ctl/document/notices.h"
#include "ctl/document/subcommand.h"
#include "ctl/text/text_table.h"

#include <algorithm>
#include <ostream>

namespace zorvane::ctl {

using compare::Sign;

namespace {

Json rawJson(const compare::Row& row, const compare::Cell_Side& side) {
    if (!side.held) return {};
    const bool one = side.held->size() == 1 && row.registers && row.registers->first == row.registers->last;
    return one ? Json(side.held->front()) : Json(*side.held);
}

Json shownJson(const compare::Cell_Side& side) { return side.value ? jsonText(side.shown) : Json(); }

} // namespace

bool Listed_Rows::has(const compare::Row& row) const {
    return (all || filter.choosesSigns() || row.sign != Sign::Equal) && filter.lets(row);
}

Json countsJson(const compare::Counts& counts) {
    Json json = Json::object();
    for (const Sign sign : {Sign::Equal, Sign::Differs, Sign::One_Side, Sign::Read_Only, Sign::Changing,
                            Sign::Not_Read, Sign::Left_Out})
        json[std::string(signWord(sign))] = counts.of(sign);
    json["rows"] = counts.rows();
    return json;
}

Json rowJson(const compare::Row& row) {
    return {{"field", row.place.field},
            {"row", row.place.row},
            {"column", row.place.column},
            {"page", jsonText(row.page)},
            {"name", jsonText(row.name)},
            {"heading", jsonText(row.heading)},
            {"register", row.registers ? jsonText(row.address) : Json()},
            {"left", shownJson(row.left)},
            {"right", shownJson(row.right)},
            {"left_raw", rawJson(row, row.left)},
            {"right_raw", rawJson(row, row.right)},
            {"sign", signWord(row.sign)}};
}

Json comparisonJson(const compare::Comparison& comparison, const Side_Names& names,
                    const Listed_Rows& listed) {
    Json rows = Json::array();
    for (const compare::Row& row : comparison.rows)
        if (listed.has(row)) rows.push_back(rowJson(row));
    return {{"left", jsonPath(names.left)},
            {"right", jsonPath(names.right)},
            {"counts", countsJson(comparison.counts)},
            {"rows", std::move(rows)}};
}

void printComparison(std::ostream& out, const compare::Comparison& comparison, const Side_Names& names,
                     const Listed_Rows& listed) {
    out << "Left:  " << printablePath(names.left) << "\nRight: " << printablePath(names.right) << '\n';
    Text_Table table;
    table.add({"", "Page", "Name", "Column", "Register", "Left", "Right"});
    bool some = false;
    for (const compare::Row& row : comparison.rows) {
        if (!listed.has(row)) continue;
        some = true;
        table.add({std::string(signMark(row.sign)), printable(row.page), printable(row.name),
                   printable(row.heading), printable(row.address), printable(compare::sideText(row.left)),
                   printable(compare::sideText(row.right))});
    }
    if (some) table.print(out, 0);
    out << compare::countsText(comparison.counts) << '\n';
}

int comparisonExit(const compare::Counts& counts) {
    if (counts.of(Sign::Differs) + counts.of(Sign::One_Side) > 0) return Exit_Differs;
    return counts.of(Sign::Not_Read) > 0 ? Exit_Cant_Tell : Exit_Success;
}

} // namespace zorvane::ctl
