// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/traffic_rows.h"

#include <cstddef>
#include <deque>

namespace zorvane {

/// Keeps the newest entries of the traffic, and hands each on to another listener.
class Last_Traffic final : public Traffic_Listener {
  public:
    explicit Last_Traffic(std::size_t limit) : limit_(limit) {}

    /// Who sees the traffic next; null for nobody. It outlives its use.
    void setNext(Traffic_Listener* next) { next_ = next; }
    /// The oldest first.
    [[nodiscard]] const std::deque<Traffic_Entry>& entries() const { return entries_; }

    void exchangeSeen(const Exchange_Record& exchange) override;
    void straySeen(const Stray_Record& stray) override;
    void portNoted(Micros at, const std::string& text) override;

  private:
    void keep(Traffic_Entry entry);

    std::size_t limit_;
    Traffic_Listener* next_ = nullptr;
    std::deque<Traffic_Entry> entries_;
};

} // namespace zorvane
