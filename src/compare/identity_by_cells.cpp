// SPDX-License-Identifier: MIT
// Who is at the other end, for templates that don't say by what their controller is told.

#include "cells/cell_names.h"
#include "cells/cell_reading.h"
#include "comm/modbus_control/dry_run_link.h"
#include "compare/identity.h"
#include "template/sections/messages.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

#include <cstddef>
#include <utility>

namespace zorvane::compare {

namespace {

constexpr std::size_t manyFindings = 3;
constexpr std::size_t partOfCells = 5; ///< a fifth of them

/// What is odd about a cell's register: what it should hold, and what it does.
struct Oddity {
    std::string expected;
    std::string found;
};

std::optional<double> limitOf(const std::string& text) {
    if (trimBlanks(text).empty()) return std::nullopt;
    return Val(text);
}

Cell_Format formatOf(const Cell_Rec& cell) { return cellFormat(cell.Format, paths::transfer.words); }

std::string limitText(const Cell_Rec& cell, double limit) {
    return formatOf(cell) == Cell_Format::Time ? timeText(toLong(limit)) : numberText(limit);
}

std::string limitsText(const Cell_Rec& cell, std::optional<double> low, std::optional<double> high) {
    if (low && high) return limitText(cell, *low) + " to " + limitText(cell, *high);
    return low ? "at least " + limitText(cell, *low) : "at most " + limitText(cell, *high);
}

/// The register's value as the cell's limits mean it.
double limitedValue(const Cell_Rec& cell, const std::string& value) {
    return formatOf(cell) == Cell_Format::Time ? timeSeconds(value) : Val(value);
}

std::optional<Oddity> oddityOf(const Cell_Rec& definition, const Cell_Rec& cell,
                               const Register_Image& image) {
    if (cell.Is_Ascii_Range && !negativeBits(definition)) return std::nullopt;
    const auto reading = readCell(definition, cell, image);
    if (!reading) return std::nullopt;
    if (reading->message) {
        if (isListed(cell, longValue(reading->value))) return std::nullopt;
        return Oddity{"a code of the list", reading->value};
    }
    const bool time = formatOf(cell) == Cell_Format::Time || isTimePart(formatOf(cell));
    if (time && !negativeBits(definition) && image.signedAt(longValue(cell.Address)) < 0)
        return Oddity{"a time", reading->value};
    const auto low = limitOf(cell.Min_Value);
    const auto high = limitOf(cell.Max_Value);
    const double value = limitedValue(cell, reading->value);
    if (value >= low.value_or(value) && value <= high.value_or(value)) return std::nullopt;
    return Oddity{limitsText(cell, low, high), reading->value};
}

Evidence against(std::string registers, std::string what, Oddity oddity) {
    Evidence evidence;
    evidence.registers = std::move(registers);
    evidence.what = std::move(what);
    evidence.expected = std::move(oddity.expected);
    evidence.found = std::move(oddity.found);
    evidence.result = Fit::Doesnt_Fit;
    return evidence;
}

void addRefusedBlocks(const Declara_Zorvane& document, const Controller_Registers& registers,
                      std::vector<Evidence>& evidence) {
    for (std::int32_t i = 1; i <= document.Holding_Block_Count; ++i) {
        const Holding_Block_Rec& block = document.Holding_Blocks(i);
        if (block.Function_Code == 0) continue;
        const auto why = registers.unreadAt(block.First_Address);
        if (!why || why->exception != illegalAddress) continue;
        evidence.push_back(against(numberText(block.First_Address) + "-" + numberText(block.Last_Address),
                                   "block " + numberText(i), {std::string(readableRegisters), why->text()}));
    }
}

/// The cells of columns that aren't polled, judged one by one.
class Unpolled_Cells {
  public:
    Unpolled_Cells(const Declara_Zorvane& document, const Controller_Registers& registers)
        : document_(document), registers_(registers), link_(registers.values()) {}

    void judge(std::vector<Evidence>& evidence) {
        for (std::int32_t f = 1; f <= document_.Field_Count; ++f) {
            const Cell_Table& cells = document_.Fields(f).Cells;
            for (std::int32_t row = 1; cells.dimensioned() && row <= cells.rows(); ++row)
                for (std::int32_t column = 1; column <= cells.lastWrittenColumn(row); ++column)
                    judgeCell({f, row, column}, evidence);
        }
    }
    [[nodiscard]] std::size_t count() const noexcept { return count_; }

  private:
    void judgeCell(const Cell_Place& place, std::vector<Evidence>& evidence) {
        const Cell_Table& cells = document_.Fields(place.field).Cells;
        const Cell_Rec& definition = cells(0, place.column);
        const Cell_Rec& cell = cells(place.row, place.column);
        const auto range = cellRegisters(definition, cell);
        if (!range || definition.Modbus_Request == "ALWAYS") return;
        ++count_;
        if (!registers_.holds(*range)) return;
        if (auto oddity = oddityOf(definition, cell, Register_Image(link_, 1)))
            evidence.push_back(against(
                cell.Address, cellName(document_, place.field, place.row, place.column), std::move(*oddity)));
    }

    const Declara_Zorvane& document_;
    const Controller_Registers& registers_;
    Dry_Run_Link link_;
    std::size_t count_ = 0;
};

} // namespace

Identity identityByCells(const Declara_Zorvane& document, std::int32_t unit,
                         const Controller_Registers& registers) {
    Identity identity;
    identity.model = document.Controller_Model;
    identity.unit = unit;
    addRefusedBlocks(document, registers, identity.evidence);
    Unpolled_Cells cells(document, registers);
    cells.judge(identity.evidence);
    const std::size_t findings = identity.evidence.size();
    if (findings >= manyFindings || (findings > 0 && findings * partOfCells >= cells.count()))
        identity.verdict = Verdict::Isnt;
    return identity;
}

Identity identityOf(const Declara_Zorvane& document, const Identity_Section& section, std::int32_t unit,
                    const Identity_Readings& readings) {
    Identity identity = identityByMarks(section, document.Controller_Model, unit, readings);
    if (identity.verdict != Verdict::Cant_Tell) return identity;
    const Identity cells = identityByCells(document, unit, readings.registers);
    identity.verdict = cells.verdict;
    identity.evidence.insert(identity.evidence.end(), cells.evidence.begin(), cells.evidence.end());
    return identity;
}

} // namespace zorvane::compare
