// SPDX-License-Identifier: MIT
#include "commission/send_report.h"

#include "values/code_page.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace zorvane::commission {

namespace {

Json registersOfValue(const Known_Registers& registers) {
    const auto one = [](const std::optional<std::uint16_t>& value) { return value ? Json(*value) : Json(); };
    if (registers.empty()) return nullptr;
    if (registers.size() == 1) return one(registers.front());
    if (std::none_of(registers.begin(), registers.end(), [](const auto& value) { return value.has_value(); }))
        return nullptr;
    Json list = Json::array();
    for (const auto& value : registers)
        list.push_back(one(value));
    return list;
}

class Reporter {
  public:
    Reporter(const std::vector<Plan_Write>& writes, const std::map<std::int32_t, std::uint16_t>& before,
             const Send_Outcome& outcome)
        : writes_(writes), before_(before), outcome_(outcome) {}

    [[nodiscard]] Sent_Row rowOf(const Planned_Cell& cell) const {
        Sent_Row row{cell.place, cell.address, {}, {}, {}, Value_State::Not_Sent, cell.why};
        for (std::int32_t at = cell.registers.first; at <= cell.registers.last; ++at) {
            const auto was = before_.find(at);
            row.before.push_back(was == before_.end() ? std::nullopt : std::optional(was->second));
        }
        if (!cell.write) return row;
        Registers_Told told;
        std::vector<Value_State> states = {tell(row, told, cell, *cell.write)};
        // A long text goes out in several writes.
        for (std::size_t number = 0; number < writes_.size(); ++number)
            if (bringsMore(number, cell, told)) states.push_back(tell(row, told, cell, number));
        for (const auto& [at, values] : told) {
            row.sent.push_back(values.sent);
            row.readBack.push_back(values.back);
        }
        row.state = stateOfAll(states);
        if (row.state == Value_State::Not_Sent && row.answer.empty()) row.answer = outcome_.why;
        return row;
    }

  private:
    struct Told {
        std::optional<std::uint16_t> sent;
        std::optional<std::uint16_t> back;
    };
    using Registers_Told = std::map<std::int32_t, Told>;

    /// The cell's registers in a write.
    [[nodiscard]] Register_Range shared(const Planned_Cell& cell, std::size_t number) const {
        const Plan_Write& write = writes_[number];
        return {std::max(cell.registers.first, write.address), std::min(cell.registers.last, write.last())};
    }

    [[nodiscard]] bool bringsMore(std::size_t number, const Planned_Cell& cell,
                                  const Registers_Told& told) const {
        const auto& cells = writes_[number].cells;
        const Register_Range range = shared(cell, number);
        return range.first <= range.last && !told.contains(range.first) &&
               std::find(cells.begin(), cells.end(), cell.place) != cells.end();
    }

    /// What came of the cell's registers in one write; gives their state.
    [[nodiscard]] Value_State tell(Sent_Row& row, Registers_Told& told, const Planned_Cell& cell,
                                   std::size_t number) const {
        const Write_Record& record = outcome_.writes[number];
        const bool went =
            record.progress == Write_Progress::Sent || record.progress == Write_Progress::Refused;
        bool read = true;
        bool same = true;
        const Register_Range range = shared(cell, number);
        for (std::int32_t at = range.first; at <= range.last; ++at) {
            const auto index = static_cast<std::size_t>(at - writes_[number].address);
            const auto sent = went ? std::optional(record.sent[index]) : std::nullopt;
            const auto back = index < record.readBack.size() ? record.readBack[index] : std::nullopt;
            told[at] = {sent, back};
            read = read && back;
            same = same && sent && back && samePart(cell.part, *sent, *back);
        }
        if (row.answer.empty()) row.answer = record.answer;
        if (record.changedSince) row.answer = "it was there, and has changed since";
        if (record.astray) row.answer = "it may have gone to the other controller";
        return stateOf(record, read, same);
    }

