// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/rtu_transaction.h"
#include "comm/modbus_control/line/port_session.h"
#include "comm/modbus_control/scan/read_parts.h"
#include "comm/modbus_control/units/unit_access.h"
#include "template/services/link_notice.h"

#include <functional>
#include <memory>
#include <optional>

namespace zorvane {

/// One request after the other on a port of this computer: each call sends and waits for what comes of it, by
/// serving events. The rules are the link's own: a late answer, a second copy, another master's answer and an
/// adapter's echo are told apart, and a reading that could be mistaken for another's goes out in parts.
///
/// A write is tried once: whoever sends it again knows what became of the first. A read has the tries of the
/// port settings. REQUIRES: not called from within the port's or the clock's calls.
class Unit_Exchanges final : public Unit_Writer, public Link_Notice, private Transaction_Listener {
  public:
    /// Serves events until the condition holds; it is asked again after each event.
    using Wait = std::function<void(const std::function<bool()>& condition)>;

    /// All but `cancelled` are needed and must outlive it.
    struct Services {
        Byte_Port& port;
        Link_Clock& clock;
        Port_Finder& finder;
        Wait wait;
        std::function<bool()> cancelled{}; ///< whether somebody wants the end; an event tells of a change
    };

    Unit_Exchanges(Services services, const Port_Settings& settings);
    ~Unit_Exchanges() override;
    Unit_Exchanges(const Unit_Exchanges&) = delete;
    Unit_Exchanges& operator=(const Unit_Exchanges&) = delete;

    /// Opens the port of the settings. The reason of a refusal is for people.
    [[nodiscard]] Port_Opening open();
    void close();
    [[nodiscard]] bool isOpen() const { return services_.port.isOpen(); }
    [[nodiscard]] const Port_Settings& settings() const { return settings_; }
    /// Further tries of a read without an answer.
    void setRetries(std::int32_t retries) { settings_.retries = retries; }
    /// Registers of one value, such as a text: no reading ends between them.
    void keepTogether(std::int32_t first, std::int32_t last) { together_.add(first, last); }
    /// Called after each try with all that is known of it; may be empty.
    void onTry(std::function<void(const Try_Result&)> told) { told_ = std::move(told); }

    void SetTimings(std::int32_t requestMs, std::int32_t outMs) override;
    void SetHoldingRegisters(std::int16_t, double, bool, std::int16_t) override {}
    void SetAddressBase(std::int32_t base) override { addressBase_ = base; }

    [[nodiscard]] Unit_Answer read(std::int32_t unit, std::int32_t first, std::int32_t count) override;
    [[nodiscard]] Unit_Answer readObjects(std::int32_t unit, std::int32_t highest) override;
    [[nodiscard]] Unit_Answer write(std::int32_t unit, Function_Code function, std::int32_t first,
                                    const std::vector<std::uint16_t>& values) override;
    [[nodiscard]] bool setLine(const Line_Settings& line) override;
    [[nodiscard]] bool openAgain() override;
    void pause(Micros span) override;
    [[nodiscard]] Micros now() const override { return services_.clock.now(); }
    [[nodiscard]] bool cancelled() const override { return services_.cancelled && services_.cancelled(); }

  private:
    class Reading;

    void requestSent() override { sent_ = true; }
    void tryFinished(const Try_Result& result) override;
    void strayReceived(Micros, const Byte_Array&, const std::string&) override {}
    void lineLost(const std::string& reason) override { lossReason_ = reason; }
    void openingEnded(const Port_Opening& opening) override { opening_ = opening; }

    /// Nothing when it was cancelled. `mayCancel`: also once the request is out.
    [[nodiscard]] std::optional<Try_Result> exchange(const Rtu_Request& request, bool mayCancel);
    void applyWaits();
    [[nodiscard]] Port_Opening opened(Port_Opening opening);
    [[nodiscard]] Port_Opening endOfOpening();
    [[nodiscard]] Unit_Answer lost() const;

    Services services_;
    Port_Settings settings_;
    Port_Session session_;
    Rtu_Transaction transaction_;
    Kept_Together together_;
    std::int32_t requestMs_ = 0; ///< the template's pause; 0 or below: none
    std::int32_t outMs_ = 0;     ///< the template's time-out; 0 or below: the settings' own
    std::int32_t addressBase_ = 0;
    std::string lossReason_; ///< what was lost last, in words; empty as long as nothing was
    bool sent_ = false;      ///< the present request is out
    std::optional<Try_Result> result_;
    std::optional<Port_Opening> opening_; ///< how one ended that went on
    std::function<void(const Try_Result&)> told_;
};

} // namespace zorvane
