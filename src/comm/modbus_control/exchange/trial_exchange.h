// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/rtu_transaction.h"

#include <functional>
#include <memory>
#include <optional>

namespace zorvane {

/// What the port dialog's test tries out.
struct Trial_Request {
    Port_Settings settings;
    std::int32_t timeOutMs = 500;   ///< the one in force, which may be the template's
    std::int32_t firstRegister = 0; ///< the register to read, as the template numbers it
    std::uint16_t wireAddress = 0;  ///< the same on the wire

    [[nodiscard]] Rtu_Request frame() const;
};

/// What came of it.
struct Trial_Report {
    Port_Opening opening;
    std::optional<Try_Result> exchange; ///< none when the port couldn't be opened
};

/// One read of one register on a port of its own. It never blocks: it is driven by port and clock, and tells
/// its end from the event loop.
class Trial_Exchange final : private Transaction_Listener {
  public:
    using Done = std::function<void(const Trial_Report&)>;

    /// Both must outlive it.
    Trial_Exchange(Byte_Port& port, Link_Clock& clock);
    ~Trial_Exchange() override;
    Trial_Exchange(const Trial_Exchange&) = delete;
    Trial_Exchange& operator=(const Trial_Exchange&) = delete;

    /// Opens the port, asks once and closes the port; then `done` is called, once. REQUIRES: `!running()`,
    /// usable settings.
    void start(const Trial_Request& request, Done done);
    /// Closes the port; `done` isn't called any more.
    void cancel();
    [[nodiscard]] bool running() const { return static_cast<bool>(done_); }

  private:
    void requestSent() override {}
    void tryFinished(const Try_Result& result) override;
    void strayReceived(Micros, const Byte_Array&, const std::string&) override {}
    void lineLost(const std::string&) override {} // the try that it ended was told before
    void openingEnded(const Port_Opening& opening) override;
    void ask();
    void ring();

    Byte_Port& port_;
    Link_Clock& clock_;
    Rtu_Transaction transaction_;
    std::unique_ptr<Alarm> end_;
    Trial_Request request_;
    Trial_Report report_;
    Done done_;
};

} // namespace zorvane
