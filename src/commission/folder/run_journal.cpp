// SPDX-License-Identifier: MIT
#include "commission/folder/run_journal.h"

#include <utility>

namespace zorvane::commission {

bool Run_Journal::note(const char* event, Json members) {
    if (!fault_.empty()) return false;
    Json record{{"time", utcText(clock_.now())}, {"event", event}};
    for (auto& [key, value] : members.items())
        record[key] = std::move(value);
    fault_ = folder_.append(journalLine(record));
    return fault_.empty();
}

} // namespace zorvane::commission
