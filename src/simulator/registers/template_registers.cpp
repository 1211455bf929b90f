// SPDX-License-Identifier: MIT
#include "simulator/registers/template_registers.h"

#include "simulator/registers/cell_registers.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

#include <algorithm>
#include <set>
#include <vector>

namespace zorvane::simulator {

namespace {

class Map_Builder {
  public:
    Map_Builder(const Declara_Zorvane& document, std::int32_t addressBase) : document_(document) {
        map_.addressBase = addressBase;
    }

    void addBlocks();
    void addCells();

    /// The registers gathered so far; the builder has none afterwards.
    [[nodiscard]] Register_Map take() { return std::move(map_); }
    /// Registers without an address on the wire: the first of each cell that has any.
    [[nodiscard]] const std::set<std::int32_t>& unreachable() const { return unreachable_; }

  private:
    void addBlock(std::int64_t first, std::int64_t last);
    void addField(const Field_Rec& field);
    void addCell(const Cell_Rec& cell, const Cell_Rec& definition);
    void addLive(const Cell_Rec& cell, const Cell_Rec& definition, std::int32_t number);

    const Declara_Zorvane& document_;
    Register_Map map_;
    std::set<std::int32_t> unreachable_;
    std::vector<Register_Span> always_;
    std::set<std::int32_t> still_; ///< a setting, or shared with a half or a text
};

void Map_Builder::addBlocks() {
    const auto& scanned = document_.Holding_Blocks;
    for (std::int32_t i = 1; scanned.dimensioned() && i <= scanned.upperBound(); ++i) {
        const Holding_Block_Rec& block = scanned(i);
        if (block.Function_Code == 0) continue;
        addBlock(block.First_Address, block.Last_Address);
        if (block.Request == "ALWAYS") always_.push_back({block.First_Address, block.Last_Address});
    }
    const auto& written = document_.Download_Blocks;
    for (std::int32_t i = 0; written.dimensioned() && i < written.upperBound(); ++i) {
        const Download_Block_Rec& block = written(i);
        (void)ignoringFailure(
            [&] { addBlock(strictLong(block.First_Address), strictLong(block.Last_Address)); });
    }
}

void Map_Builder::addBlock(std::int64_t first, std::int64_t last) {
    const std::int64_t lowest = map_.addressBase;
    for (std::int64_t number = std::max(first, lowest); number <= std::min(last, lowest + 0xFFFF); ++number)
        map_.values.try_emplace(static_cast<std::int32_t>(number), std::uint16_t{0});
}

void Map_Builder::addCells() {
    for (std::int32_t i = 1; document_.Fields.dimensioned() && i <= document_.Fields.upperBound(); ++i)
        if (document_.Fields(i).Cells.dimensioned()) addField(document_.Fields(i));
}

void Map_Builder::addField(const Field_Rec& field) {
    const Cell_Table& cells = field.Cells;
    for (std::int32_t row = 1; row <= cells.rows(); ++row)
        for (std::int32_t column = 1; column <= cells.lastWrittenColumn(row); ++column)
            addCell(cells(row, column), cells(0, column));
}

void Map_Builder::addCell(const Cell_Rec& cell, const Cell_Rec& definition) {
    const auto span = registersOf(cell);
    if (!span) return;
    for (std::int64_t number = span->first; number <= span->last; ++number) {
        const auto known = static_cast<std::int32_t>(number);
        if (!map_.onWire(number)) {
            unreachable_.insert(known);
            break;
        }
        std::uint16_t& value = map_.values[known];
        // A cell without a value leaves what another cell of the same register said.
        if (!cell.Value.empty())
            value = encodedRegister(cell, definition.Bits_Negative_Format, known - span->first, value);
        addLive(cell, definition, known);
    }
}

/// What the user may edit is a setting and keeps still, though its block is scanned with the readings.
void Map_Builder::addLive(const Cell_Rec& cell, const Cell_Rec& definition, std::int32_t number) {
    const bool always = std::any_of(always_.begin(), always_.end(), [number](const Register_Span& block) {
        return number >= block.first && number <= block.last;
    });
    if (!always || still_.contains(number)) return;
    const auto range =
        definition.Modifiable ? std::nullopt : liveRangeOf(cell, definition.Bits_Negative_Format);
    if (range) {
        map_.live.try_emplace(number, *range);
    } else {
        still_.insert(number);
        map_.live.erase(number);
    }
}

} // namespace

Register_Map registerMapOf(const Declara_Zorvane& document, std::int32_t addressBase,
                           const std::function<void(const std::string&)>& warn) {
    Map_Builder builder(document, addressBase);
    builder.addBlocks();
    builder.addCells();
    for (const std::int32_t number : builder.unreachable())
        warn("register " + numberText(number) +
             " has no address from 0 to 65535 on the wire and is left out");
    return builder.take();
}

} // namespace zorvane::simulator
