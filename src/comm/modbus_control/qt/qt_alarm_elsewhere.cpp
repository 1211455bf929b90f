// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_alarm.h"
#include "comm/modbus_control/qt/qt_link_clock.h"

#include <QTimer>

#include <algorithm>
#include <chrono>
#include <utility>

namespace zorvane {

namespace {

class Timer_Alarm final : public Alarm {
  public:
    explicit Timer_Alarm(std::function<void()> ring) : ring_(std::move(ring)) {
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.setSingleShot(true);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { ring_(); });
    }

    void armAt(Micros when) override {
        const Micros wait = std::max<Micros>(when - Qt_Link_Clock().now(), 0);
        timer_.start(std::chrono::milliseconds((wait + microsPerMs - 1) / microsPerMs));
    }
    void disarm() override { timer_.stop(); }

  private:
    std::function<void()> ring_;
    QTimer timer_;
};

} // namespace

std::unique_ptr<Alarm> makeQtAlarm(std::function<void()> ring) {
    return std::make_unique<Timer_Alarm>(std::move(ring));
}

} // namespace zorvane
