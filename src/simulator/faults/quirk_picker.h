// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/faults/quirk_rule.h"
#include "simulator/faults/strike.h"

#include <cstdint>
#include <vector>

namespace zorvane::simulator {

/// When in the life of a request a quirk strikes.
enum class Quirk_Stage {
    Power,   ///< before anything is done
    Refusal, ///< a request that is in order otherwise
    Storing, ///< a write that is done
    Always,  ///< no matter of requests
};
[[nodiscard]] Quirk_Stage stageOf(Quirk_Kind kind) noexcept;

/// Chooses the quirks of each request; several may strike at once. The same quirks, seed and questions give
/// the same choices.
class Quirk_Picker {
  public:
    Quirk_Picker(std::vector<Quirk_Rule> rules, std::uint64_t seed);

    /// Those of a stage that strike a request, in the order given. Good until the picker goes.
    [[nodiscard]] std::vector<const Quirk_Rule*> pick(Quirk_Stage stage, int function,
                                                      const Touched_Registers& registers);

    /// All of the stage `Always`.
    [[nodiscard]] std::vector<const Quirk_Rule*> drifts() const;

  private:
    struct Entry {
        Quirk_Rule rule;
        int struck = 0;
    };

    std::vector<Entry> entries_;
    Dice dice_;
};

} // namespace zorvane::simulator
