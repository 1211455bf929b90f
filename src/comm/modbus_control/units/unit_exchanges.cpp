// SPDX-License-Identifier: MIT
#include "comm/modbus_control/units/unit_exchanges.h"

#include "comm/modbus_control/exchange/exchange_text.h"
#include "comm/modbus_control/reading_choice.h"

#include <algorithm>
#include <utility>

namespace zorvane {

namespace {

constexpr const char* cancelledText = "stopped";
constexpr std::uint8_t exceptionBusy = 6;
constexpr Micros busyPause = 200 * microsPerMs;

/// What is known once a try has ended; the counts of the tries before stay.
void takeTry(Unit_Answer& answer, const Try_Result& result) {
    if (!result.sent.empty()) ++answer.requests;
    if (!result.answer && !result.received.empty() && !result.portLost) ++answer.damaged;
    answer.echoed = answer.echoed || result.echoed;
    answer.at = result.endedAt;
    answer.fault = result.fault;
    answer.exception = 0;
    if (result.portLost) {
        answer.end = Unit_End::PortLost;
    } else if (!result.answer) {
        answer.end = result.sent.empty() ? Unit_End::NotSent : Unit_End::Silent;
    } else if (result.answer->exception) {
        answer.end = Unit_End::Refused;
        answer.exception = *result.answer->exception;
        answer.fault = exceptionText(answer.exception);
    } else {
        answer.end = Unit_End::Answered;
    }
}

/// From the end of the request, by the line's speed, to that of its answer.
Micros answerTimeOf(const Port_Settings& settings, const Try_Result& result) {
    const Micros sending = wireTime(settings.line, result.sent.size());
    return std::max<Micros>(result.endedAt - result.startedAt - sending, 1);
}

Unit_Answer notSent(std::string fault, Micros now) {
    Unit_Answer answer;
    answer.fault = std::move(fault);
    answer.at = now;
    return answer;
}

} // namespace

Unit_Exchanges::Unit_Exchanges(Services services, const Port_Settings& settings)
    : services_(std::move(services)), settings_(settings), session_(services_.port, services_.finder),
      transaction_(services_.port, services_.clock, *this) {
    transaction_.setLine(settings_);
    applyWaits();
}

Unit_Exchanges::~Unit_Exchanges() { close(); }

// The port.

Port_Opening Unit_Exchanges::endOfOpening() {
    services_.wait([&] { return opening_ || cancelled(); });
    if (opening_) return *std::exchange(opening_, std::nullopt);
    services_.port.close();
    return {false, cancelledText, {}};
}

Port_Opening Unit_Exchanges::opened(Port_Opening opening) {
    if (opening.goesOn) opening = endOfOpening();
    if (opening.opened) {
        lossReason_.clear();
        transaction_.lineOpened();
    }
    return opening;
}

Port_Opening Unit_Exchanges::open() { return opened(session_.open(settings_)); }

bool Unit_Exchanges::openAgain() { return isOpen() || opened(session_.reopen(settings_)).opened; }

void Unit_Exchanges::close() {
    transaction_.abandon();
    services_.port.close();
}

bool Unit_Exchanges::setLine(const Line_Settings& line) {
    const bool wasOpen = isOpen();
    close();
    settings_.line = line;
    transaction_.setLine(settings_);
    return !wasOpen || openAgain();
}

void Unit_Exchanges::SetTimings(std::int32_t requestMs, std::int32_t outMs) {
    requestMs_ = requestMs;
    outMs_ = outMs;
    applyWaits();
}

void Unit_Exchanges::applyWaits() {
    const std::int32_t timeOut = outMs_ > 0 ? outMs_ : settings_.timeOutMs;
    transaction_.setWaits(std::max(requestMs_, 0) * microsPerMs, timeOut * microsPerMs);
}

void Unit_Exchanges::pause(Micros span) {
    bool over = false;
    const auto alarm = services_.clock.makeAlarm([&over] { over = true; });
    alarm->armAt(now() + span);
    services_.wait([&] { return over || cancelled(); });
}

// One try.

std::optional<Try_Result> Unit_Exchanges::exchange(const Rtu_Request& request, bool mayCancel) {
    result_.reset();
    sent_ = false;
    transaction_.submit(request, Line_Care::Quiet);
    services_.wait([&] { return result_ || ((mayCancel || !sent_) && cancelled()); });
    if (!result_) transaction_.abandon();
    auto result = std::exchange(result_, std::nullopt);
    if (result && result->portLost) result->fault = lossReason_;
    if (result && told_) told_(*result);
    return result;
}

void Unit_Exchanges::tryFinished(const Try_Result& result) { result_ = result; }

// Reading.

/// A reading of registers that may take several requests.
class Unit_Exchanges::Reading {
  public:
    Reading(Unit_Exchanges& line, std::int32_t unit) : line_(line), unit_(unit) {}

    [[nodiscard]] Unit_Answer run(std::int32_t first, std::int32_t count) {
        answer_.end = Unit_End::Answered;
        for (std::int64_t at = first; at < std::int64_t{first} + count; at += largestRead) {
            const std::int64_t rest = std::int64_t{first} + count - at;
            const Scan_Frame frame{unit_, static_cast<std::int32_t>(at),
                                   static_cast<std::uint16_t>(std::min<std::int64_t>(rest, largestRead))};
            if (!readFrame(frame)) break;
        }
        if (!answer_.good()) answer_.values.clear();
        return answer_;
    }

