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

/// How a run came about.
enum class Run_Kind {
    Send,
    Resumed, ///< a send that was interrupted, and gone on with
    Restore
};

/// "send", "resume" or "restore".
[[nodiscard]] std::string_view runKindWord(Run_Kind kind) noexcept;
/// `restores`: it puts back the values of another run. A run that began twice was gone on with.
[[nodiscard]] Run_Kind kindOf(bool restores, const Journal& journal) noexcept;

} // namespace zorvane::commission
