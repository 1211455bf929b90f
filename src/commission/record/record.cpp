// SPDX-License-Identifier: MIT
#include "commission/record/record.h"

#include "commission/folder/json_fields.h"
#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>

namespace zorvane::commission {

std::string stateText(const std::string& state) {
    std::string text = state;
    std::replace(text.begin(), text.end(), '_', ' ');
    return text;
}

std::size_t countOf(const Record& record, const std::string& state) {
    return static_cast<std::size_t>(std::count_if(record.rows.begin(), record.rows.end(),
                                                  [&](const Record_Row& row) { return row.state == state; }));
}

namespace {

bool isUtf8(const std::string& text) {
    try {
        (void)Json(text).dump(); // refuses any other text
        return true;
    } catch (const Json::exception&) {
        return false;
    }
}

} // namespace

std::vector<std::string> checksOf(const std::string& bytes) {
    const std::string text = bytes.substr(bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    std::vector<std::string> checks;
    const std::string ours = isUtf8(text) ? fromUtf8(text) : text;
    for (std::size_t begin = 0; begin < ours.size();) {
        const std::size_t end = std::min(ours.find('\n', begin), ours.size());
        std::string line = ours.substr(begin, end - begin);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (const auto check = trimBlanks(line); !check.empty()) checks.emplace_back(check);
        begin = end + 1;
    }
    return checks;
}

} // namespace zorvane::commission
