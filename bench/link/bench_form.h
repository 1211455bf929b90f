// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/held_form.h"

#include <QTimer>

#include <functional>

namespace zorvane::bench {

/// A main form without a window whose upload timer ticks, every 10 ms as in the window.
class Bench_Form : public ctl::Held_Form {
  public:
    /// `tick` is one tick of the upload.
    Bench_Form(std::int32_t fields, std::function<void()> tick);

    void setTimerEnabled(Timer_Name timer, bool enabled) override;

  private:
    QTimer uploadTimer_;
};

} // namespace zorvane::bench
