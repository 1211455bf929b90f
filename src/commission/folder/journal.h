// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace zorvane::commission {

/// JSON whose members keep the order in which they were set.
using Json = nlohmann::ordered_json;

/// A line of a journal, without its end: the check sum of the rest in eight digits, a blank, one object.
[[nodiscard]] std::string journalLine(const Json& record);

/// What a journal holds.
struct Journal {
    std::vector<Json> records;
    /// A line isn't whole. The last one, without its end, is what a power cut leaves: it isn't counted.
    bool damaged = false;
};

/// The records up to the first line that isn't whole.
[[nodiscard]] Journal readJournal(std::string_view bytes);

} // namespace zorvane::commission
