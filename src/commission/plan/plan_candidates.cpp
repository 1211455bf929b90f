// SPDX-License-Identifier: MIT
#include "commission/plan/plan_candidates.h"

#include "comm/transfer/requests/download_request.h"
#include "commission/plan/cell_registers.h"
#include "commission/plan/line_change.h"
#include "values/numbers.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <utility>

namespace zorvane::commission {

namespace {

constexpr double mostByte = 255;
constexpr double mostSeconds = 59;
constexpr double mostMinutes = 545; ///< with 59 seconds more they don't read as a time below 0
constexpr std::uint16_t highestTime = 0x7FFF;

/// Texts are longer than this in no template's range of registers.
constexpr std::int32_t longestText = 256;

/// Why a number can't stand in its part of a register; empty when it can.
std::string misfit(Part part, double value) {
    switch (part) {
    case Part::High:
    case Part::Low:
        return value < 0 || value > mostByte ? "half a register holds 0 to 255" : "";
    case Part::Seconds:
        return value < 0 || value > mostSeconds ? "seconds go from 0 to 59" : "";
    case Part::Minutes:
        return value < 0 || value > mostMinutes ? "minutes go from 0 to 545" : "";
    case Part::Kept:
    case Part::Whole:
        break;
    }
    return "";
}

class Chooser {
  public:
    explicit Chooser(const Plan_Sources& sources) : sources_(sources), document_(sources.document) {}

    Candidates run() {
        compareSides();
        for (const compare::Row& row : found_.comparison.rows)
            choose(row);
        dropOverwritten();
        dropHalfTimes();
        return std::move(found_);
    }

  private:
    [[nodiscard]] const Cell_Rec& cellAt(const Cell_Place& place) const {
        return document_.Fields(place.field).Cells(place.row, place.column);
    }
    [[nodiscard]] bool isModifiable(const Cell_Place& place) const {
        return document_.Fields(place.field).Cells(0, place.column).Modifiable;
    }

    void compareSides() {
        const compare::Document_Side left(document_);
        const compare::Controller_Side right(document_, sources_.section, sources_.registers,
                                             sources_.earlier);
        found_.comparison = compare::comparisonOf({document_, sources_.section, left, right, {}});
        compare::Counts counts;
        for (compare::Row& row : found_.comparison.rows) {
            if (!sources_.chosen.holds(row.place)) row.sign = compare::Sign::Left_Out;
            keepLineRegister(row);
            counts.add(row.sign);
        }
        found_.comparison.counts = counts;
    }

    /// What changes the line is kept back unless it is named; named, it goes out though downloads keep it
    /// back.
    void keepLineRegister(compare::Row& row) const {
        using compare::Sign;
        if (!row.registers || stageOf(sources_.section, *row.registers) != Stage::Link) return;
        const bool differs = row.sign == Sign::Differs || row.sign == Sign::Read_Only;
        if (!differs || !isModifiable(row.place)) return;
        row.sign = sources_.chosen.names(row.place) ? Sign::Differs : Sign::Read_Only;
    }

    void choose(const compare::Row& row) {
        using compare::Sign;
        if (!row.registers || row.sign == Sign::Left_Out || !isModifiable(row.place)) return;
        const Cell_Rec& cell = cellAt(row.place);
        const bool line = stageOf(sources_.section, *row.registers) == Stage::Link;
        const bool named = sources_.chosen.names(row.place);
        if (line ? !named : isNotDownloadable(document_, cell.Address)) return;
        if (!row.left.value && !named) return;
        const bool writeOnly = meetsAny(sources_.section.writeOnly, *row.registers);
        if (row.sign == Sign::Not_Read && !(writeOnly && restIsRead(*row.registers)))
            return needRead(*row.registers);
        if (row.sign == Sign::Equal && !writeOnly) return equal_.push_back(candidateFor(row));
        if (row.sign == Sign::Changing || row.sign == Sign::Read_Only) return;
        Candidate candidate = candidateFor(row);
        const auto stray = sources_.stray.find(row.place);
        std::string why = misfit(candidate.part, Val(cell.Value));
        if (why.empty() && line) why = unitMisfit(document_, sources_.section, row.place);
        if (!why.empty())
            refuse(candidate, std::move(why));
        else if (stray != sources_.stray.end() && !named)
            refuse(candidate, stray->second);
        found_.cells.push_back(std::move(candidate));
    }

