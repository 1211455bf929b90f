#pragma once

#include "template/model/cell_rec.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace zorvane {

/// A field's table, rows 0 to Rows by columns 0 to Columns; row 0 holds the column definitions and column 0
/// stays empty. A cell takes memory only once something was written to it, so that a table of the largest
/// size costs little. References to cells stay good until the next `redim`. A bad index, or any index before
/// the first `redim`, is failure 9.
class Cell_Table {
  public:
    void redim(std::int32_t rows, std::int32_t columns);

    [[nodiscard]] Cell_Rec& operator()(std::int32_t row, std::int32_t column);
    [[nodiscard]] const Cell_Rec& operator()(std::int32_t row, std::int32_t column) const;

    [[nodiscard]] bool dimensioned() const noexcept { return rows_ >= 0; }

    /// Upper bounds of rows and columns.
    [[nodiscard]] std::int32_t rows() const;
    [[nodiscard]] std::int32_t columns() const;

    /// The columns of a row beyond this one have never been written. REQUIRES: row lies in the table.
    [[nodiscard]] std::int32_t lastWrittenColumn(std::int32_t row) const;

  private:
    using Row = std::vector<std::unique_ptr<Cell_Rec>>;

    void require(std::int32_t row, std::int32_t column) const;

    std::vector<Row> table_;
    std::int32_t rows_ = -1;
    std::int32_t columns_ = -1;
};

} // namespace zorvane
