#include "template/model/cell_table.h"

#include <algorithm>
#include <utility>

namespace zorvane {

namespace {

/// Rows are mostly narrower than this: then a row is one group.
constexpr std::int32_t largestGroup = 32;

} // namespace

void Cell_Table::redim(std::int32_t rows, std::int32_t columns) {
    if (rows < 0 || columns < 0) throw Run_Time_Failure(Failure::Subscript);
    table_.clear();
    table_.resize(static_cast<std::size_t>(rows) + 1);
    rows_ = rows;
    columns_ = columns;
    groupSize_ = std::min(columns + 1, largestGroup);
    indexed_ = false;
}

void Cell_Table::require(std::int32_t row, std::int32_t column) const {
    if (row < 0 || row > rows_ || column < 0 || column > columns_) throw Run_Time_Failure(Failure::Subscript);
}

std::size_t Cell_Table::groupOf(std::int32_t column) const noexcept {
    return static_cast<std::size_t>(column / groupSize_);
}

std::size_t Cell_Table::placeOf(std::int32_t column) const noexcept {
    return static_cast<std::size_t>(column % groupSize_);
}

Cell_Rec& Cell_Table::operator()(std::int32_t row, std::int32_t column) {
    require(row, column);
    indexed_ = false;
    Row& cells = table_[static_cast<std::size_t>(row)];
    const std::size_t group = groupOf(column);
    if (cells.groups.size() <= group) cells.groups.resize(group + 1);
    if (!cells.groups[group])
        cells.groups[group] = std::make_unique<Cell_Rec[]>(static_cast<std::size_t>(groupSize_));
    cells.lastWritten = std::max(cells.lastWritten, column);
    return cells.groups[group][placeOf(column)];
}

const Cell_Rec& Cell_Table::operator()(std::int32_t row, std::int32_t column) const {
    static const Cell_Rec untouched;
    require(row, column);
    const Row& cells = table_[static_cast<std::size_t>(row)];
    const std::size_t group = groupOf(column);
    return group < cells.groups.size() && cells.groups[group] ? cells.groups[group][placeOf(column)]
                                                              : untouched;
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
