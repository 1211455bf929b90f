// SPDX-License-Identifier: MIT
#include "commission/folder/journal.h"

#include "commission/folder/digests.h"
#include "commission/folder/json_fields.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace zorvane::commission {

namespace {

constexpr std::size_t digitsOfSum = 8;

/// The record of a line; a discarded value when the line isn't whole.
Json recordOf(std::string_view line) {
    Json broken = Json(Json::value_t::discarded);
    if (line.size() <= digitsOfSum + 1 || line[digitsOfSum] != ' ') return broken;
    const std::string_view text = line.substr(digitsOfSum + 1);
    if (line.substr(0, digitsOfSum) != hex8(crc32(text))) return broken;
    Json record = Json::parse(text, nullptr, false);
    return record.is_object() ? record : broken;
}

/// What a write set, and what stood there before it as far as the journal tells.
class Write_Replay {
  public:
    void begin(const Json& intent) {
        before_.clear();
        const auto first = numberOf<std::int32_t>(memberOf(intent, "address"));
        if (!first) return;
        std::int64_t number = *first;
        for (const Json& value : memberOf(intent, "values")) {
            if (const auto word = numberOf<std::uint16_t>(value))
                set(static_cast<std::int32_t>(number), *word);
            ++number;
        }
    }

    /// The controller refused the write that began last.
    void takeBack() {
        for (const auto& [number, value] : before_) {
            if (value)
                registers[number] = *value;
            else
                registers.erase(number);
        }
        before_.clear();
    }

    std::map<std::int32_t, std::uint16_t> registers;

  private:
    void set(std::int32_t number, std::uint16_t word) {
        const auto found = registers.find(number);
        before_.emplace(number, found == registers.end() ? std::nullopt : std::optional(found->second));
        registers[number] = word;
    }

    std::map<std::int32_t, std::optional<std::uint16_t>> before_;
};

bool isRefusal(const Json& record) {
    return isEvent(record, "answer") && stringOf(memberOf(record, "end")) == "refused";
}

} // namespace

std::string journalLine(const Json& record) {
    const std::string text = record.dump(-1, ' ', false, Json::error_handler_t::replace);
    return hex8(crc32(text)) + " " + text;
}

Journal readJournal(std::string_view bytes) {
    Journal journal;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        if (end == std::string_view::npos) return journal;
        Json record = recordOf(bytes.substr(0, end));
        if (record.is_discarded()) {
            journal.damaged = true;
            return journal;
        }
        journal.records.push_back(std::move(record));
        bytes.remove_prefix(end + 1);
    }
    return journal;
}

std::map<std::size_t, Write_Trace> writeTraces(const Journal& journal) {
    std::map<std::size_t, Write_Trace> traces;
    for (const Json& record : journal.records) {
        const auto number = numberOf<std::size_t>(memberOf(record, "write"));
        if (!number) continue;
        if (isEvent(record, "write"))
            traces[*number] = Write_Trace::Open;
        else if (isRefusal(record) && traces.contains(*number))
            traces[*number] = Write_Trace::Refused;
    }
    return traces;
}

std::map<std::int32_t, std::uint16_t> writtenRegisters(const Journal& journal) {
    Write_Replay replay;
    for (const Json& record : journal.records) {
        if (isEvent(record, "write")) replay.begin(record);
        if (isRefusal(record)) replay.takeBack();
    }
    return std::move(replay.registers);
}

std::string_view runKindWord(Run_Kind kind) noexcept {
    static constexpr std::array<std::string_view, 3> words = {"send", "resume", "restore"};
    return words[static_cast<std::size_t>(kind)];
}

Run_Kind kindOf(bool restores, const Journal& journal) noexcept {
    if (restores) return Run_Kind::Restore;
    const auto begun = std::count_if(journal.records.begin(), journal.records.end(),
                                     [](const Json& record) { return isEvent(record, "begin"); });
    return begun > 1 ? Run_Kind::Resumed : Run_Kind::Send;
}

} // namespace zorvane::commission
