// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/faults/dice.h"
#include "simulator/faults/fault_rule.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace zorvane::simulator {

/// What a fault's choice depends on.
struct Fault_Question {
    int function = 0;
    std::optional<std::int32_t> first; ///< register numbers touched, if the function has any
    std::optional<std::int32_t> last;
    bool refused = false; ///< the answer will be an exception anyway
};

/// Whether a fault of this kind makes sense for a request at all: a wrong echo needs a write, a short answer
/// a read, and both a request that isn't refused.
[[nodiscard]] bool applies(Fault_Kind kind, const Fault_Question& question) noexcept;

/// Chooses the fault of each request. The same faults, seed and questions give the same choices.
class Fault_Picker {
  public:
    Fault_Picker(std::vector<Fault_Rule> rules, std::uint64_t seed);

    /// The first fault, in the order given, that strikes; null for none. Good until the picker goes.
    [[nodiscard]] const Fault_Rule* pick(const Fault_Question& question);

  private:
    struct Entry {
        Fault_Rule rule;
        int struck = 0;
        std::map<std::int32_t, int> busyAnswers; ///< by first register
    };

    [[nodiscard]] bool strikes(Entry& entry, const Fault_Question& question);

    std::vector<Entry> entries_;
    Dice dice_;
};

} // namespace zorvane::simulator