  private:
    /// False when the frame couldn't be read.
    bool readFrame(const Scan_Frame& frame) {
        std::vector<std::uint16_t> values;
        std::int32_t failed = 0;
        bool inParts = true;
        std::optional<Rtu_Request> last;
        while (values.size() < frame.count) {
            if (line_.cancelled()) return cancel();
            const Rtu_Request request = next(frame, values.size(), inParts, last);
            const auto result = line_.exchange(request, true);
            if (!result) return cancel();
            takeTry(answer_, *result);
            last = request;
            if (answer_.good()) {
                answer_.answerTime = answerTimeOf(line_.settings_, *result);
                values.insert(values.end(), result->answer->registers.begin(),
                              result->answer->registers.end());
            } else if (wholeInstead(frame, request, inParts)) {
                values.clear();
                last.reset();
            } else if (!isWorthATry() || ++failed > line_.settings_.retries) {
                return false;
            } else if (answer_.end == Unit_End::Refused) {
                line_.pause(busyPause);
            }
        }
        answer_.values.insert(answer_.values.end(), values.begin(), values.end());
        return true;
    }

    [[nodiscard]] Rtu_Request next(const Scan_Frame& frame, std::size_t done, bool inParts,
                                   const std::optional<Rtu_Request>& last) const {
        Scan_Frame rest = frame;
        rest.first += static_cast<std::int32_t>(done);
        rest.count = static_cast<std::uint16_t>(rest.count - done);
        const auto unit = static_cast<std::uint8_t>(unit_);
        const auto address = static_cast<std::uint16_t>(rest.first - line_.addressBase_);
        if (!inParts) return readRequest(unit, address, rest.count);
        return chooseReading(line_.transaction_, {rest, unit, address, line_.together_, last, true});
    }

    /// A controller that hands the registers out whole only is asked for all of them.
    [[nodiscard]] bool wholeInstead(const Scan_Frame& frame, const Rtu_Request& request,
                                    bool& inParts) const {
        const bool part = request.count < frame.count && inParts;
        if (answer_.end != Unit_End::Refused || !part || !saysNotInParts(answer_.exception)) return false;
        inParts = false;
        return true;
    }

    /// Nobody answered, or the controller is at something else for a moment.
    [[nodiscard]] bool isWorthATry() const {
        return answer_.end == Unit_End::Silent ||
               (answer_.end == Unit_End::Refused && answer_.exception == exceptionBusy);
    }

    bool cancel() {
        answer_.end = Unit_End::Cancelled;
        answer_.fault = cancelledText;
        answer_.at = line_.now();
        return false;
    }

    Unit_Exchanges& line_;
    std::int32_t unit_;
    Unit_Answer answer_;
};

Unit_Answer Unit_Exchanges::read(std::int32_t unit, std::int32_t first, std::int32_t count) {
    const auto size = static_cast<std::size_t>(std::max(count, 0));
    if (std::string why = unreachableText(unit, first, size, addressBase_); !why.empty())
        return notSent(std::move(why), now());
    if (!isOpen()) return lost();
    return Reading(*this, unit).run(first, count);
}

Unit_Answer Unit_Exchanges::readObjects(std::int32_t unit, std::int32_t highest) {
    if (std::string why = unreachableText(unit, addressBase_, 1, addressBase_); !why.empty())
        return notSent(std::move(why), now());
    if (!isOpen()) return lost();
    constexpr std::int32_t lastBasic = 2;
    constexpr std::int32_t lastRegular = 127;
    const Object_Level level = highest <= lastBasic     ? Object_Level::Basic
                               : highest <= lastRegular ? Object_Level::Regular
                                                        : Object_Level::Extended;
    Unit_Answer answer;
    for (std::int32_t left = std::min(settings_.retries, 1); left >= 0; --left) {
        const auto result = exchange(objectsRequest(static_cast<std::uint8_t>(unit), level), true);
        if (!result) {
            answer.end = Unit_End::Cancelled;
            answer.fault = cancelledText;
            answer.at = now();
            return answer;
        }
        takeTry(answer, *result);
        if (answer.good())
            for (const auto& [number, text] : result->answer->objects)
                answer.objects[number] = text;
        if (answer.end != Unit_End::Silent) break;
    }
    return answer;
}

// Writing.

Unit_Answer Unit_Exchanges::write(std::int32_t unit, Function_Code function, std::int32_t first,
                                  const std::vector<std::uint16_t>& values) {
    const bool single = function == Function_Code::PresetSingleRegister;
    const std::size_t most = single ? 1 : static_cast<std::size_t>(largestWrite);
    if (!isWrite(function) || values.size() > most)
        return notSent("no write of " + std::to_string(values.size()) + " registers", now());
    if (std::string why = unreachableText(unit, first, values.size(), addressBase_); !why.empty())
        return notSent(std::move(why), now());
    if (!isOpen()) return lost();
    const auto address = static_cast<std::uint16_t>(first - addressBase_);
    const auto number = static_cast<std::uint8_t>(unit);
    const auto result = exchange(single ? presetSingle(number, address, values.front())
                                        : presetMultiple(number, address, values),
                                 false);
    Unit_Answer answer;
    if (result) {
        takeTry(answer, *result);
        if (answer.good() || answer.end == Unit_End::Refused)
            answer.answerTime = answerTimeOf(settings_, *result);
    } else {
        answer.end = Unit_End::Cancelled;
        answer.fault = cancelledText;
        answer.at = now();
    }
    return answer;
}

Unit_Answer Unit_Exchanges::lost() const {
    Unit_Answer answer = notSent(lossReason_.empty() ? "the port isn't open" : lossReason_, now());
    answer.end = Unit_End::PortLost;
    return answer;
}

} // namespace zorvane
