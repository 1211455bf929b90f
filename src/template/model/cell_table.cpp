#include "template/model/cell_table.h"

namespace zorvane {

void Cell_Table::redim(std::int32_t rows, std::int32_t columns) {
    if (rows < 0 || columns < 0) throw Run_Time_Failure(Failure::Subscript);
    table_.clear();
    table_.resize(static_cast<std::size_t>(rows) + 1);
    rows_ = rows;
    columns_ = columns;
}

void Cell_Table::require(std::int32_t row, std::int32_t column) const {
    if (row < 0 || row > rows_ || column < 0 || column > columns_) throw Run_Time_Failure(Failure::Subscript);
}

Cell_Rec& Cell_Table::operator()(std::int32_t row, std::int32_t column) {
    require(row, column);
    Row& cells = table_[static_cast<std::size_t>(row)];
    const auto place = static_cast<std::size_t>(column);
    if (cells.size() <= place) cells.resize(place + 1);
    if (!cells[place]) cells[place] = std::make_unique<Cell_Rec>();
    return *cells[place];
}

const Cell_Rec& Cell_Table::operator()(std::int32_t row, std::int32_t column) const {
    static const Cell_Rec untouched;
    require(row, column);
    const Row& cells = table_[static_cast<std::size_t>(row)];
    const auto place = static_cast<std::size_t>(column);
    return place < cells.size() && cells[place] ? *cells[place] : untouched;
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
    return static_cast<std::int32_t>(table_[static_cast<std::size_t>(row)].size()) - 1;
}

} // namespace zorvane
