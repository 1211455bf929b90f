// SPDX-License-Identifier: MIT
#pragma once

namespace zorvane::ctl {

/// What a call says that was asked to end while it opened its port.
inline constexpr const char* stoppedAtOpening = "Stopped before the port was open. Nothing was sent.";

/// Whether somebody has asked a call to end before its time.
class Stop_Wish {
  public:
    virtual ~Stop_Wish() = default;
    /// The name of the signal that asked, such as "SIGINT"; null as long as none did.
    [[nodiscard]] virtual const char* signal() const = 0;

    [[nodiscard]] bool asked() const { return signal() != nullptr; }
};

/// Where nobody can ask.
class No_Stop_Wish : public Stop_Wish {
  public:
    [[nodiscard]] const char* signal() const override { return nullptr; }
};

} // namespace zorvane::ctl
