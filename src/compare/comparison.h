// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/dry_run_link.h"
#include "compare/controller_registers.h"
#include "compare/held_value.h"
#include "template/identity_section.h"
#include "template/model/declara_zorvane.h"

#include <array>
#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::compare {

/// What a row of a comparison came to: the first of these that fits.
enum class Sign {
    Left_Out, ///< the template's LEAVEOUT, or the user
    Not_Read, ///< a block was refused or not answered
    One_Side, ///< only one side has a value
    Equal,
    Changing,  ///< differs, and differed between two readings
    Read_Only, ///< differs, but the column can't be edited or downloads keep away from the register
    Differs,
};

inline constexpr std::array allSigns = {Sign::Left_Out, Sign::Not_Read,  Sign::One_Side, Sign::Equal,
                                        Sign::Changing, Sign::Read_Only, Sign::Differs};

/// "left_out", "not_read", "one_side", "equal", "changing", "read_only" or "differs".
[[nodiscard]] std::string_view signWord(Sign sign) noexcept;
/// "x", "?", "!", "=", "~", "R" or the sign of inequality; UTF-8.
[[nodiscard]] std::string_view signMark(Sign sign) noexcept;

/// What one side has for a cell.
struct Cell_Side {
    bool read = true;           ///< false: a register of it has no value that was read
    bool value = false;         ///< it has a value
    std::string shown{};        ///< as the grids show it; empty without a value
    std::string text{};         ///< as a document keeps it; of a list the code
    std::optional<Held> held{}; ///< nothing without a register, and for a text that doesn't fit there
    bool changing = false;      ///< differed between two readings
};

/// One cell, on both sides.
struct Row {
    Cell_Place place;
    std::string page;
    std::string name;    ///< of the table's row
    std::string heading; ///< of its column
    std::string address; ///< as the template writes it, a text's as "first-last"; empty without a register
    std::optional<Register_Range> registers;
    Cell_Side left;
    Cell_Side right;
    Sign sign = Sign::Equal;
};

/// How many rows have each sign.
class Counts {
  public:
    void add(Sign sign) { ++counts_[static_cast<std::size_t>(sign)]; }
    [[nodiscard]] std::size_t of(Sign sign) const { return counts_[static_cast<std::size_t>(sign)]; }
    [[nodiscard]] std::size_t rows() const;

  private:
    std::array<std::size_t, allSigns.size()> counts_{};
};

/// One side of a comparison: documents and controllers alike.
class Side {
  public:
    virtual ~Side() = default;
    [[nodiscard]] virtual Cell_Side at(const Cell_Place& place) const = 0;
    /// A controller's registers: only cells with a register are rows.
    [[nodiscard]] virtual bool isController() const = 0;
};

/// The values of a document: the one at work, another file of its template, the factory values.
class Document_Side : public Side {
  public:
    /// The document must outlive it.
    explicit Document_Side(const Declara_Zorvane& document) : document_(document) {}
    [[nodiscard]] Cell_Side at(const Cell_Place& place) const override;
    [[nodiscard]] bool isController() const override { return false; }

  private:
    const Declara_Zorvane& document_;
};

/// The values of registers, seen through the cells of a template.
class Controller_Side : public Side {
  public:
    /// `earlier` is an older reading of the same registers: what it has otherwise is changing. All must
    /// outlive the side.
    Controller_Side(const Declara_Zorvane& shape, const Identity_Section& identity,
                    const Controller_Registers& registers, const Controller_Registers* earlier = nullptr);
    [[nodiscard]] Cell_Side at(const Cell_Place& place) const override;
    [[nodiscard]] bool isController() const override { return true; }

  private:
    const Declara_Zorvane& shape_;
    const Identity_Section& identity_;
    const Controller_Registers& registers_;
    Dry_Run_Link link_;
    const Controller_Registers* earlier_;
    std::optional<Dry_Run_Link> earlierLink_;
};

/// What is compared, and what of it isn't.
struct Compared {
    const Declara_Zorvane& shape; ///< the template's cells; any document of it
    const Identity_Section& identity;
    const Side& left;
    const Side& right;
    std::set<Cell_Place> leftOut{}; ///< by the user
};

/// The rows of a comparison in the order of fields, rows and columns, and how many have which sign.
struct Comparison {
    std::vector<Row> rows;
    Counts counts;
};

[[nodiscard]] Comparison comparisonOf(const Compared& compared);

/// The row of one cell; nothing where it is none. REQUIRES: the template has the cell.
[[nodiscard]] std::optional<Row> comparedCell(const Compared& compared, const Cell_Place& place);

} // namespace zorvane::compare
