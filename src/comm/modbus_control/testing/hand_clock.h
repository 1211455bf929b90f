// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/link_clock.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace zorvane::testing {

inline constexpr Micros ms = microsPerMs;

/// A clock that stands still until a test moves it. Alarms and planned events happen at their times, in
/// order.
class Hand_Clock final : public Link_Clock {
  public:
    [[nodiscard]] Micros now() const override { return now_; }

    [[nodiscard]] std::unique_ptr<Alarm> makeAlarm(std::function<void()> ring) override {
        return std::make_unique<Hand_Alarm>(*this, std::move(ring));
    }

    /// Plans something for a time; what is planned for the same time happens in the order of planning.
    void at(Micros when, std::function<void()> event) { events_.push_back({when, std::move(event)}); }
    void in(Micros delay, std::function<void()> event) { at(now_ + delay, std::move(event)); }
    /// Drops what is planned; alarms stay.
    void forgetEvents() { events_.clear(); }

    void runUntil(Micros end) {
        while (step(end)) {
        }
        now_ = std::max(now_, end);
    }
    void runFor(Micros span) { runUntil(now_ + span); }

    /// Runs until the condition holds; false when `limit` passed before.
    template <class Condition> bool runUntilTrue(Condition condition, Micros limit) {
        const Micros end = now_ + limit;
        while (!condition()) {
            if (!step(end)) return condition();
        }
        return true;
    }

  private:
    class Hand_Alarm final : public Alarm {
      public:
        Hand_Alarm(Hand_Clock& clock, std::function<void()> ring) : clock_(clock), ring_(std::move(ring)) {
            clock_.alarms_.push_back(this);
        }
        Hand_Alarm(const Hand_Alarm&) = delete;
        Hand_Alarm& operator=(const Hand_Alarm&) = delete;
        ~Hand_Alarm() override { std::erase(clock_.alarms_, this); }

        void armAt(Micros when) override { when_ = when; }
        void disarm() override { when_.reset(); }

        [[nodiscard]] std::optional<Micros> when() const { return when_; }
        void ring() {
            when_.reset();
            ring_();
        }

      private:
        Hand_Clock& clock_;
        std::function<void()> ring_;
        std::optional<Micros> when_;
    };

    struct Event {
        Micros when;
        std::function<void()> happen;
    };

    /// The next event or alarm up to `end`; false when there is none. Events come before alarms of their
    /// time.
    bool step(Micros end) {
        const auto event = std::min_element(events_.begin(), events_.end(),
                                            [](const Event& a, const Event& b) { return a.when < b.when; });
        const Micros eventAt = event == events_.end() ? std::numeric_limits<Micros>::max() : event->when;
        Hand_Alarm* alarm = earliest();
        const Micros alarmAt = alarm == nullptr ? std::numeric_limits<Micros>::max() : *alarm->when();
        if (std::min(eventAt, alarmAt) > end) return false;
        now_ = std::max(now_, std::min(eventAt, alarmAt));
        if (eventAt <= alarmAt) {
            const std::function<void()> happen = std::move(event->happen);
            events_.erase(event);
            happen();
        } else {
            alarm->ring();
        }
        return true;
    }

    [[nodiscard]] Hand_Alarm* earliest() const {
        Hand_Alarm* first = nullptr;
        for (Hand_Alarm* alarm : alarms_) {
            if (!alarm->when()) continue;
            if (first == nullptr || *alarm->when() < *first->when()) first = alarm;
        }
        return first;
    }

    Micros now_ = 1000000;
    std::vector<Event> events_;
    std::vector<Hand_Alarm*> alarms_;
};

} // namespace zorvane::testing
