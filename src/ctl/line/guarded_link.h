// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form_state.h"
#include "ctl/line/forwarding_link.h"
#include "ctl/line/stop_wish.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// What is known of a write that was sent.
enum class Write_State {
    Written, ///< the controller acknowledged it
    Refused, ///< the controller answered with an exception, or nothing could be sent
    Unknown, ///< no answer in all tries, or the port was closed meanwhile: it may have been written
};

/// A write that a transfer sent.
struct Sent_Write {
    std::int32_t address = 0; ///< its first register
    std::int32_t count = 1;   ///< registers
    Write_State state = Write_State::Unknown;
    std::string answer{}; ///< what a refusal says

    bool operator==(const Sent_Write&) const = default;
};

/// The link of one transfer: it lists the writes with what became of them, and once the call is to stop, no
/// further request begins. The request that is under way then ends with its own tries; the form's
/// `Cancel_Requested` is set when it has.
class Guarded_Link : public Forwarding_Link {
  public:
    /// All three outlive it.
    Guarded_Link(modbus_control& link, Session_State& session, const Stop_Wish& stop);
    ~Guarded_Link() override { link_.onExchange({}); }
    Guarded_Link(const Guarded_Link&) = delete;
    Guarded_Link& operator=(const Guarded_Link&) = delete;

    /// In the order in which they went out.
    [[nodiscard]] const std::vector<Sent_Write>& writes();

    void PrepareScan() override;
    void OpenPort() override { PrepareScan(); }
    void StartScan() override;
    void ResumeScan() override;
    void StopScan() override;
    void ClearLastResponse() override;
    void PresetSingleRegister(std::int32_t slave, std::int32_t address, std::int32_t value) override;
    void PresetMultipleRegisters(std::int32_t slave, std::int32_t startAddress,
                                 const std::vector<std::int32_t>& values) override;
    [[nodiscard]] bool WriteFailed() const override { return dropped_ || link_.WriteFailed(); }
    void ClearWriteFailed() override;
    void onExchange(Exchange_Handler handler) override { handler_ = std::move(handler); }

  private:
    [[nodiscard]] bool stopping();
    [[nodiscard]] bool mayWrite(std::int32_t address, std::int32_t count);
    void settle();

    Session_State& session_;
    const Stop_Wish& stop_;
    Exchange_Handler handler_;
    std::vector<Sent_Write> writes_;
    bool open_ = false;    ///< the last write of the list isn't known yet
    bool dropped_ = false; ///< the last write wasn't sent
};

} // namespace zorvane::ctl
