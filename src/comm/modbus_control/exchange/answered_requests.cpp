// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/answered_requests.h"

#include <algorithm>

namespace zorvane {

namespace {

/// Whether it was answered in time and has so many registers.
bool isReadOf(const Answered_Requests::Entry& entry, std::uint16_t count) {
    return entry.took && entry.request.function == Function_Code::ReadHoldingRegisters &&
           entry.request.count == count;
}

} // namespace

void Answered_Requests::forgetPast(Micros now) {
    std::erase_if(entries_, [now](const Entry& entry) { return entry.until <= now; });
}

void Answered_Requests::add(const Rtu_Request& request, Byte_View answer, Micros until,
                            std::optional<Micros> took) {
    constexpr std::size_t mostKept = 64;
    if (entries_.size() >= mostKept) entries_.erase(entries_.begin());
    entries_.push_back({request, {answer.begin(), answer.end()}, until, took});
}

bool Answered_Requests::answersOne(const Framing& framing, Byte_View bytes) const {
    return std::any_of(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        const Finding finding = framing.find(entry.request, bytes, 0);
        return finding.verdict == Finding::Verdict::Found;
    });
}

Answered_Requests::Copy Answered_Requests::mayBeCopy(const Rtu_Request& request, Byte_View answer) const {
    if (request.function != Function_Code::ReadHoldingRegisters) return Copy::No;
    Copy copy = Copy::No;
    for (const Entry& entry : entries_) {
        if (!std::equal(entry.answer.begin(), entry.answer.end(), answer.begin(), answer.end())) continue;
        if (entry.request == request) return Copy::OfOwn;
        copy = Copy::OfOther;
    }
    return copy;
}

bool Answered_Requests::tooEarly(std::uint16_t count, Micros took) const {
    std::optional<Micros> shortest;
    for (const Entry& entry : entries_) {
        if (isReadOf(entry, count)) shortest = std::min(shortest.value_or(*entry.took), *entry.took);
    }
    return took < 0 && shortest && *shortest > 0;
}

bool Answered_Requests::hasFunction(const Rtu_Request& request) const {
    return std::any_of(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return entry.request.unit == request.unit && entry.request.function == request.function;
    });
}

Micros Answered_Requests::longest(std::uint16_t count) const {
    std::optional<Micros> longest;
    for (const Entry& entry : entries_) {
        if (isReadOf(entry, count)) longest = std::max(longest.value_or(*entry.took), *entry.took);
    }
    return longest.value_or(0);
}

} // namespace zorvane
