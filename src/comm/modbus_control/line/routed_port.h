// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/rfc2217_port.h"

namespace zorvane {

/// A port that is a serial one of this computer or one on a network, as its name says.
class Routed_Port final : public Byte_Port {
  public:
    /// All must outlive it. `socket` opens "tcp:HOST:PORT" and its like as a stream of bytes.
    Routed_Port(Byte_Port& serial, Byte_Port& socket, Link_Clock& clock)
        : serial_(serial), socket_(socket), rfc2217_(socket, clock), chosen_(&serial) {}

    void setListener(Byte_Port_Listener* listener) override;
    [[nodiscard]] Port_Opening open(const std::string& name, const Port_Settings& settings) override;
    [[nodiscard]] Line_Change changeLine(const Line_Settings& line) override {
        return chosen_->changeLine(line);
    }
    void close() override { chosen_->close(); }
    [[nodiscard]] bool isOpen() const override { return chosen_->isOpen(); }
    [[nodiscard]] bool write(Byte_View bytes) override { return chosen_->write(bytes); }
    Byte_Array discardInput() override { return chosen_->discardInput(); }
    [[nodiscard]] bool hasInput() const override { return chosen_->hasInput(); }
    void setRts(bool on) override { chosen_->setRts(on); }
    void tellNotBefore(Micros when) override { chosen_->tellNotBefore(when); }

  private:
    [[nodiscard]] Byte_Port& portFor(const std::string& name);

    Byte_Port& serial_;
    Byte_Port& socket_;
    Rfc2217_Port rfc2217_;
    Byte_Port* chosen_;
    Byte_Port_Listener* listener_ = nullptr;
};

} // namespace zorvane
