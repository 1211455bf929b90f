// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <map>
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

/// What a journal tells of a write that began, before anybody reads what the controller holds.
enum class Write_Trace {
    Open,   ///< the controller may have taken it
    Refused ///< its last word was an exception
};

/// The writes of the plan that a journal says have begun, by their numbers.
[[nodiscard]] std::map<std::size_t, Write_Trace> writeTraces(const Journal& journal);

/// What the writes of a journal put into registers, the last one counting; what was refused isn't counted.
[[nodiscard]] std::map<std::int32_t, std::uint16_t> writtenRegisters(const Journal& journal);

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
