// SPDX-License-Identifier: MIT
#include "commission/folder/journal.h"

#include "commission/folder/digests.h"
#include "commission/folder/json_fields.h"

#include <algorithm>
#include <array>

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
