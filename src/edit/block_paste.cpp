// SPDX-License-Identifier: MIT
#include "edit/block_paste.h"

#include "edit/plain_number.h"
#include "grids/rules/value_findings.h"
#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>

namespace zorvane::edit {

namespace {

bool isOneText(const Text_Rows& block) { return block.size() == 1 && block[0].size() == 1; }

/// The rows of a block may be of different lengths.
Cell_Range rangeOf(const Cell_Range& selection, const Text_Rows& block) {
    if (isOneText(block)) return selection;
    std::size_t widest = 0;
    for (const auto& row : block)
        widest = std::max(widest, row.size());
    Cell_Range range = selection;
    range.lastRow = selection.firstRow + static_cast<std::int32_t>(block.size()) - 1;
    range.lastColumn = selection.firstColumn + static_cast<std::int32_t>(widest) - 1;
    return range;
}

bool placeHoldsNumbers(const Declara_Zorvane& document, const Cell_Place& place) {
    if (!hasCell(document, place)) return false;
    const Cell_Table& cells = document.Fields(place.field).Cells;
    const Cell_Rec& cell = cells(place.row, place.column);
    return !cell.Has_Messages && holdsNumbers(cells(0, place.column), cell);
}

/// A text of the block, and the cell that it is for.
struct Meant_Text {
    Cell_Place place;
    const std::string& text;
};

std::vector<Meant_Text> meantTexts(const Cell_Range& range, const Text_Rows& block) {
    std::vector<Meant_Text> texts;
    const bool one = isOneText(block);
    const std::int32_t rows = one ? range.rows() : static_cast<std::int32_t>(block.size());
    for (std::int32_t r = 0; r < rows; ++r) {
        const std::vector<std::string>& row = block[one ? 0 : static_cast<std::size_t>(r)];
        const std::int32_t columns = one ? range.columns() : static_cast<std::int32_t>(row.size());
        for (std::int32_t c = 0; c < columns; ++c)
            texts.push_back({{range.field, range.firstRow + r, range.firstColumn + c},
                             row[one ? 0 : static_cast<std::size_t>(c)]});
    }
    return texts;
}

char decimalSignOf(const Declara_Zorvane& document, const std::vector<Meant_Text>& texts) {
    std::vector<std::string_view> numbers;
    for (const Meant_Text& each : texts)
        if (placeHoldsNumbers(document, each.place)) numbers.emplace_back(each.text);
    return provenDecimalSign(numbers);
}

std::string counted(std::size_t count) { return numberText(static_cast<std::int32_t>(count)); }

} // namespace

Block_Check checkBlock(const Declara_Zorvane& document, const Cell_Range& selection, const Text_Rows& block) {
    Block_Check check;
    check.range = rangeOf(selection, block);
    const std::vector<Meant_Text> texts = meantTexts(check.range, block);
    Reading_Style style;
    style.decimalSign = decimalSignOf(document, texts);
    for (const Meant_Text& each : texts) {
        Verdict verdict = judged(document, each.place, each.text, style);
        if (auto* const taken = std::get_if<Taken_Value>(&verdict))
            check.taken.push_back(std::move(*taken));
        else
            check.refused.push_back({each.place, each.text, std::get<Refusal>(verdict).why});
    }
    return check;
}

std::string summaryOf(const Declara_Zorvane& document, const Block_Check& check) {
    const std::size_t all = check.taken.size() + check.refused.size();
    std::string text = counted(check.taken.size()) + " of " + counted(all) + " fit";
    if (check.refused.empty()) return text;
    const Block_Refusal& first = check.refused.front();
    text += "; row " + numberText(first.place.row) + " ";
    if (check.range.columns() > 1 && hasCell(document, first.place)) {
        const std::string_view heading =
            trimBlanks(document.Fields(first.place.field).Cells(0, first.place.column).Value);
        if (!heading.empty()) text += "(" + std::string(heading) + ") ";
    }
    text += first.why;
    if (check.refused.size() > 1) text += ", and " + counted(check.refused.size() - 1) + " more";
    return text;
}

std::string nameOf(const Block_Check& check) {
    const auto count = std::count_if(check.taken.begin(), check.taken.end(),
                                     [](const Taken_Value& taken) { return taken.changes; });
    return "paste of " + numberText(static_cast<std::int32_t>(count)) + (count == 1 ? " value" : " values");
}

} // namespace zorvane::edit
