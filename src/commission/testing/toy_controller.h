// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/unit_access.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace zorvane::commission::doubles {

/// The program was killed at this moment.
struct Killed {};

/// A controller on a line, in memory. What it acknowledges it keeps. Each request takes ten milliseconds; a
/// test may strike at any of them.
class Toy_Controller final : public Unit_Writer {
  public:
    enum class Strike {
        None,
        Kill_Before,  ///< the program dies before the request is out
        Kill_After,   ///< and after the controller took it
        Lose_Request, ///< nothing arrives, nothing comes back
        Lose_Answer,  ///< taken, and nobody hears of it
        Unplug_Before,
        Unplug_After,
        Power_Cut, ///< taken or not, and silent for a while
        Exchange,  ///< another controller is there from here on
        Cancel,    ///< somebody ends it before the request is out
    };

    [[nodiscard]] Unit_Answer read(std::int32_t unit, std::int32_t first, std::int32_t count) override {
        Unit_Answer answer = begin(unit);
        if (answer.end != Unit_End::Answered) return answer;
        for (std::int32_t number = first; number < first + count; ++number) {
            const auto found = held().find(number);
            if (found == held().end() || unreadable.contains(number)) return refused(2);
            answer.values.push_back(found->second);
        }
        return finish(answer);
    }

    [[nodiscard]] Unit_Answer readObjects(std::int32_t unit, std::int32_t /*highest*/) override {
        ++objectRequests;
        Unit_Answer answer = begin(unit);
        if (answer.end != Unit_End::Answered) return answer;
        const std::map<std::int32_t, std::string>& own = exchanged_ ? otherObjects : objects;
        if (own.empty()) return refused(1);
        answer.objects = own;
        return finish(answer);
    }

    [[nodiscard]] Unit_Answer write(std::int32_t unit, Function_Code /*function*/, std::int32_t first,
                                    const std::vector<std::uint16_t>& values) override {
        ++writes;
        Unit_Answer answer = begin(unit);
        if (answer.end != Unit_End::Answered) return answer;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::int32_t number = first + static_cast<std::int32_t>(i);
            if (refusing.contains(number)) return refused(refusal);
            if (!held().contains(number)) return refused(2);
        }
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::int32_t number = first + static_cast<std::int32_t>(i);
            held()[number] = onStore ? onStore(number, values[i]) : values[i];
        }
        if (exchanged_) ++writesToOther;
        return finish(answer);
    }

    [[nodiscard]] bool setLine(const Line_Settings& line) override {
        settings = line;
        return true;
    }
    [[nodiscard]] bool openAgain() override { return open_ = true; }
    void pause(Micros span) override { now_ += span; }
    [[nodiscard]] Micros now() const override { return now_; }
    [[nodiscard]] bool cancelled() const override { return isCancelled && isCancelled(); }

    /// Strikes at the request with this number, counted from 0 over all.
    void strikeAt(std::size_t request, Strike strike) {
        strikeAt_ = request;
        strike_ = strike;
    }
    [[nodiscard]] std::size_t requests() const { return requests_; }
    /// Whatever was struck works again.
    void restart() {
        silentUntil_ = 0;
        open_ = true;
    }

    std::map<std::int32_t, std::uint16_t> registers;
    std::map<std::int32_t, std::uint16_t> other;        ///< of the controller that takes its place
    std::map<std::int32_t, std::string> objects{};      ///< of function 43/14; none: the function is refused
    std::map<std::int32_t, std::string> otherObjects{}; ///< of the controller that takes its place
    int objectRequests = 0;
    std::set<std::int32_t> unreadable;
    std::set<std::int32_t> refusing;
    std::uint8_t refusal = 3;                                          ///< the exception with which it does
    std::function<std::uint16_t(std::int32_t, std::uint16_t)> onStore; ///< what it keeps; may be empty
    std::function<bool()> isCancelled;                                 ///< may be empty
    std::function<void()> onRequest; ///< while one is under way; may be empty
    std::set<std::int32_t> units{1};
    Line_Settings settings;
    Micros requestTime = 10 * microsPerMs;
    std::vector<std::int32_t> askedUnits; ///< by each request
    int writes = 0;
    int writesToOther = 0;
    bool takesAtPowerCut = false;

  private:
    [[nodiscard]] std::map<std::int32_t, std::uint16_t>& held() { return exchanged_ ? other : registers; }

    Unit_Answer begin(std::int32_t unit) {
        now_ += requestTime;
        askedUnits.push_back(unit);
        if (onRequest) onRequest();
        struck_ = requests_++ == strikeAt_ ? strike_ : Strike::None;
        if (struck_ == Strike::Kill_Before) throw Killed{};
        if (struck_ == Strike::Exchange) exchanged_ = true;
        Unit_Answer answer;
        answer.at = now_;
        answer.end = Unit_End::Cancelled;
        if (struck_ == Strike::Cancel) return answer;
        answer.requests = 1;
        if (struck_ == Strike::Unplug_Before) open_ = false;
        if (!open_) return lost(answer, struck_ == Strike::Unplug_Before ? 1 : 0);
        if (struck_ == Strike::Power_Cut) silentUntil_ = now_ + 3 * microsPerSecond;
        const bool cut = struck_ == Strike::Power_Cut && takesAtPowerCut;
        const bool dark = now_ < silentUntil_ && !cut;
        if (struck_ == Strike::Lose_Request || !units.contains(unit) || dark) return silent(answer);
        answer.end = Unit_End::Answered;
        return answer;
    }

    Unit_Answer finish(const Unit_Answer& answer) {
        if (struck_ == Strike::Kill_After) throw Killed{};
        if (struck_ == Strike::Lose_Answer || struck_ == Strike::Power_Cut) return silent(answer);
        if (struck_ != Strike::Unplug_After) return answer;
        open_ = false;
        return lost(answer, 1);
    }

    Unit_Answer silent(Unit_Answer answer) {
        now_ += 200 * microsPerMs;
        answer.end = Unit_End::Silent;
        answer.values.clear();
        answer.fault = "no answer";
        return answer;
    }

    static Unit_Answer lost(Unit_Answer answer, std::int32_t requests) {
        answer.end = Unit_End::PortLost;
        answer.requests = requests;
        answer.values.clear();
        answer.fault = "port lost";
        return answer;
    }

    [[nodiscard]] Unit_Answer refused(std::uint8_t code) const {
        Unit_Answer answer;
        answer.at = now_;
        answer.requests = 1;
        answer.end = Unit_End::Refused;
        answer.exception = code;
        answer.fault = "exception " + std::to_string(code);
        return answer;
    }

    Micros now_ = microsPerSecond;
    Micros silentUntil_ = 0;
    bool open_ = true;
    bool exchanged_ = false;
    std::size_t requests_ = 0;
    std::size_t strikeAt_ = static_cast<std::size_t>(-1);
    Strike strike_ = Strike::None;
    Strike struck_ = Strike::None; ///< at the present request
};

} // namespace zorvane::commission::doubles
