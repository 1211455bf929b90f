// SPDX-License-Identifier: MIT
#include "commission/plan/plan.h"

#include "cells/format/cell_encoding.h"
#include "comm/modbus_control/dry_run_link.h"
#include "comm/transfer/requests/ascii_block.h"
#include "comm/transfer/requests/download_request.h"
#include "comm/transfer/requests/download_walk.h"
#include "commission/plan/cell_registers.h"
#include "commission/plan/plan_candidates.h"
#include "values/run_time_failure.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace zorvane::commission {

namespace {

constexpr std::int32_t leastWord = -32768;
constexpr std::int32_t mostWord = 65535;
constexpr std::int32_t anyUnit = 1; ///< a dry run has only one

/// Which write a register goes out with.
struct Write_Key {
    Function_Code function = Function_Code::PresetSingleRegister;
    std::int32_t first = 0;
    std::int32_t count = 1;
    bool operator==(const Write_Key&) const = default;
};

/// What a download's request sets of a register.
struct Target {
    std::uint16_t value = 0;
    Part part = Part::Whole;
    Write_Key write;
};

/// A request as registers in a row.
struct Register_Write {
    Write_Key key;
    std::vector<std::int32_t> values;
};

/// A download's walk over the cells, on paper, of which only the chosen ones send.
class Dry_Walk {
  public:
    Dry_Walk(const Plan_Sources& sources, std::vector<Candidate>& candidates)
        : document_(sources.document), image_(sources.registers.values()) {
        for (Candidate& candidate : candidates) {
            if (!candidate.sent) continue;
            byPlace_.emplace(candidate.place, &candidate);
            if (candidate.part == Part::Minutes || candidate.part == Part::Seconds) startAtZero(candidate);
            for (std::int32_t n = candidate.registers.first; n <= candidate.registers.last; ++n)
                wanted_.insert(n);
        }
    }

    /// The failure that ended it.
    std::optional<Plan_Failure> run() {
        for (std::int32_t field = 1; field <= document_.Field_Count && !byPlace_.empty(); ++field)
            if (!visitSentCells(document_, field, [this](const Cell_Place& place) { return visit(place); }))
                return failure_;
        return std::nullopt;
    }

    [[nodiscard]] const std::map<std::int32_t, Target>& targets() const { return targets_; }

  private:
    /// A shared time below 0 is replaced as a whole: of its old parts nothing may be left.
    void startAtZero(const Candidate& candidate) {
        const std::int32_t number = candidate.registers.first;
        if (image_.RegisterValue(anyUnit, number) < 0) image_.PresetSingleRegister(anyUnit, number, 0);
    }

    bool visit(const Cell_Place& place) {
        try {
            visitCell(place);
            return true;
        } catch (const Run_Time_Failure& failure) {
            failure_ = {place, failure.number(), failure.what()};
            return false;
        }
    }

    void visitCell(const Cell_Place& place) {
        const Cell_Table& cells = document_.Fields(place.field).Cells;
        const Cell_Rec& cell = cells(place.row, place.column);
        if (const auto word = negativeWord(cells(0, place.column), cell)) negativeWord_ = *word;
        const auto found = byPlace_.find(place);
        if (found != byPlace_.end()) return take(place, found->second);
        // On the board family a text goes out together with its neighbour's.
        const bool pairs = cell.Is_Ascii_Range && isBoardFamily(document_.Controller_Model);
        if (pairs && !isNotDownloadable(document_, cell.Address)) take(place, nullptr);
    }

    /// The rest of a shared time is that of its own register: the grids' selection says where to look.
    [[nodiscard]] Cell_Request requestOf(const Cell_Place& place) const {
        const Grid_Selection own{place.field, place.row, place.column - 1};
        return buildRequest({document_, Register_Image(image_, anyUnit), anyUnit, own, negativeWord_}, place);
    }