    [[nodiscard]] Candidate candidateFor(const compare::Row& row) const {
        const Cell_Registers registers = registersOf(document_, row.place);
        return {row.place,
                registers.address,
                registers.range,
                registers.part,
                stageOf(sources_.section, registers.range),
                true,
                {}};
    }

    static void refuse(Candidate& candidate, std::string why) {
        candidate.sent = false;
        candidate.why = std::move(why);
    }

    [[nodiscard]] bool isUnread(std::int32_t number) const {
        return !sources_.registers.valueAt(number) && !meetsAny(sources_.section.writeOnly, {number, number});
    }

    /// Whether nothing of a cell but what can only be written has no value.
    [[nodiscard]] bool restIsRead(const Register_Range& range) const {
        for (std::int32_t number = range.first; number <= range.last; ++number)
            if (isUnread(number)) return false;
        return true;
    }

    void needRead(const Register_Range& range) {
        for (std::int32_t number = range.first; number <= range.last; ++number)
            if (isUnread(number)) found_.unread.insert(number);
    }

    /// Where two cells share a register, a download leaves the value of the one that it sends last.
    void dropOverwritten() {
        std::vector<Candidate> all = equal_;
        std::copy_if(found_.cells.begin(), found_.cells.end(), std::back_inserter(all),
                     [](const Candidate& each) { return each.sent; });
        std::sort(all.begin(), all.end(), [](const Candidate& a, const Candidate& b) {
            return a.registers.first < b.registers.first;
        });
        for (Candidate& candidate : found_.cells) {
            const auto from = std::lower_bound(
                all.begin(), all.end(), candidate.registers.first - longestText,
                [](const Candidate& each, std::int32_t first) { return each.registers.first < first; });
            for (auto at = from; at != all.end() && at->registers.first <= candidate.registers.last; ++at)
                if (overwrites(*at, candidate))
                    refuse(candidate, "another cell of the document has another value for its register");
        }
    }

    /// Minutes beside seconds below 0, or the other way round, would read back as others: a register that
    /// holds such a time takes both or none.
    void dropHalfTimes() {
        std::map<std::int32_t, std::set<Part>> parts;
        for (const Candidate& candidate : found_.cells)
            if (candidate.sent) parts[candidate.registers.first].insert(candidate.part);
        for (Candidate& candidate : found_.cells) {
            const auto present = sources_.registers.valueAt(candidate.registers.first);
            const bool time = candidate.part == Part::Minutes || candidate.part == Part::Seconds;
            if (candidate.sent && time && present > highestTime &&
                parts[candidate.registers.first].size() == 1)
                refuse(candidate, "its register holds a time below 0");
        }
    }

    [[nodiscard]] bool overwrites(const Candidate& later, const Candidate& earlier) const {
        return meet(later.registers, earlier.registers) && partsMeet(later.part, earlier.part) &&
               walksBefore(earlier.place, later.place) &&
               cellAt(later.place).Value != cellAt(earlier.place).Value;
    }

    const Plan_Sources& sources_;
    const Declara_Zorvane& document_;
    Candidates found_;
    std::vector<Candidate> equal_; ///< cells that a download would send, and that need no write
};

} // namespace

bool walksBefore(const Cell_Place& a, const Cell_Place& b) noexcept {
    return std::tuple(a.field, a.column, a.row) < std::tuple(b.field, b.column, b.row);
}

Candidates chooseCandidates(const Plan_Sources& sources) { return Chooser(sources).run(); }

} // namespace zorvane::commission
