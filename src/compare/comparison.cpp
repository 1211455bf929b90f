// SPDX-License-Identifier: MIT
#include "compare/comparison.h"

#include "cells/cell_names.h"
#include "cells/cell_reading.h"
#include "comm/transfer/requests/download_request.h"
#include "values/code_page.h"
#include "values/run_time_failure.h"

#include <numeric>

namespace zorvane::compare {

namespace {

bool anyOf(const std::vector<Register_Range>& ranges, const Register_Range& wanted) {
    for (const Register_Range& range : ranges)
        if (range.first <= wanted.last && wanted.first <= range.last) return true;
    return false;
}

std::string addressOf(const Cell_Rec& definition, const Cell_Rec& cell) {
    const std::string first(trimBlanks(cell.Address));
    return holdsCharacters(definition, cell) ? first + "-" + std::string(trimBlanks(cell.Address_End))
                                             : first;
}

/// Of a file's cell: a code that no list has shows nothing, and is a value all the same.
bool saysNothing(const Cell_Side& side) {
    return trimBlanks(side.shown).empty() && trimBlanks(side.text).empty();
}

/// Whether both sides stand for the same, as far as registers can tell it, else as texts.
bool same(const Cell_Rec& definition, const Cell_Rec& cell, const Row& row) {
    if (row.left.held && row.right.held) return sameHeld(definition, cell, *row.left.held, *row.right.held);
    return !row.left.held && !row.right.held && row.left.shown == row.right.shown;
}

class Comparer {
  public:
    explicit Comparer(const Compared& compared) : compared_(compared) {}

    [[nodiscard]] Comparison run() {
        const Declara_Zorvane& shape = compared_.shape;
        for (std::int32_t field = 1; field <= shape.Field_Count; ++field) {
            const Cell_Table& cells = shape.Fields(field).Cells;
            for (std::int32_t row = 1; cells.dimensioned() && row <= cells.rows(); ++row)
                for (std::int32_t column = 1; column <= cells.lastWrittenColumn(row); ++column)
                    add(cell({field, row, column}));
        }
        return std::move(comparison_);
    }

    [[nodiscard]] std::optional<Row> cell(const Cell_Place& place) const {
        const Cell_Table& cells = compared_.shape.Fields(place.field).Cells;
        const Cell_Rec& definition = cells(0, place.column);
        const Cell_Rec& cell = cells(place.row, place.column);
        Row row;
        row.registers = registersOf(definition, cell);
        const bool controller = compared_.left.isController() || compared_.right.isController();
        if (controller && !row.registers) return std::nullopt;
        row.left = compared_.left.at(place);
        row.right = compared_.right.at(place);
        if (!controller && saysNothing(row.left) && saysNothing(row.right)) return std::nullopt;
        row.place = place;
        row.page = pageName(compared_.shape, place.field);
        row.name = rowName(compared_.shape, place.field, place.row, place.column);
        row.heading = definition.Value;
        if (row.registers) row.address = addressOf(definition, cell);
        row.sign = signOf(definition, cell, row);
        return row;
    }

  private:
    void add(std::optional<Row> row) {
        if (!row) return;
        comparison_.counts.add(row->sign);
        comparison_.rows.push_back(std::move(*row));
    }

    [[nodiscard]] Sign signOf(const Cell_Rec& definition, const Cell_Rec& cell, const Row& row) const {
        if (isLeftOut(row)) return Sign::Left_Out;
        if (!row.left.read || !row.right.read) return Sign::Not_Read;
        if (row.left.value != row.right.value) return Sign::One_Side;
        if (same(definition, cell, row)) return Sign::Equal;
        if (row.left.changing || row.right.changing) return Sign::Changing;
        const bool kept = !definition.Modifiable || isNotDownloadable(compared_.shape, cell.Address);
        return kept ? Sign::Read_Only : Sign::Differs;
    }

    [[nodiscard]] bool isLeftOut(const Row& row) const {
        return compared_.leftOut.contains(row.place) ||
               (row.registers && anyOf(compared_.identity.leaveOut, *row.registers));
    }

    const Compared& compared_;
    Comparison comparison_;
};

} // namespace

std::string_view signWord(Sign sign) noexcept {
    constexpr std::array<std::string_view, allSigns.size()> words = {
        "left_out", "not_read", "one_side", "equal", "changing", "read_only", "differs"};
    return words[static_cast<std::size_t>(sign)];
}

std::string_view signMark(Sign sign) noexcept {
    constexpr std::array<std::string_view, allSigns.size()> marks = {"x", "?", "!",           "=",
                                                                     "~", "R", "\xE2\x89\xA0"};
    return marks[static_cast<std::size_t>(sign)];
}

std::size_t Counts::rows() const { return std::accumulate(counts_.begin(), counts_.end(), std::size_t{0}); }

Cell_Side Document_Side::at(const Cell_Place& place) const {
    const Cell_Table& cells = document_.Fields(place.field).Cells;
    const Cell_Rec& definition = cells(0, place.column);
    const Cell_Rec& cell = cells(place.row, place.column);
    Cell_Side side;
    side.value = !isBlankValue(definition, cell);
    if (!side.value) return side;
    side.shown = shownText(cell);
    side.text = cell.Value;
    side.held = heldOf(definition, cell);
    return side;
}

Controller_Side::Controller_Side(const Declara_Zorvane& shape, const Identity_Section& identity,
                                 const Controller_Registers& registers, const Controller_Registers* earlier)
    : shape_(shape), identity_(identity), registers_(registers), link_(registers.values()),
      earlier_(earlier) {
    if (earlier_ != nullptr) earlierLink_.emplace(earlier_->values());
}

Cell_Side Controller_Side::at(const Cell_Place& place) const {
    const Cell_Table& cells = shape_.Fields(place.field).Cells;
    const Cell_Rec& definition = cells(0, place.column);
    const Cell_Rec& cell = cells(place.row, place.column);
    Cell_Side side;
    const auto range = registersOf(definition, cell);
    if (!range) return side;
    side.read = registers_.holds(*range) && !anyOf(identity_.writeOnly, *range);
    if (!side.read) return side;
    const Register_Image image(link_, 0);
    side.value = true;
    (void)ignoringFailure([&] {
        const auto reading = readCell(definition, cell, image);
        if (!reading) return;
        side.shown = reading->shown();
        side.text = reading->value;
    });
    side.held = heldIn(definition, cell, image);
    side.changing = earlierLink_ && earlier_->holds(*range) &&
                    heldIn(definition, cell, Register_Image(*earlierLink_, 0)) != side.held;
    return side;
}

Comparison comparisonOf(const Compared& compared) { return Comparer(compared).run(); }

std::optional<Row> comparedCell(const Compared& compared, const Cell_Place& place) {
    return Comparer(compared).cell(place);
}

} // namespace zorvane::compare
