#include "comm/late_answers.h"

#include <algorithm>

namespace zorvane {

namespace {

bool sameFunction(const Rtu_Request& a, const Rtu_Request& b) {
    return a.unit == b.unit && a.function == b.function;
}

bool sameShape(const Rtu_Request& a, const Rtu_Request& b) {
    return sameFunction(a, b) && (a.count == b.count || a.function == Function_Code::PresetMultipleRegisters);
}

} // namespace

void Late_Answers::expect(const Rtu_Request& request, Micros until) { expected_.push_back({request, until}); }

void Late_Answers::expectOnLine(const Rtu_Request& request, Micros lineUntil, Micros until) {
    lineUntil_ = lineUntil;
    expect(request, until);
}

void Late_Answers::forgetPast(Micros now) {
    std::erase_if(expected_, [now](const Expected& entry) { return entry.until <= now; });
}

Micros Late_Answers::heldUntil(const Rtu_Request& request) const {
    Micros held = lineUntil_.value_or(0);
    for (const Expected& entry : expected_) {
        if (sameShape(entry.request, request)) held = std::max(held, entry.until);
    }
    return held;
}

std::optional<Finding> Late_Answers::take(Byte_View received, std::size_t from) {
    for (auto entry = expected_.begin(); entry != expected_.end(); ++entry) {
        Finding finding = findAnswer(entry->request, received, from);
        if (finding.verdict != Finding::Verdict::Found) continue;
        expected_.erase(entry);
        lineFree();
        return finding;
    }
    return std::nullopt;
}

bool Late_Answers::exceptionAmbiguous(const Rtu_Request& request, Micros now) const {
    return std::any_of(expected_.begin(), expected_.end(), [&](const Expected& entry) {
        return entry.until > now && sameFunction(entry.request, request);
    });
}

} // namespace zorvane
