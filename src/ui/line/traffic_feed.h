// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/traffic_rows.h"

#include <QTimer>

#include <deque>
#include <functional>

namespace zorvane::ui {

/// Collects what the link reports and hands it on in one go, at most five times a second, since the whole
/// table is painted each time; no timer runs while nothing comes. Held back, or while nobody watches, it
/// keeps the newest entries only.
class Traffic_Feed final : public Traffic_Listener {
  public:
    using Show = std::function<void(std::vector<Traffic_Entry> entries)>;
    static constexpr int leastPauseMs = 200;

    explicit Traffic_Feed(Show show, std::size_t limit = Traffic_Rows::usualLimit);

    void exchangeSeen(const Exchange_Record& exchange) override { take(exchange); }
    void straySeen(const Stray_Record& stray) override { take(stray); }
    void portNoted(Micros at, const std::string& text) override { take(Port_Note{at, text}); }

    /// Called with each entry as it comes, whoever watches; may be empty.
    std::function<void(const Traffic_Entry& entry)> entrySeen;

    void setHeld(bool held);
    /// Whether the window is on the screen; at first it is.
    void setWatched(bool watched);
    [[nodiscard]] bool held() const { return held_; }
    [[nodiscard]] std::size_t waiting() const { return pending_.size(); }
    void clear() { pending_.clear(); }

  private:
    void take(Traffic_Entry entry);
    void hand();
    [[nodiscard]] bool flows() const { return watched_ && !held_; }

    Show show_;
    std::size_t limit_;
    std::deque<Traffic_Entry> pending_;
    QTimer timer_;
    bool held_ = false;
    bool watched_ = true;
};

} // namespace zorvane::ui