    [[nodiscard]] std::optional<Register_Write> writeOf(const Cell_Place& place) const {
        const Write_Order order = requestOf(place).order;
        if (const auto* single = std::get_if<Single_Write>(&order))
            return Register_Write{{Function_Code::PresetSingleRegister, single->address, 1}, {single->value}};
        if (const auto* multiple = std::get_if<Multiple_Write>(&order))
            return Register_Write{{Function_Code::PresetMultipleRegisters, multiple->address,
                                   static_cast<std::int32_t>(multiple->values.size())},
                                  multiple->values};
        const auto* ascii = std::get_if<Ascii_Write>(&order);
        if (ascii == nullptr) return std::nullopt;
        const Cell_Rec& cell = document_.Fields(place.field).Cells(place.row, place.column);
        const Register_Range range = asciiRegisters(document_, cell);
        const std::int32_t count = registerCount(range.first, range.last);
        return Register_Write{{Function_Code::PresetMultipleRegisters, range.first, count},
                              packAscii(ascii->text, count)};
    }

    /// `candidate` is null for a cell that isn't sent itself: of its request only the texts of others count.
    void take(const Cell_Place& place, Candidate* candidate) {
        const auto write = writeOf(place);
        if (!write) return;
        const Cell_Registers own = registersOf(document_, place);
        const bool isText = document_.Fields(place.field).Cells(place.row, place.column).Is_Ascii_Range;
        for (std::size_t i = 0; i < write->values.size(); ++i) {
            const std::int32_t number = write->key.first + static_cast<std::int32_t>(i);
            const std::int32_t value = write->values[i];
            const bool isOwn = meet(own.range, {number, number});
            if (isOwn ? candidate == nullptr : !(isText && wanted_.contains(number))) continue;
            if (value < leastWord || value > mostWord) {
                if (candidate == nullptr) return;
                candidate->sent = false;
                candidate->why = "a register holds 16 bits";
                return;
            }
            set(number, value, isOwn ? own.part : Part::Whole, write->key);
        }
    }

    void set(std::int32_t number, std::int32_t value, Part part, const Write_Key& key) {
        const auto found = targets_.find(number);
        const Part whole = found == targets_.end() ? part : joinedPart(found->second.part, part);
        targets_[number] = {static_cast<std::uint16_t>(value & 0xFFFF), whole, key};
        image_.PresetSingleRegister(anyUnit, number, value);
    }

    const Declara_Zorvane& document_;
    Dry_Run_Link image_;
    std::map<Cell_Place, Candidate*> byPlace_;
    std::set<std::int32_t> wanted_; ///< registers of the cells that are sent
    std::map<std::int32_t, Target> targets_;
    std::int32_t negativeWord_ = 0;
    std::optional<Plan_Failure> failure_;
};

/// Cells whose registers go out together.
struct Group {
    Write_Key key;
    Stage stage = Stage::Usual;
    std::vector<const Candidate*> cells;
};

/// Makes writes of the registers that the walk has set.
class Collector {
  public:
    Collector(const Plan_Sources& sources, Plan& plan, const std::map<std::int32_t, Target>& targets,
              std::set<std::int32_t>& unread)
        : sources_(sources), plan_(plan), targets_(targets), unread_(unread) {}

    void run(const std::vector<Candidate>& candidates) {
        for (const Group& group : groups(candidates))
            addWrites(group);
        for (const Candidate& candidate : candidates)
            if (!isThere(candidate)) plan_.cells.push_back(plannedCell(candidate));
    }

  private:
    /// Whether the registers hold already what a download would send: a 0 where a blank is named.
    [[nodiscard]] bool isThere(const Candidate& candidate) const {
        return candidate.sent && targets_.count(candidate.registers.first) != 0 &&
               writeOfCell_.count(candidate.place) == 0;
    }

    [[nodiscard]] Planned_Cell plannedCell(const Candidate& candidate) const {
        Planned_Cell cell{candidate.place, candidate.address, candidate.registers,
                          candidate.part,  std::nullopt,      candidate.why};
        const auto found = writeOfCell_.find(candidate.place);
        if (found != writeOfCell_.end()) cell.write = found->second;
        if (candidate.sent && !cell.write) cell.why = "a download sends nothing for it";
        return cell;
    }

