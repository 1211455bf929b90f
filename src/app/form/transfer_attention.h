// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace zorvane::app {

/// What a desktop does about a transfer.
struct Attention_Hooks {
    std::function<void(bool on)> keepAwake;
    std::function<bool()> inFront; ///< somebody looks at the window
    std::function<void(const std::string& text)> tell;
};

/// While a transfer runs the computer doesn't sleep, and when it has ended and the window isn't in front, the
/// user is told.
class Transfer_Attention {
  public:
    explicit Transfer_Attention(Attention_Hooks hooks) : hooks_(std::move(hooks)) {}

    /// The progress form of a transfer is shown.
    void progressShown();
    /// The main form takes input from now on, or doesn't. `message` is what its status bar says.
    void formEnabled(bool enabled, const std::string& message);

  private:
    Attention_Hooks hooks_;
    bool running_ = false;
};

} // namespace zorvane::app
