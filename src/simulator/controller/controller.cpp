#include "simulator/controller/controller.h"

#include "simulator/controller/live_values.h"
#include "simulator/faults/fault_effect.h"

#include <utility>

namespace zorvane::simulator {

namespace {

constexpr int broadcastUnit = 0;
constexpr int mostReadRegisters = 125;
constexpr int mostWrittenRegisters = 123;

bool isWrite(int function) { return function == functionWriteRegister || function == functionWriteRegisters; }

bool quantityAllowed(const Frame_Facts& facts) {
    if (*facts.quantity < 1) return false;
    if (facts.function == functionReadRegisters) return *facts.quantity <= mostReadRegisters;
    return *facts.quantity <= mostWrittenRegisters && facts.byteCountFits;
}

/// Calls `visit` with each address that a request touches, as long as it lies on the wire.
template <class Visit> void forEachAddress(const Frame_Facts& facts, Visit visit) {
    for (int i = 0; i < *facts.quantity && *facts.address + i <= 0xFFFF; ++i)
        visit(static_cast<std::uint16_t>(*facts.address + i));
}

} // namespace

Controller::Controller(const Register_Map& map, int unit, std::vector<Fault_Rule> faults, std::uint64_t seed)
    : slave_(unit), picker_(std::move(faults), seed), dice_(~seed), unit_(unit), seed_(seed),
      addressBase_(map.addressBase) {
    for (const auto& [number, value] : map.values) {
        const auto address = static_cast<std::uint16_t>(number - addressBase_);
        known_.insert(address);
        slave_.setValue(address, value);
        const auto live = map.live.find(number);
        if (live != map.live.end()) live_[address] = {value, live->second, 0};
    }
}

std::uint16_t Controller::value(std::int32_t number) const {
    return slave_.value(static_cast<std::uint16_t>(number - addressBase_));
}

Reaction Controller::take(Bytes_View request) {
    Reaction reaction;
    const Frame_Facts facts = requestFacts(request);
    reaction.received = {Direction::In, Bytes(request.begin(), request.end()), facts, "", {}, ""};
    if (facts.unit != unit_ && facts.unit != broadcastUnit) {
        reaction.received.note = "another unit";
        return reaction;
    }
    const auto exception = refusal(facts);
    const bool broadcast = facts.unit == broadcastUnit;
    const Fault_Rule* fault = broadcast ? nullptr : picker_.pick(question(facts, exception.has_value()));
    if (isWrite(facts.function))
        reaction.received.taken = !exception && (fault == nullptr || executes(fault->kind));
    if (fault != nullptr) reaction.received.fault = fault->text;
    if (broadcast) reaction.received.note = "broadcast";
    if (broadcast && exception) return reaction;
    answerTo(request, fault, exception, reaction);
    return reaction;
}

void Controller::answerTo(Bytes_View request, const Fault_Rule* fault, std::optional<int> exception,
                          Reaction& reaction) {
    const Sealer sealed = [this](Bytes_View body) { return slave_.sealed(body); };
    const Frame_Facts& facts = *reaction.received.facts;
    const bool executed = fault == nullptr || executes(fault->kind);
    const Bytes answer =
        executed ? rightAnswer(request, exception) : replacedAnswer(*fault, request, sealed, dice_);
    if (executed && !exception && isWrite(facts.function)) noteWritten(facts);
    if (fault == nullptr && !exception && facts.function == functionReadRegisters) moveLive(facts);
    if (fault != nullptr && fault->kind == Fault_Kind::Unplug) {
        reaction.unplug = std::chrono::milliseconds(fault->value);
        return;
    }
    if (fault != nullptr && fault->kind == Fault_Kind::Echo) {
        const Bytes copy(request.begin(), request.end());
        reaction.outgoing.push_back(
            {copy, true, {}, {Direction::Out, copy, {}, fault->text, {}, "local echo"}});
    }
    if (answer.empty()) return;
    const Damaged_Answer sent =
        fault != nullptr ? damagedAnswer(*fault, answer, sealed, dice_) : Damaged_Answer{answer, answer};
    if (sent.bytes.empty()) return;
    const bool late = fault != nullptr && fault->kind == Fault_Kind::Late;
    Frame_Record record{Direction::Out,          sent.bytes, answerFacts(sent.frame, facts),
                        reaction.received.fault, {},         ""};
    reaction.outgoing.push_back(
        {sent.bytes, false, std::chrono::milliseconds(late ? fault->value : 0), std::move(record)});
}

std::optional<int> Controller::refusal(const Frame_Facts& facts) const {
    if (facts.function != functionReadRegisters && !isWrite(facts.function)) return exceptionIllegalFunction;
    if (!quantityAllowed(facts)) return exceptionIllegalValue;
    if (*facts.address + *facts.quantity > 0x10000) return exceptionIllegalAddress;
    bool allKnown = true;
    forEachAddress(facts, [&](std::uint16_t address) { allKnown = allKnown && known_.contains(address); });
    return allKnown ? std::nullopt : std::optional<int>(exceptionIllegalAddress);
}

Fault_Question Controller::question(const Frame_Facts& facts, bool refused) const {
    Fault_Question question;
    question.function = facts.function;
    question.refused = refused;
    if (!facts.address) return question;
    question.first = *facts.address + addressBase_;
    question.last = *question.first + std::max<int>(*facts.quantity, 1) - 1;
    return question;
}

Bytes Controller::rightAnswer(Bytes_View request, std::optional<int> exception) {
    if (!exception) return slave_.answer(request);
    return exceptionAnswer(request, *exception, [this](Bytes_View body) { return slave_.sealed(body); });
}

void Controller::noteWritten(const Frame_Facts& facts) {
    // What a client wrote stands: the register doesn't move by itself any more.
    forEachAddress(facts, [this](std::uint16_t address) { live_.erase(address); });
}

void Controller::moveLive(const Frame_Facts& facts) {
    forEachAddress(facts, [this](std::uint16_t address) {
        const auto found = live_.find(address);
        if (found == live_.end()) return;
        Live& live = found->second;
        ++live.readings;
        slave_.setValue(address,
                        liveValue(live.base, live.range, seed_, address + addressBase_, live.readings));
    });
}

} // namespace zorvane::simulator