    /// In the order in which a download begins them; those of later stages come last.
    [[nodiscard]] std::vector<Group> groups(const std::vector<Candidate>& candidates) const {
        std::vector<const Candidate*> walked;
        for (const Candidate& candidate : candidates)
            if (candidate.sent) walked.push_back(&candidate);
        std::sort(walked.begin(), walked.end(),
                  [](const Candidate* a, const Candidate* b) { return walksBefore(a->place, b->place); });
        std::vector<Group> all;
        for (const Candidate* candidate : walked)
            for (std::int32_t n = candidate->registers.first; n <= candidate->registers.last; ++n)
                if (const auto target = targets_.find(n); target != targets_.end())
                    addTo(all, target->second.write, *candidate);
        std::stable_sort(all.begin(), all.end(), [this](const Group& a, const Group& b) {
            return std::pair(a.stage, placeInSection(a)) < std::pair(b.stage, placeInSection(b));
        });
        return all;
    }

    /// What only goes along in a block is written with it all the same.
    [[nodiscard]] Stage stageOfBlock(const Write_Key& key) const {
        return meetsAny(sources_.section.last, {key.first, key.first + key.count - 1}) ? Stage::Last
                                                                                       : Stage::Usual;
    }

    void addTo(std::vector<Group>& all, const Write_Key& key, const Candidate& candidate) const {
        auto group = std::find_if(all.begin(), all.end(), [&](const Group& each) { return each.key == key; });
        if (group == all.end()) group = all.insert(all.end(), Group{key, Stage::Usual, {}});
        group->stage = std::max({group->stage, candidate.stage, stageOfBlock(key)});
        if (group->cells.empty() || group->cells.back() != &candidate) group->cells.push_back(&candidate);
    }

    /// The template's own order of what goes out late.
    [[nodiscard]] std::size_t placeInSection(const Group& group) const {
        const Register_Range range{group.key.first, group.key.first + group.key.count - 1};
        const auto& last = sources_.section.last;
        for (std::size_t i = 0; group.stage == Stage::Last && i < last.size(); ++i)
            if (meet(last[i], range)) return i;
        const auto& link = sources_.section.link;
        for (std::size_t i = 0; group.stage == Stage::Link && i < link.size(); ++i)
            if (meet({link[i].number, link[i].number}, range)) return i;
        return 0;
    }

    /// A block that no frame holds goes out in several, those without a change left out.
    void addWrites(const Group& group) {
        const std::int32_t end = group.key.first + group.key.count;
        for (std::int32_t first = group.key.first; first < end; first += largestWrite)
            addWrite(group, {first, std::min(first + largestWrite, end) - 1});
    }

    void addWrite(const Group& group, const Register_Range& range) {
        Plan_Write write;
        write.function = group.key.function;
        write.address = range.first;
        write.stage = group.stage;
        bool changes = false;
        for (std::int32_t number = range.first; number <= range.last; ++number) {
            const auto target = targets_.find(number);
            const bool set = target != targets_.end() && target->second.write == group.key;
            const auto present = sources_.registers.valueAt(number);
            write.values.push_back(set ? target->second.value : present.value_or(0));
            write.parts.push_back(set ? target->second.part : Part::Kept);
            changes = changes || (set && present != target->second.value);
        }
        if (!changes) return;
        for (const Candidate* candidate : group.cells)
            if (meet(candidate->registers, range)) {
                write.cells.push_back(candidate->place);
                writeOfCell_.emplace(candidate->place, plan_.writes.size());
            }
        noteBefore(write);
        plan_.writes.push_back(std::move(write));
    }

    void noteBefore(const Plan_Write& write) {
        for (std::size_t i = 0; i < write.parts.size(); ++i) {
            const std::int32_t number = write.address + static_cast<std::int32_t>(i);
            if (const auto present = sources_.registers.valueAt(number))
                plan_.before[number] = *present;
            else if (write.parts[i] != Part::Whole)
                unread_.insert(number);
        }
    }

    const Plan_Sources& sources_;
    Plan& plan_;
    const std::map<std::int32_t, Target>& targets_;
    std::set<std::int32_t>& unread_;
    std::map<Cell_Place, std::size_t> writeOfCell_;
};

} // namespace

Plan makePlan(const Plan_Sources& sources) {
    Candidates candidates = chooseCandidates(sources);
    Plan plan;
    plan.comparison = std::move(candidates.comparison);
    Dry_Walk walk(sources, candidates.cells);
    plan.failure = walk.run();
    if (plan.failure) return plan;
    Collector(sources, plan, walk.targets(), candidates.unread).run(candidates.cells);
    plan.unread = rangesOf(candidates.unread);
    return plan;
}

} // namespace zorvane::commission
