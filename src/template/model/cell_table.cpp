// SPDX-License-Identifier: MIT
#include "template/model/cell_table.h"

#include <algorithm>
#include <utility>

namespace zorvane {

void Cell_Table::redim(std::int32_t rows, std::int32_t columns) {
    if (rows < 0 || columns < 0) throw Run_Time_Failure(Failure::Subscript);
    table_ = std::vector<Row>(static_cast<std::size_t>(rows) + 1); // all or nothing, as the bounds are
    rows_ = rows;
    columns_ = columns;
    groupSize_ = std::min(columns + 1, static_cast<std::int32_t>(largestGroup));
    dropIndex();
}

Cell_Rec& Cell_Table::operator()(std::int32_t row, std::int32_t column) {
    require(row, column);
    if (indexed_) dropIndex();
    Row& cells = table_[static_cast<std::size_t>(row)];
    const std::size_t group = groupOf(column);
    if (cells.groups.size() <= group) cells.groups.resize(group + 1);
    if (!cells.groups[group])
        cells.groups[group] = std::make_unique<Cell_Rec[]>(static_cast<std::size_t>(groupSize_));
    cells.lastWritten = std::max(cells.lastWritten, column);
    return cells.groups[group][placeOf(column)];
}

const Cell_Rec& Cell_Table::untouched() noexcept {
    static const Cell_Rec cell;
    return cell;
}

std::int32_t Cell_Table::rows() const {
    if (!dimensioned()) throw Run_Time_Failure(Failure::Subscript);
    return rows_;
}

std::int32_t Cell_Table::columns() const {
    if (!dimensioned()) throw Run_Time_Failure(Failure::Subscript);
    return columns_;
}

std::int32_t Cell_Table::lastWrittenColumn(std::int32_t row) const {
    require(row, 0);
    return table_[static_cast<std::size_t>(row)].lastWritten;
}

void Cell_Table::dropIndex() {
    index_ = {};
    indexed_ = false;
}

void Cell_Table::buildIndex() {
    std::vector<Register_Cell> found;
    for (std::int32_t row = 0; row <= rows_; ++row)
        for (const auto& group : table_[static_cast<std::size_t>(row)].groups)
            for (std::int32_t place = 0; group && place < groupSize_; ++place) {
                Cell_Rec& cell = group[static_cast<std::size_t>(place)];
                if (cell.Address.empty()) continue;
                if (const auto number = registerOfAddress(cell.Address))
                    found.push_back({*number, row, &cell});
            }
    index_.assign(std::move(found));
    indexed_ = true;
}

std::span<const Register_Cell> Cell_Table::cellsAtRegister(std::int32_t number) {
    if (!dimensioned()) throw Run_Time_Failure(Failure::Subscript);
    if (!indexed_) buildIndex();
    return index_.cellsAt(number);
}

} // namespace zorvane
