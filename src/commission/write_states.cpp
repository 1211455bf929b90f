// SPDX-License-Identifier: MIT
#include "commission/write_states.h"

#include <algorithm>
#include <utility>

namespace zorvane::commission {

Write_States::Write_States(const std::vector<Plan_Write>& writes,
                           const std::vector<Register_Range>& writeOnly, const std::set<std::size_t>& done)
    : writes_(writes), writeOnly_(writeOnly), records_(writes.size()) {
    for (const std::size_t number : done) {
        records_[number].progress = Write_Progress::Sent;
        records_[number].answered = true;
        records_[number].sent = writes[number].values;
    }
}

bool Write_States::has(Write_Progress progress) const {
    return std::any_of(records_.begin(), records_.end(),
                       [progress](const Write_Record& each) { return each.progress == progress; });
}

bool Write_States::someAreVerified() const {
    return std::any_of(records_.begin(), records_.end(),
                       [](const Write_Record& each) { return each.verified; });
}

bool Write_States::isWriteOnly(const Register_Range& registers) const {
    return std::any_of(writeOnly_.begin(), writeOnly_.end(), [&](const Register_Range& range) {
        return range.first <= registers.last && registers.first <= range.last;
    });
}

std::vector<Register_Range> Write_States::readableRows(std::size_t number) const {
    std::vector<Register_Range> rows;
    const std::int32_t last = plan(number).last();
    for (std::int32_t first = plan(number).address; first <= last;) {
        std::int32_t end = first;
        while (end <= last && !isWriteOnly({end, end}))
            ++end;
        if (end > first) rows.push_back({first, end - 1});
        first = end + 1;
    }
    return rows;
}

std::set<std::int32_t> Write_States::touched(bool all) const {
    std::set<std::int32_t> registers;
    for (std::size_t number = 0; number < size(); ++number) {
        const Write_Record& each = record(number);
        if (each.progress != Write_Progress::Sent || (each.verified && !all)) continue;
        for (std::int32_t at = plan(number).address; at <= plan(number).last(); ++at)
            registers.insert(at);
    }
    return registers;
}

std::vector<std::optional<std::uint16_t>>
Write_States::found(std::size_t number, const compare::Controller_Registers& now) const {
    std::vector<std::optional<std::uint16_t>> values;
    for (std::int32_t at = plan(number).address; at <= plan(number).last(); ++at)
        values.push_back(now.valueAt(at));
    return values;
}

bool Write_States::holds(std::size_t number, const std::vector<std::optional<std::uint16_t>>& now) const {
    const std::vector<Part>& parts = plan(number).parts;
    const std::vector<std::uint16_t>& sent = record(number).sent;
    for (std::size_t i = 0; i < parts.size(); ++i)
        if (parts[i] != Part::Kept && (!now[i] || !samePart(parts[i], sent[i], *now[i]))) return false;
    return true;
}

bool Write_States::allThere(const compare::Controller_Registers& now) const {
    for (std::size_t number = 0; number < size(); ++number) {
        const Write_Record& each = record(number);
        if (each.progress != Write_Progress::Sent || each.verified || cantBeReadBack(number)) continue;
        if (!holds(number, found(number, now))) return false;
    }
    return true;
}

std::vector<std::size_t> Write_States::judge(const compare::Controller_Registers& now, bool last) {
    std::vector<std::size_t> held;
    for (std::size_t number = 0; number < size(); ++number) {
        Write_Record& each = record(number);
        if (each.progress != Write_Progress::Sent || (each.verified && !last)) continue;
        each.readBack = found(number, now);
        const bool there = holds(number, each.readBack);
        if (each.verified && !there) each.changedSince = true;
        each.verified = there;
        if (there) held.push_back(number);
    }
    return held;
}

} // namespace zorvane::commission
