// SPDX-License-Identifier: MIT
#include "commission/record/record_deviations.h"

#include "compare/comparison.h"

#include <map>

namespace zorvane::commission {

std::vector<Record_Deviation> deviationsFrom(const Declara_Zorvane& factory, const Declara_Zorvane& before,
                                             const Identity_Section& section,
                                             const std::vector<Record_Row>& rows) {
    std::map<Cell_Place, std::string> verified;
    for (const Record_Row& row : rows)
        if (row.state == "verified") verified[{row.field, row.row, row.column}] = row.readBack;
    const compare::Document_Side left(factory);
    const compare::Document_Side right(before);
    std::vector<Record_Deviation> deviations;
    for (const compare::Row& row : compare::comparisonOf({factory, section, left, right}).rows) {
        const auto changed = verified.find(row.place);
        const bool differs = changed != verified.end()
                                 ? changed->second != row.left.shown
                                 : row.sign == compare::Sign::Differs ||
                                       (row.sign == compare::Sign::One_Side && row.right.value);
        if (row.address.empty() || !differs) continue;
        deviations.push_back({row.page, row.name, row.heading, row.address, row.left.shown,
                              changed != verified.end() ? changed->second : row.right.shown});
    }
    return deviations;
}

} // namespace zorvane::commission