    [[nodiscard]] static Value_State stateOf(const Write_Record& record, bool read, bool same) {
        if (record.progress == Write_Progress::Refused) return Value_State::Refused;
        if (record.progress != Write_Progress::Sent) return Value_State::Not_Sent;
        if (!read || record.astray) return Value_State::Unknown;
        return same ? Value_State::Verified : Value_State::Stored_Otherwise;
    }

    /// Verified is what all its writes brought, and not sent what none of them did.
    [[nodiscard]] static Value_State stateOfAll(const std::vector<Value_State>& states) {
        for (const Value_State state : {Value_State::Unknown, Value_State::Refused})
            if (std::find(states.begin(), states.end(), state) != states.end()) return state;
        const auto all = [&](Value_State state) {
            return std::all_of(states.begin(), states.end(),
                               [state](Value_State each) { return each == state; });
        };
        for (const Value_State state : {Value_State::Not_Sent, Value_State::Verified})
            if (all(state)) return state;
        return Value_State::Stored_Otherwise;
    }

    const std::vector<Plan_Write>& writes_;
    const std::map<std::int32_t, std::uint16_t>& before_;
    const Send_Outcome& outcome_;
};

} // namespace

std::string_view valueStateWord(Value_State state) noexcept {
    static constexpr std::array<std::string_view, allValueStates.size()> words = {
        "verified", "refused", "stored_otherwise", "unknown", "not_sent"};
    return words[static_cast<std::size_t>(state)];
}

std::size_t Value_Counts::rows() const {
    return std::accumulate(counts_.begin(), counts_.end(), std::size_t{0});
}

Json countsJson(const Value_Counts& counts) {
    Json json = Json::object();
    for (const Value_State state : allValueStates)
        json[std::string(valueStateWord(state))] = counts.of(state);
    json["rows"] = counts.rows();
    return json;
}

Send_Report reportOf(const std::vector<Planned_Cell>& cells, const std::vector<Plan_Write>& writes,
                     const std::map<std::int32_t, std::uint16_t>& before, const Send_Outcome& outcome) {
    const Reporter reporter(writes, before, outcome);
    Send_Report report;
    for (const Planned_Cell& cell : cells) {
        report.rows.push_back(reporter.rowOf(cell));
        report.counts.add(report.rows.back().state);
    }
    return report;
}

Send_Report strangeReport(const std::vector<Planned_Cell>& cells,
                          const std::map<std::int32_t, std::uint16_t>& before,
                          const std::vector<Strange_Register>& strange) {
    Send_Report report;
    for (const Planned_Cell& cell : cells) {
        const auto found = std::find_if(strange.begin(), strange.end(), [&](const Strange_Register& each) {
            return cell.registers.first <= each.number && each.number <= cell.registers.last;
        });
        if (found == strange.end()) continue;
        Sent_Row row{cell.place, cell.address, {}, {}, {}, Value_State::Not_Sent, {}};
        for (std::int32_t at = cell.registers.first; at <= cell.registers.last; ++at) {
            const auto was = before.find(at);
            row.before.push_back(was == before.end() ? std::nullopt : std::optional(was->second));
        }
        row.answer = "register " + std::to_string(found->number) + " holds " + std::to_string(found->now) +
                     ", which is neither what was there nor what was to be left";
        report.rows.push_back(std::move(row));
        report.counts.add(Value_State::Not_Sent);
    }
    return report;
}

Json rowsJson(const Send_Report& report) {
    Json rows = Json::array();
    for (const Sent_Row& row : report.rows)
        rows.push_back({{"field", row.place.field},
                        {"row", row.place.row},
                        {"column", row.place.column},
                        {"register", toUtf8(row.address)},
                        {"before", registersOfValue(row.before)},
                        {"sent", registersOfValue(row.sent)},
                        {"read_back", registersOfValue(row.readBack)},
                        {"state", valueStateWord(row.state)},
                        {"answer", row.answer.empty() ? Json() : Json(toUtf8(row.answer))}});
    return rows;
}

} // namespace zorvane::commission
