#include "simulator/fault_picker.h"

namespace zorvane::simulator {

namespace {

constexpr int readRegisters = 3;

bool touches(const Fault_Spec& spec, const Fault_Question& question) noexcept {
    if (!spec.first) return true;
    if (!question.first || !question.last) return false;
    return *question.first <= *spec.last && *question.last >= *spec.first;
}

} // namespace

bool applies(Fault_Kind kind, const Fault_Question& question) noexcept {
    if (kind == Fault_Kind::Short) return !question.refused && question.function == readRegisters;
    if (kind == Fault_Kind::Wrong_Echo) return !question.refused && question.function != readRegisters;
    return true;
}

Fault_Picker::Fault_Picker(std::vector<Fault_Spec> specs, std::uint64_t seed) : dice_(seed) {
    for (Fault_Spec& spec : specs)
        entries_.push_back({std::move(spec), 0, {}});
}

const Fault_Spec* Fault_Picker::pick(const Fault_Question& question) {
    for (Entry& entry : entries_)
        if (strikes(entry, question)) return &entry.spec;
    return nullptr;
}

bool Fault_Picker::strikes(Entry& entry, const Fault_Question& question) {
    const Fault_Spec& spec = entry.spec;
    if (!applies(spec.kind, question) || !touches(spec, question)) return false;
    if (spec.count && entry.struck >= *spec.count) return false;
    if (spec.percent && dice_.unit() * 100 >= *spec.percent) return false;
    if (spec.kind == Fault_Kind::Busy) {
        int& answered = entry.busyAnswers[question.first.value_or(-1)];
        if (answered >= spec.value) return false;
        ++answered;
    }
    ++entry.struck;
    return true;
}

} // namespace zorvane::simulator
