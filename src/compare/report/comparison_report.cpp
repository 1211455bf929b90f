// SPDX-License-Identifier: MIT
#include "compare/report/comparison_report.h"

#include "compare/comparison_words.h"

#include <utility>

namespace zorvane::compare {

namespace {

/// The sign in the code page, which lacks the sign of inequality.
std::string paperSign(Sign sign) {
    const std::string mark = sign == Sign::Differs ? "<>" : std::string(signMark(sign));
    return mark + " " + std::string(signPhrase(sign));
}

Table_Section headSection(const Comparison_Head& head) {
    Table_Section section{"Comparison", {{"", 22, false}, {"", 78, false}}, false, false, {}};
    const auto add = [&](const char* what, const std::string& text) {
        if (!text.empty()) section.rows.push_back({what, text});
    };
    add("Document", head.document);
    add("Left", head.left);
    add("Right", head.right);
    add("Controller", head.identity);
    add("Time", head.time);
    add("Listed", head.filter);
    return section;
}

Table_Section countSection(const std::string& title, const Counts& counts) {
    Table_Section section{title, {}, true, false, {{}}};
    const auto add = [&](const std::string& word, std::size_t count) {
        section.columns.push_back({word, 12.5, true});
        section.rows[0].push_back(std::to_string(count));
    };
    for (const Sign sign : {Sign::Equal, Sign::Differs, Sign::One_Side, Sign::Read_Only, Sign::Changing,
                            Sign::Not_Read, Sign::Left_Out})
        add(sign == Sign::One_Side ? "one side" : std::string(signPhrase(sign)), counts.of(sign));
    add("values", counts.rows());
    return section;
}

Table_Section rowSection(const Row_List& rows) {
    Table_Section section{"Values",
                          {{"Page", 17, false},
                           {"Setting", 23, false},
                           {"Register", 10, false},
                           {"Left", 17, false},
                           {"Right", 17, false},
                           {"Sign", 16, false}},
                          true,
                          false,
                          {}};
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const Row& row = rows.at(place);
        section.rows.push_back({row.page, settingText(row), row.address, sideText(row.left),
                                sideText(row.right), paperSign(row.sign)});
    }
    return section;
}

/// The document between the two others, each with its sign.
Table_Section threeSidesSection(const Row_List& rows) {
    Table_Section section{"Values",
                          {{"Page", 12, false},
                           {"Setting", 17, false},
                           {"Register", 8, false},
                           {"Left", 13, false},
                           {"Left sign", 12, false},
                           {"Document", 13, false},
                           {"Right sign", 12, false},
                           {"Right", 13, false}},
                          true,
                          false,
                          {}};
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const Row& row = rows.at(place);
        const Row* const left = rows.leftRow(place);
        const Row* const right = rows.rightRow(place);
        section.rows.push_back(
            {row.page, settingText(row), row.address, left != nullptr ? sideText(left->left) : "",
             left != nullptr ? paperSign(left->sign) : "",
             sideText(right != nullptr ? right->left : left->right),
             right != nullptr ? paperSign(right->sign) : "", right != nullptr ? sideText(right->right) : ""});
    }
    return section;
}

} // namespace

std::vector<Table_Section> sectionsOf(const Row_List& rows, const Comparison_Head& head) {
    std::vector<Table_Section> sections = {headSection(head)};
    if (rows.threeSides())
        sections.push_back(countSection("Counts, left and document", rows.leftComparison().counts));
    sections.push_back(
        countSection(rows.threeSides() ? "Counts, document and right" : "Counts", rows.comparison().counts));
    if (rows.size() > 0) sections.push_back(rows.threeSides() ? threeSidesSection(rows) : rowSection(rows));
    return sections;
}

Comparison_Report::Comparison_Report(const Text_Metrics& metrics, const Row_List& rows,
                                     const Comparison_Head& head)
    : Sections_Report(metrics, {"Comparison: " + head.document, head.right, head.time},
                      sectionsOf(rows, head)) {}

} // namespace zorvane::compare
