// SPDX-License-Identifier: MIT
#include "commission/sending_rules.h"

namespace zorvane::commission {

namespace {

constexpr std::uint8_t exceptionAcknowledge = 5; ///< taken, and at work on it
constexpr std::uint8_t exceptionBusy = 6;

std::optional<std::uint16_t> valueOf(const Known_Values& values, std::int32_t number) {
    const auto found = values.find(number);
    if (found == values.end()) return std::nullopt;
    return found->second;
}

} // namespace

bool mayHaveBeenTaken(const Unit_Answer& answer) noexcept {
    return answer.good() || answer.mayHaveArrived() || answer.exception == exceptionAcknowledge;
}

bool isBusy(const Unit_Answer& answer) noexcept { return answer.exception == exceptionBusy; }

std::string_view writeEndWord(Unit_End end) noexcept {
    switch (end) {
    case Unit_End::Answered:
        return "acknowledged";
    case Unit_End::Refused:
        return "refused";
    case Unit_End::Silent:
        return "no answer";
    case Unit_End::PortLost:
        return "port lost";
    case Unit_End::Cancelled:
    case Unit_End::NotSent:
        break;
    }
    return "not sent";
}

std::optional<std::string> otherwiseThanBefore(const Plan_Write& write, const Known_Values& before,
                                               const compare::Controller_Registers& now) {
    for (std::size_t i = 0; i < write.parts.size(); ++i) {
        const std::int32_t number = write.address + static_cast<std::int32_t>(i);
        const auto was = valueOf(before, number);
        const auto is = now.valueAt(number);
        if (write.parts[i] != Part::Kept || !was || !is || *was == *is) continue;
        return "register " + std::to_string(number) + " of its block was " + std::to_string(*was) +
               " and is " + std::to_string(*is) + " now";
    }
    return std::nullopt;
}

bool isAsBefore(const Plan_Write& write, const Known_Values& before, const std::vector<std::uint16_t>& now) {
    for (std::size_t i = 0; i < write.parts.size(); ++i) {
        const auto was = valueOf(before, write.address + static_cast<std::int32_t>(i));
        if (!was || !samePart(write.parts[i], *was, now[i])) return false;
    }
    return true;
}

} // namespace zorvane::commission
