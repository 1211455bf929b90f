// SPDX-License-Identifier: MIT
#include "simulator/faults/quirk_picker.h"

#include "simulator/wire/request.h"

namespace zorvane::simulator {

namespace {

/// Reading is refused to readers, a value to who writes one.
bool applies(Quirk_Kind kind, int function) noexcept {
    if (stageOf(kind) == Quirk_Stage::Power) return true;
    return kind == Quirk_Kind::Write_Only ? function == functionReadRegisters : isWrite(function);
}

} // namespace

Quirk_Stage stageOf(Quirk_Kind kind) noexcept {
    switch (kind) {
    case Quirk_Kind::Power_Cut:
        return Quirk_Stage::Power;
    case Quirk_Kind::Write_Only:
    case Quirk_Kind::Not_Above:
    case Quirk_Kind::Not_Below:
        return Quirk_Stage::Refusal;
    case Quirk_Kind::Drifts:
        return Quirk_Stage::Always;
    default:
        return Quirk_Stage::Storing;
    }
}

Quirk_Picker::Quirk_Picker(std::vector<Quirk_Rule> rules, std::uint64_t seed) : dice_(seed) {
    for (Quirk_Rule& rule : rules)
        entries_.push_back({std::move(rule), 0});
}

std::vector<const Quirk_Rule*> Quirk_Picker::pick(Quirk_Stage stage, int function,
                                                  const Touched_Registers& registers) {
    std::vector<const Quirk_Rule*> picked;
    for (Entry& entry : entries_) {
        if (stageOf(entry.rule.kind) != stage || !applies(entry.rule.kind, function)) continue;
        if (!strikesNow(entry.rule, entry.struck, registers, dice_)) continue;
        ++entry.struck;
        picked.push_back(&entry.rule);
    }
    return picked;
}

std::vector<const Quirk_Rule*> Quirk_Picker::drifts() const {
    std::vector<const Quirk_Rule*> found;
    for (const Entry& entry : entries_)
        if (stageOf(entry.rule.kind) == Quirk_Stage::Always) found.push_back(&entry.rule);
    return found;
}

} // namespace zorvane::simulator
