// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/cell_rec.h"
#include "template/model/register_index.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace zorvane {

/// A field's table, rows 0 to Rows by columns 0 to Columns; row 0 holds the column definitions and column 0
/// stays empty. Cells take memory in small groups once one of them is written to, so that a table of the
/// largest size costs little. References to cells stay good until the next `redim`. A bad index, or any index
/// before the first `redim`, is failure 9.
class Cell_Table {
  public:
    void redim(std::int32_t rows, std::int32_t columns);

    [[nodiscard]] Cell_Rec& operator()(std::int32_t row, std::int32_t column);
    [[nodiscard]] const Cell_Rec& operator()(std::int32_t row, std::int32_t column) const {
        require(row, column);
        const Row& cells = table_[static_cast<std::size_t>(row)];
        const std::size_t group = groupOf(column);
        return group < cells.groups.size() && cells.groups[group] ? cells.groups[group][placeOf(column)]
                                                                  : untouched();
    }

    [[nodiscard]] bool dimensioned() const noexcept { return rows_ >= 0; }

    /// Upper bounds of rows and columns.
    [[nodiscard]] std::int32_t rows() const;
    [[nodiscard]] std::int32_t columns() const;

    /// The columns of a row beyond this one have never been written. REQUIRES: row lies in the table.
    [[nodiscard]] std::int32_t lastWrittenColumn(std::int32_t row) const;

    /// The cells whose address is that register, whole or half, row by row. They come from an index that is
    /// built again after any access to a cell that may have changed it, so ask for many registers in a row.
    /// The span is good until the next access to a cell; the cells may be changed through it, but not their
    /// addresses.
    [[nodiscard]] std::span<const Register_Cell> cellsAtRegister(std::int32_t number);

  private:
    /// The cells of a row in groups of one size, the groups without a written cell missing.
    struct Row {
        std::vector<std::unique_ptr<Cell_Rec[]>> groups;
        std::int32_t lastWritten = -1;
    };

    /// Rows are mostly narrower than this: then a row is one group.
    static constexpr std::uint32_t largestGroup = 32;

    void require(std::int32_t row, std::int32_t column) const {
        if (row < 0 || row > rows_ || column < 0 || column > columns_)
            throw Run_Time_Failure(Failure::Subscript);
    }
    [[nodiscard]] static std::size_t groupOf(std::int32_t column) noexcept {
        return static_cast<std::uint32_t>(column) / largestGroup;
    }
    [[nodiscard]] static std::size_t placeOf(std::int32_t column) noexcept {
        return static_cast<std::uint32_t>(column) % largestGroup;
    }
    [[nodiscard]] static const Cell_Rec& untouched() noexcept;
    void buildIndex();
    void dropIndex();

    std::vector<Row> table_;
    std::int32_t rows_ = -1;
    std::int32_t columns_ = -1;
    std::int32_t groupSize_ = 1;
    Register_Index index_;
    bool indexed_ = false; ///< the index tells the addresses as they are
};

} // namespace zorvane
