// SPDX-License-Identifier: MIT
#include "simulator/controller/controller.h"

#include "simulator/faults/fault_effect.h"

#include <algorithm>
#include <utility>

namespace zorvane::simulator {

namespace {

constexpr int broadcastUnit = 0;
constexpr int mostReadRegisters = 125;
constexpr int mostWrittenRegisters = 123;
/// Faults and quirks don't share their dice: one more of the one leaves the others as they were.
constexpr std::uint64_t quirkSeed = 0x5155'4952'4B53'0001U;

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

void nameQuirks(Frame_Record& record, const std::vector<const Quirk_Rule*>& quirks) {
    for (const Quirk_Rule* rule : quirks)
        record.quirk += (record.quirk.empty() ? "" : ", ") + rule->text;
}

Bytes asItIs(Bytes_View frame) { return {frame.begin(), frame.end()}; }

} // namespace

Controller::Controller(const Register_Map& map, int unit, std::vector<Fault_Rule> faults, std::uint64_t seed,
                       Controller_Traits traits)
    : slave_(unit), memory_(slave_, seed), picker_(std::move(faults), seed),
      quirks_(std::move(traits.quirks), seed ^ quirkSeed), dice_(~seed), unit_(unit), objects_(map.objects),
      exchange_(std::move(traits.exchange)) {
    memory_.load(map, quirks_.drifts());
    memory_.storeLate(traits.storeDelay, std::move(traits.keep));
}

std::uint16_t Controller::value(std::int32_t number) const {
    return memory_.value(static_cast<std::uint16_t>(number - addressBase()));
}

std::optional<Instant> Controller::nextMoment() const {
    const auto store = memory_.nextStore();
    return powerBackAt_ && (!store || *powerBackAt_ < *store) ? powerBackAt_ : store;
}

std::vector<std::string> Controller::elapse(Instant now) {
    memory_.elapse(now);
    if (!powerBackAt_ || now < *powerBackAt_) return {};
    powerBackAt_.reset();
    return {"power on"};
}

Reaction Controller::take(Bytes_View request, Instant now, const Envelope& envelope) {
    Reaction reaction;
    reaction.events = elapse(now);
    const Frame_Facts facts = requestFacts(request);
    reaction.received = {Direction::In, Bytes(request.begin(), request.end()), facts, "", {}, ""};
    if (facts.unit != unit_ && facts.unit != broadcastUnit) {
        reaction.received.note = "another unit";
        return reaction;
    }
    if (powerIsCut(facts, reaction, now)) return reaction;
    execute(request, reaction, now, envelope ? envelope : Envelope(asItIs));
    if (newUnit_) unit_ = slave_.setUnit(*std::exchange(newUnit_, std::nullopt));
    exchangeWhenDue(reaction);
    return reaction;
}

bool Controller::powerIsCut(const Frame_Facts& facts, Reaction& reaction, Instant now) {
    if (!powerBackAt_) {
        const Quirks cuts = quirks_.pick(Quirk_Stage::Power, facts.function, touched(facts));
        if (cuts.empty()) return false;
        nameQuirks(reaction.received, cuts);
        memory_.losePower();
        powerBackAt_ = now + std::chrono::milliseconds(cuts.front()->value);
        reaction.powerOff = true;
        reaction.events.emplace_back("power off");
    }
    reaction.received.note = "no power";
    return true;
}

void Controller::execute(Bytes_View request, Reaction& reaction, Instant now, const Envelope& envelope) {
    const Frame_Facts facts = *reaction.received.facts;
    auto exception = refusal(request, facts);
    if (!exception) exception = quirkRefusal(facts);
    const bool broadcast = facts.unit == broadcastUnit;
    const Touched_Registers registers = touched(facts);
    const Fault_Rule* fault =
        broadcast ? nullptr
                  : picker_.pick({facts.function, registers.first, registers.last, exception.has_value()});
    if (isWrite(facts.function))
        reaction.received.taken = !exception && (fault == nullptr || executes(fault->kind));
    if (fault != nullptr) reaction.received.fault = fault->text;
    if (broadcast) reaction.received.note = "broadcast";
    if (broadcast && exception) return;
    answerTo(request, fault, exception, reaction, now, envelope);
}

void Controller::answerTo(Bytes_View request, const Fault_Rule* fault, std::optional<int> exception,
                          Reaction& reaction, Instant now, const Envelope& envelope) {
    const Sealer sealed = [this](Bytes_View body) { return slave_.sealed(body); };
    const Frame_Facts facts = *reaction.received.facts;
    const bool executed = fault == nullptr || executes(fault->kind);
    const Bytes answer = executed ? rightAnswer(request, exception, reaction.received, now)
                                  : replacedAnswer(*fault, request, sealed, dice_);
    if (fault == nullptr && !exception && facts.function == functionReadRegisters)
        forEachAddress(facts, [this](std::uint16_t address) { memory_.hasBeenRead(address); });
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
    const Damaged_Answer sent = fault != nullptr ? damagedAnswer(*fault, answer, sealed, dice_, envelope)
                                                 : Damaged_Answer{envelope(answer), answer};
    if (sent.bytes.empty()) return;
    const bool late = fault != nullptr && fault->kind == Fault_Kind::Late;
    Frame_Record record{Direction::Out,          sent.bytes, answerFacts(sent.frame, facts),
                        reaction.received.fault, {},         ""};
    reaction.outgoing.push_back(
        {sent.bytes, false, std::chrono::milliseconds(late ? fault->value : 0), std::move(record)});
}

std::optional<int> Controller::refusal(Bytes_View request, const Frame_Facts& facts) {
    if (asksForIdentification(request) && !objects_.empty()) {
        const auto answer = identificationAnswer(objects_, request);
        const int* const exception = std::get_if<int>(&answer);
        return exception != nullptr ? std::optional<int>(*exception) : std::nullopt;
    }
    if (facts.function != functionReadRegisters && !isWrite(facts.function)) return exceptionIllegalFunction;
    if (!quantityAllowed(facts)) return exceptionIllegalValue;
    if (*facts.address + *facts.quantity > 0x10000) return exceptionIllegalAddress;
    const bool reading = facts.function == functionReadRegisters;
    bool allThere = true;
    forEachAddress(facts, [&](std::uint16_t address) {
        allThere = allThere && memory_.knows(address) && !(reading && memory_.refusesReading(address));
    });
    return allThere ? std::nullopt : std::optional<int>(exceptionIllegalAddress);
}

std::optional<int> Controller::quirkRefusal(const Frame_Facts& facts) {
    const Quirks quirks = quirks_.pick(Quirk_Stage::Refusal, facts.function, touched(facts));
    if (quirks.empty()) return std::nullopt;
    if (refusesReading(quirks)) return exceptionIllegalAddress;
    std::map<std::int32_t, std::uint16_t> written;
    for (std::size_t i = 0; i < facts.values.size(); ++i)
        written[*facts.address + addressBase() + static_cast<std::int32_t>(i)] = facts.values[i];
    const auto held = [this](std::int32_t number) { return memory_.numbered(number); };
    return beyondLimit(quirks, written, held) ? std::optional<int>(exceptionIllegalValue) : std::nullopt;
}

Touched_Registers Controller::touched(const Frame_Facts& facts) const {
    if (!facts.address) return {};
    const std::int32_t first = *facts.address + addressBase();
    return {first, first + std::max<int>(*facts.quantity, 1) - 1};
}

Bytes Controller::rightAnswer(Bytes_View request, std::optional<int> exception, Frame_Record& received,
                              Instant now) {
    if (exception)
        return exceptionAnswer(request, *exception, [this](Bytes_View body) { return slave_.sealed(body); });
    if (isWrite(received.facts->function)) return writeAnswer(request, received, now);
    if (asksForIdentification(request)) return identification(request);
    return slave_.answer(request);
}

Bytes Controller::identification(Bytes_View request) {
    return slave_.sealed(std::get<Bytes>(identificationAnswer(objects_, request)));
}

/// libmodbus puts what was sent into the registers; what they really take is put there afterwards.
Bytes Controller::writeAnswer(Bytes_View request, Frame_Record& received, Instant now) {
    const Frame_Facts& facts = *received.facts;
    std::vector<std::uint16_t> before;
    forEachAddress(facts, [&](std::uint16_t address) { before.push_back(slave_.value(address)); });
    Bytes answer = slave_.answer(request);
    const Quirks quirks = quirks_.pick(Quirk_Stage::Storing, facts.function, touched(facts));
    nameQuirks(received, quirks);
    std::vector<std::uint16_t> stored;
    for (std::size_t i = 0; i < facts.values.size(); ++i) {
        const auto address = static_cast<std::uint16_t>(*facts.address + i);
        const std::int32_t number = address + addressBase();
        slave_.setValue(address, before.at(i));
        if (const auto value = storedValue(quirks, number, facts.values[i]))
            memory_.write(address, *value, now, hiddenTime(quirks, number));
        stored.push_back(memory_.value(address));
        if (const auto unit = unitWritten(quirks, number, stored.back())) newUnit_ = unit;
    }
    memory_.elapse(now);
    if (stored != facts.values) received.stored = std::move(stored);
    return answer;
}

void Controller::exchangeWhenDue(Reaction& reaction) {
    ++taken_;
    if (!exchange_ || taken_ < exchange_->after) return;
    memory_.stopKeeping();
    memory_.load(exchange_->registers, quirks_.drifts());
    objects_ = exchange_->registers.objects;
    exchange_.reset();
    reaction.events.emplace_back("exchanged");
}

} // namespace zorvane::simulator
