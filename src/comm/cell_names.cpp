#include "comm/cell_names.h"

#include "values/code_page.h"
#include "values/numbers.h"

#include <iterator>

namespace zorvane {

namespace {

constexpr int mostRanges = 10;

std::string rangeText(std::int32_t first, std::int32_t last) {
    return first == last ? numberText(first) : numberText(first) + "-" + numberText(last);
}

} // namespace

std::string pageName(const Declara_Zorvane& document, std::int32_t field) {
    const std::string name(trimBlanks(document.Fields(field).Description));
    return name.empty() ? "page " + numberText(field) : name;
}

std::string cellName(const Declara_Zorvane& document, std::int32_t field, std::int32_t row,
                     std::int32_t column) {
    const Cell_Table& cells = document.Fields(field).Cells;
    const std::string name(column > 1 && !cells(0, 1).Modifiable ? trimBlanks(cells(row, 1).Value) : "");
    return pageName(document, field) + ", " + (name.empty() ? "row " + numberText(row) : name);
}

std::string registersText(const std::set<std::int32_t>& registers) {
    std::string text;
    int ranges = 0;
    for (auto at = registers.begin(); at != registers.end();) {
        if (ranges++ == mostRanges)
            return text + " and " +
                   numberText(static_cast<std::int32_t>(std::distance(at, registers.end()))) + " more";
        const std::int32_t first = *at;
        std::int32_t last = first;
        while (++at != registers.end() && *at == last + 1)
            last = *at;
        text += (text.empty() ? "" : ", ") + rangeText(first, last);
    }
    return text;
}

} // namespace zorvane
