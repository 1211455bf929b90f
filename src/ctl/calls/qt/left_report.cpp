// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/left_report.h"

#include "ctl/document/notices.h"

#include <algorithm>
#include <ostream>

namespace zorvane::ctl {

namespace {

using commission::Left_Row;
using commission::Left_Sign;
using Left_Rows = std::vector<Left_Row>;

std::size_t countOf(const Left_Rows& rows, Left_Sign sign) {
    return static_cast<std::size_t>(
        std::count_if(rows.begin(), rows.end(), [sign](const Left_Row& row) { return row.sign == sign; }));
}

Json jsonOf(const std::optional<std::uint16_t>& value) { return value ? Json(*value) : Json(); }

Json rowsOf(const Left_Rows& rows) {
    Json list = Json::array();
    for (const Left_Row& row : rows)
        list.push_back({{"register", row.number},
                        {"left", jsonOf(row.left)},
                        {"now", jsonOf(row.now)},
                        {"sign", commission::leftSignWord(row.sign)}});
    return list;
}

void printObject(const Call_Context& context, const std::string& run, const Left_Rows& rows) {
    Json counts = Json::object();
    for (const Left_Sign sign : {Left_Sign::As_Left, Left_Sign::Changed, Left_Sign::Not_Read})
        counts[std::string(commission::leftSignWord(sign))] = countOf(rows, sign);
    counts["rows"] = rows.size();
    printJson(context.out,
              {{"run", run.empty() ? Json() : Json(run)}, {"counts", counts}, {"rows", rowsOf(rows)}});
}

std::string spoken(const std::optional<std::uint16_t>& value, const char* before, const char* unknown) {
    return value ? before + std::to_string(*value) : unknown;
}

} // namespace

void printLeft(const Call_Context& context, const std::string& run, const Left_Rows& rows) {
    if (context.json) return printObject(context, run, rows);
    if (run.empty()) return;
    for (const Left_Row& row : rows)
        if (row.sign != Left_Sign::As_Left)
            context.out << "Register " << row.number << ": " << spoken(row.left, "left ", "never read")
                        << ", " << spoken(row.now, "now ", "not read") << "\n";
    context.out << countOf(rows, Left_Sign::As_Left) << " of " << rows.size() << " registers as left.\n";
}

int exitOfLeft(const Left_Rows& rows) {
    if (countOf(rows, Left_Sign::Not_Read) > 0) return Exit_Cant_Tell;
    return countOf(rows, Left_Sign::Changed) > 0 ? Exit_Differs : Exit_Success;
}

} // namespace zorvane::ctl
