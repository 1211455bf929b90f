// SPDX-License-Identifier: MIT
#include "simulator/faults/fault_picker.h"

#include "simulator/faults/strike.h"
#include "simulator/wire/request.h"

namespace zorvane::simulator {

bool applies(Fault_Kind kind, const Fault_Question& question) noexcept {
    if (kind == Fault_Kind::Short) return !question.refused && question.function == functionReadRegisters;
    if (kind == Fault_Kind::Wrong_Echo) return !question.refused && isWrite(question.function);
    return true;
}

Fault_Picker::Fault_Picker(std::vector<Fault_Rule> rules, std::uint64_t seed) : dice_(seed) {
    for (Fault_Rule& rule : rules)
        entries_.push_back({std::move(rule), 0, {}});
}

const Fault_Rule* Fault_Picker::pick(const Fault_Question& question) {
    for (Entry& entry : entries_)
        if (strikes(entry, question)) return &entry.rule;
    return nullptr;
}

bool Fault_Picker::strikes(Entry& entry, const Fault_Question& question) {
    const Fault_Rule& rule = entry.rule;
    if (!applies(rule.kind, question)) return false;
    if (!strikesNow(rule, entry.struck, {question.first, question.last}, dice_)) return false;
    if (rule.kind == Fault_Kind::Busy) {
        int& answered = entry.busyAnswers[question.first.value_or(-1)];
        if (answered >= rule.value) return false;
        ++answered;
    }
    ++entry.struck;
    return true;
}

} // namespace zorvane::simulator
