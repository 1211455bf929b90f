// SPDX-License-Identifier: MIT
#include "commission/plan/comparison_json.h"

#include "values/code_page.h"

namespace zorvane::commission {

namespace {

/// One number for one register, a list for several.
Json rawJson(const compare::Cell_Side& side) {
    if (!side.held) return nullptr;
    if (side.held->size() == 1) return side.held->front();
    return *side.held;
}

Json shownJson(const compare::Cell_Side& side) {
    if (!side.read || !side.value) return nullptr;
    return toUtf8(side.shown);
}

} // namespace

Json countsJson(const compare::Counts& counts) {
    using compare::Sign;
    Json json = Json::object();
    for (const Sign sign : {Sign::Equal, Sign::Differs, Sign::One_Side, Sign::Read_Only, Sign::Changing,
                            Sign::Not_Read, Sign::Left_Out})
        json[std::string(compare::signWord(sign))] = counts.of(sign);
    json["rows"] = counts.rows();
    return json;
}

Json rowJson(const compare::Row& row) {
    return {{"field", row.place.field},        {"row", row.place.row},
            {"column", row.place.column},      {"page", toUtf8(row.page)},
            {"name", toUtf8(row.name)},        {"heading", toUtf8(row.heading)},
            {"register", toUtf8(row.address)}, {"left", shownJson(row.left)},
            {"right", shownJson(row.right)},   {"left_raw", rawJson(row.left)},
            {"right_raw", rawJson(row.right)}, {"sign", compare::signWord(row.sign)}};
}

} // namespace zorvane::commission
