// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/late_answers.h"

#include <algorithm>

namespace zorvane {

namespace {

/// Where requests have numbers, an answer belongs to no other one.
bool sameFunction(const Rtu_Request& a, const Rtu_Request& b) {
    return a.unit == b.unit && a.function == b.function && a.number == b.number;
}

bool sameShape(const Rtu_Request& a, const Rtu_Request& b) {
    return sameFunction(a, b) && (a.count == b.count || a.function == Function_Code::PresetMultipleRegisters);
}

/// Whether a good answer to the one has the form of a good answer to the other: that of a read names its
/// count only, that of a write its address, and its value or count.
bool sameAnswer(const Rtu_Request& a, const Rtu_Request& b) {
    if (!sameFunction(a, b) || a.count != b.count) return false;
    if (!isWrite(a.function)) return true;
    return a.address == b.address &&
           (a.function == Function_Code::PresetMultipleRegisters || a.values == b.values);
}

bool overlap(const Rtu_Request& a, const Rtu_Request& b) {
    const Function_Code objects = Function_Code::ReadDeviceIdentification;
    return a.function != objects && b.function != objects && a.unit == b.unit &&
           a.address < b.address + b.count && b.address < a.address + a.count;
}

} // namespace

void Late_Answers::expect(const Rtu_Request& request, Micros heldUntil, Micros until, bool begun) {
    expected_.push_back({.request = request, .heldUntil = heldUntil, .until = until, .begun = begun});
}

void Late_Answers::expectOnLine(const Rtu_Request& request, Micros lineUntil, Micros heldUntil,
                                Micros until) {
    lineUntil_ = lineUntil;
    expect(request, heldUntil, until);
}

void Late_Answers::expectForeign(const Rtu_Request& request, Micros lineUntil, Micros until) {
    lineUntil_ = lineUntil;
    expected_.push_back({.request = request, .until = until, .outOfDate = true, .foreign = true});
}

void Late_Answers::forgetPast(Micros now) {
    std::erase_if(expected_, [now](const Expected& entry) { return entry.until <= now; });
}

void Late_Answers::sent(const Rtu_Request& request) {
    if (!isWrite(request.function)) return;
    for (Expected& entry : expected_) {
        if (overlap(entry.request, request) && !(entry.request == request)) entry.outOfDate = true;
    }
}

void Late_Answers::answered(const Rtu_Request& request, Micros until) {
    for (Expected& entry : expected_) {
        if (entry.request == request) entry.until = std::max(entry.until, until);
    }
}

Micros Late_Answers::heldUntil(const Rtu_Request& request) const {
    Micros held = lineUntil_.value_or(0);
    for (const Expected& entry : expected_) {
        if (sameShape(entry.request, request)) held = std::max(held, entry.heldUntil);
    }
    return held;
}

Micros Late_Answers::confusableUntil(const Rtu_Request& request) const {
    Micros until = 0;
    for (const Expected& entry : expected_) {
        const bool harmless = entry.request == request && !entry.outOfDate;
        if (sameAnswer(entry.request, request) && !harmless) until = std::max(until, entry.until);
    }
    return until;
}

bool Late_Answers::expects(const Rtu_Request& request) const {
    return std::any_of(expected_.begin(), expected_.end(),
                       [&](const Expected& entry) { return sameAnswer(entry.request, request); });
}

bool Late_Answers::expectsFunction(const Rtu_Request& request) const {
    return std::any_of(expected_.begin(), expected_.end(),
                       [&](const Expected& entry) { return sameFunction(entry.request, request); });
}

bool Late_Answers::expectsRefusal(const Rtu_Request& request) const {
    return std::any_of(expected_.begin(), expected_.end(), [&](const Expected& entry) {
        return !entry.begun && sameFunction(entry.request, request);
    });
}

std::optional<Late_Answers::Late> Late_Answers::take(const Framing& framing, Byte_View received,
                                                     std::size_t from) {
    for (auto entry = expected_.begin(); entry != expected_.end(); ++entry) {
        Late late{framing.find(entry->request, received, from), entry->request, entry->heldUntil,
                  entry->until, entry->foreign};
        if (late.finding.verdict != Finding::Verdict::Found) continue;
        // An exception doesn't say which of several requests it refuses: then none of them is over.
        const auto another = [&](const Expected& other) {
            return sameFunction(other.request, late.request) && !(other.request == late.request);
        };
        const bool exception = late.finding.answer.exception.has_value();
        if (!exception || std::none_of(expected_.begin(), expected_.end(), another)) expected_.erase(entry);
        lineFree();
        return late;
    }
    return std::nullopt;
}

bool Late_Answers::exceptionAmbiguous(const Rtu_Request& request, Micros now) const {
    return std::any_of(expected_.begin(), expected_.end(), [&](const Expected& entry) {
        return entry.heldUntil > now && sameFunction(entry.request, request);
    });
}

} // namespace zorvane
