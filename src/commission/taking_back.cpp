// SPDX-License-Identifier: MIT
#include "commission/taking_back.h"

#include "commission/folder/json_fields.h"
#include "commission/plan/cell_registers.h"
#include "values/code_page.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zorvane::commission {

namespace {

std::optional<std::uint16_t> valueIn(const std::map<std::int32_t, std::uint16_t>& registers,
                                     std::int32_t number) {
    const auto found = registers.find(number);
    if (found == registers.end()) return std::nullopt;
    return found->second;
}

/// The writes of which the journal says that they went out.
std::set<std::size_t> sentWrites(const Journal& journal) {
    std::set<std::size_t> sent;
    for (const Json& record : journal.records)
        if (isEvent(record, "write"))
            if (const auto number = numberOf<std::size_t>(memberOf(record, "write"))) sent.insert(*number);
    return sent;
}

/// Looks at the registers of a run's writes as they are now.
class Judge {
  public:
    Judge(const Kept_Run& run, const compare::Controller_Registers& now, const Identity_Section& section,
          Further_Writes& found)
        : before_(run.paper.before), left_(leftBy(run)), now_(now), section_(section), found_(found) {}

    [[nodiscard]] bool isWriteOnly(const Plan_Write& write) const {
        return meetsAny(section_.writeOnly, {write.address, write.last()});
    }

    /// Whether all that the write sets is there already. What is neither of the run nor from before is noted.
    bool isThere(const Plan_Write& write) {
        bool there = true;
        for (std::size_t i = 0; i < write.parts.size(); ++i) {
            const std::int32_t number = write.address + static_cast<std::int32_t>(i);
            if (write.parts[i] == Part::Kept) continue;
            const auto value = now_.valueAt(number);
            if (!value) {
                unread_.insert(number);
                there = false;
            } else if (!samePart(write.parts[i], write.values[i], *value)) {
                noteStrange(number, write.parts[i], *value);
                there = false;
            }
        }
        return there;
    }

    void finish() { found_.unread = rangesOf(unread_); }

  private:
    void noteStrange(std::int32_t number, Part part, std::uint16_t now) {
        const auto before = valueIn(before_, number);
        const auto left = valueIn(left_, number);
        if (before && samePart(part, *before, now)) return;
        if (left && samePart(part, *left, now)) return;
        found_.strange.push_back({number, before, left.value_or(0), now});
    }

    const std::map<std::int32_t, std::uint16_t>& before_;
    std::map<std::int32_t, std::uint16_t> left_;
    const compare::Controller_Registers& now_;
    const Identity_Section& section_;
    Further_Writes& found_;
    std::set<std::int32_t> unread_;
};

/// The write with the values from before; nothing of it that was never read.
std::optional<Plan_Write> reversed(const Plan_Write& write,
                                   const std::map<std::int32_t, std::uint16_t>& before) {
    Plan_Write back = write;
    bool sets = false;
    for (std::size_t i = 0; i < back.parts.size(); ++i) {
        const auto value = valueIn(before, write.address + static_cast<std::int32_t>(i));
        if (!value) return std::nullopt;
        back.values[i] = *value;
        sets = sets || back.parts[i] != Part::Kept;
    }
    return sets ? std::optional(back) : std::nullopt;
}

/// What the controller held in the run's registers when it ended, as far as is known: what was read last,
/// else what was sent last and not refused, else what was there before.
std::map<std::int32_t, std::uint16_t> heldAfter(const Kept_Run& run) {
    std::map<std::int32_t, std::uint16_t> held = run.after;
    held.merge(writtenRegisters(run.journal));
    held.insert(run.paper.before.begin(), run.paper.before.end());
    return held;
}

void noteImpossible(Further_Writes& found, const std::vector<Planned_Cell>& cells, std::size_t write) {
    for (const Planned_Cell& cell : cells) {
        if (cell.write != write) continue;
        Planned_Cell impossible = cell;
        impossible.write.reset();
        impossible.why = "what was there before was never read, so it can't be put back";
        found.impossible.push_back(std::move(impossible));
    }
}

} // namespace

