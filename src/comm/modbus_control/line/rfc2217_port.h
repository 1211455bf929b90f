// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/byte_port.h"
#include "comm/modbus_control/line/com_port_option.h"
#include "comm/modbus_control/line/network_port.h"

#include <map>
#include <memory>
#include <set>
#include <string>

namespace zorvane {

/// A serial port that a server hands out by RFC 2217, over a connection that hands it bytes. The line's
/// settings are set at the server and must be confirmed before the port counts as open. A server that
/// refuses, that speaks something else, or that sets the line to something else fails the opening with the
/// reason.
class Rfc2217_Port final : public Byte_Port, private Byte_Port_Listener {
  public:
    /// Both must outlive it. While it is open or opening, it is the connection's listener.
    Rfc2217_Port(Byte_Port& connection, Link_Clock& clock);

    void setListener(Byte_Port_Listener* listener) override { listener_ = listener; }
    [[nodiscard]] Port_Opening open(const std::string& name, const Port_Settings& settings) override;
    [[nodiscard]] Line_Change changeLine(const Line_Settings& line) override;
    void close() override;
    [[nodiscard]] bool isOpen() const override { return stage_ == Stage::Open; }
    [[nodiscard]] bool write(Byte_View bytes) override;
    Byte_Array discardInput() override;
    [[nodiscard]] bool hasInput() const override { return isOpen() && connection_.hasInput(); }
    void setRts(bool on) override;

  private:
    /// How far the opening is.
    enum class Stage { Closed, Connecting, Offering, Setting, Open };

    void bytesArrived(Byte_View bytes) override;
    void portLost(const std::string& reason) override;
    void openingEnded(const Port_Opening& opening) override;

    void offer();
    void send(const Byte_Array& bytes);
    void answer(const Telnet_Offer& offer);
    void agree(const Telnet_Offer& offer);
    void setLine();
    void noteSetting(const Com_Port_Setting& setting);
    void beOpen();
    void ring();
    void fail(const std::string& reason, bool lineRefused = false);
    [[nodiscard]] std::string server() const;

    Byte_Port& connection_;
    Link_Clock& clock_;
    std::unique_ptr<Alarm> alarm_;
    Byte_Port_Listener* listener_ = nullptr;
    Stage stage_ = Stage::Closed;
    Port_Settings settings_;
    Network_Port address_;
    Telnet_Reader reader_;
    std::set<std::pair<Telnet_Verb, std::uint8_t>>
        said_; ///< each is said once, so that nobody goes on for ever
    std::set<Com_Port_Part> confirmed_;
};

} // namespace zorvane
