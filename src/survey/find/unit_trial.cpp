// SPDX-License-Identifier: MIT
#include "survey/find/unit_trial.h"

#include "comm/modbus_control/line/network_port.h"

namespace zorvane::survey {

namespace {

constexpr std::uint8_t gatewayPath = 10;
constexpr std::uint8_t gatewayTarget = 11;
/// Fewer bytes are noise and no answer that was damaged.
constexpr std::size_t leastOfAnswer = 3;
/// A unit that answered once isn't given up before it was silent more often than this in a row.
constexpr int silentAtMost = 2;

Try_Kind kindOfFault(Answer_Fault fault) {
    switch (fault) {
    case Answer_Fault::Nothing:
    case Answer_Fault::OnlyEcho:
    case Answer_Fault::OtherNumber: // an answer to an earlier read
        return Try_Kind::Silence;
    case Answer_Fault::OtherUnit:
        return Try_Kind::Stranger;
    default:
        return Try_Kind::Damaged;
    }
}

} // namespace

Try_Kind kindOf(const Try_Result& result, const Port_Settings& port) {
    if (!result.answer) {
        const Framing& framing = framingOf(port.port);
        const bool mayEcho = !framing.numbersRequests();
        const std::size_t from = mayEcho ? endOfEcho(result.sent, result.received).value_or(0) : 0;
        if (result.received.size() - from < leastOfAnswer) return Try_Kind::Silence;
        return kindOfFault(framing.whyNoAnswer(result.request, result.received, from));
    }
    if (!result.answer->exception) return Try_Kind::Answer;
    return isGatewayException(*result.answer->exception) ? Try_Kind::Gateway : Try_Kind::Refusal;
}

bool isGatewayException(std::uint8_t code) noexcept { return code == gatewayPath || code == gatewayTarget; }

Micros answerTimeOf(const Try_Result& result, const Port_Settings& port) {
    const bool onLine = !framingOf(port.port).numbersRequests();
    return result.endedAt - result.startedAt - (onLine ? wireTime(port.line, result.sent.size()) : 0);
}

Unit_Trial::Next Unit_Trial::take(const Try_Result& result, const Port_Settings& port) {
    const Try_Kind kind = kindOf(result, port);
    ++tries_;
    silent_ = kind == Try_Kind::Silence ? silent_ + 1 : 0;
    if (kind == Try_Kind::Damaged) ++damaged_;
    if (kind == Try_Kind::Answer || kind == Try_Kind::Refusal) times_.add(answerTimeOf(result, port));
    if (kind == Try_Kind::Answer && !values_.insert(result.answer->registers.at(0)).second) there_ = true;
    if (kind == Try_Kind::Refusal) {
        there_ = true;
        if (!refusal_) refusal_ = result.answer->exception;
    }
    return next();
}

bool Unit_Trial::mostlyDamaged() const {
    constexpr std::int32_t least = 3;
    return damaged_ >= least && 2 * damaged_ > tries_;
}

Unit_Trial::Next Unit_Trial::next() const {
    if (there_) {
        const bool enough =
            times_.count() >= static_cast<std::uint64_t>(reads_) || tries_ >= 2 * reads_ + usualPatience;
        return enough ? Next::Found : Next::Ask;
    }
    const bool cameSomething = !values_.empty() || damaged_ > 0;
    if (!cameSomething || silent_ > silentAtMost) return Next::NotThere;
    return tries_ < (values_.empty() ? patience_ : usualPatience) ? Next::Ask : Next::NotThere;
}

} // namespace zorvane::survey