Further_Writes furtherWrites(const Kept_Run& run, const std::vector<Plan_Write>& writes,
                             const compare::Controller_Registers& now, const Identity_Section& section) {
    Further_Writes found;
    Judge judge(run, now, section, found);
    const std::set<std::size_t> sent = sentWrites(run.journal);
    found.writes = writes;
    for (std::size_t number = 0; number < writes.size(); ++number) {
        // What can't be read back isn't sent a second time: nobody knows what became of the first.
        const bool done =
            judge.isWriteOnly(writes[number]) ? sent.contains(number) : judge.isThere(writes[number]);
        if (done) found.done.insert(number);
    }
    judge.finish();
    return found;
}

Further_Writes restoringWrites(const Kept_Run& run, const std::vector<Plan_Write>& writes,
                               const std::vector<Planned_Cell>& cells,
                               const compare::Controller_Registers& now, const Identity_Section& section) {
    Further_Writes found;
    Judge judge(run, now, section, found);
    for (std::size_t number = writes.size(); number-- > 0;) {
        const auto back =
            judge.isWriteOnly(writes[number]) ? std::nullopt : reversed(writes[number], run.paper.before);
        if (!back)
            noteImpossible(found, cells, number);
        else if (!judge.isThere(*back))
            found.writes.push_back(*back);
    }
    std::stable_partition(found.writes.begin(), found.writes.end(),
                          [](const Plan_Write& write) { return write.stage != Stage::Link; });
    judge.finish();
    return found;
}

std::string_view leftSignWord(Left_Sign sign) noexcept {
    static constexpr std::array<std::string_view, 3> words = {"as_left", "changed", "not_read"};
    return words[static_cast<std::size_t>(sign)];
}

std::vector<Left_Row> leftRows(const Kept_Run& run, const std::vector<Plan_Write>& writes,
                               const compare::Controller_Registers& now) {
    const std::map<std::int32_t, std::uint16_t> left = heldAfter(run);
    std::map<std::int32_t, Part> parts;
    for (const Plan_Write& write : writes)
        for (std::size_t i = 0; i < write.parts.size(); ++i)
            if (write.parts[i] != Part::Kept)
                parts[write.address + static_cast<std::int32_t>(i)] = write.parts[i];
    std::vector<Left_Row> rows;
    for (const auto& [number, part] : parts) {
        Left_Row row{number, valueIn(left, number), now.valueAt(number), Left_Sign::Not_Read};
        if (row.left && row.now)
            row.sign = samePart(part, *row.left, *row.now) ? Left_Sign::As_Left : Left_Sign::Changed;
        rows.push_back(row);
    }
    return rows;
}

bool setsSerial(const std::vector<Plan_Write>& writes, const Identity_Section& section) {
    return section.serial && std::any_of(writes.begin(), writes.end(), [&](const Plan_Write& write) {
               return meet(*section.serial, {write.address, write.last()});
           });
}

std::string anotherController(const Kept_Run& run, const Identity_Section& section,
                              const compare::Identity& identity) {
    const auto known = stringOf(memberOf(run.paper.identity, "serial"));
    if (!known || known->empty() || !identity.serial || setsSerial(run.paper.writes, section)) return {};
    const std::string found = toUtf8(*identity.serial);
    if (found == *known) return {};
    return "Another controller answers: its serial number is \"" + found +
           "\", and that of the run's was \"" + *known + "\".";
}

std::int32_t unitOf(const Kept_Run& run) {
    std::int32_t unit = run.paper.unit;
    for (const Json& record : run.journal.records)
        if (isEvent(record, "line") || isEvent(record, "begin"))
            unit = numberOf<std::int32_t>(memberOf(record, "unit")).value_or(unit);
    return unit;
}

std::string settingsOf(const Kept_Run& run) {
    std::string settings = run.paper.settings;
    for (const Json& record : run.journal.records)
        if (isEvent(record, "line")) settings = stringOf(memberOf(record, "line")).value_or(settings);
    return settings;
}

} // namespace zorvane::commission
