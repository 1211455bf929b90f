// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/byte_port.h"

#include <string>

namespace zorvane {

/// The name by which the simulated controller is chosen as a port.
inline const std::string simulatedPortName = "Simulated controller";

/// A simulated controller that runs beside the program.
class Simulator {
  public:
    /// The path of its line, or why there is none, in words with what to do.
    struct Start {
        std::string path;
        std::string reason;
    };

    virtual ~Simulator() = default;
    /// Starts it for the open template; one that runs already for the same template and slave number goes
    /// on, with the values that were written to it. Returns when it can be talked to.
    [[nodiscard]] virtual Start start(std::int32_t slave) = 0;
    /// Ends it; nothing when it doesn't run.
    virtual void stop() = 0;
};

/// For programs that have none.
class No_Simulator final : public Simulator {
  public:
    [[nodiscard]] Start start(std::int32_t) override {
        return {{},
                "This program has no simulated controller: start zorvane-sim and name its line as the port."};
    }
    void stop() override {}
};

/// A port that may also be the simulated controller, which it starts when it is opened.
class Simulated_Port final : public Byte_Port {
  public:
    /// Both must outlive it.
    Simulated_Port(Byte_Port& port, Simulator& simulator) : port_(port), simulator_(simulator) {}

    void setListener(Byte_Port_Listener* listener) override { port_.setListener(listener); }
    [[nodiscard]] Port_Opening open(const std::string& name, const Port_Settings& settings) override;
    [[nodiscard]] Line_Change changeLine(const Line_Settings& line) override {
        return port_.changeLine(line);
    }
    void close() override { port_.close(); }
    [[nodiscard]] bool isOpen() const override { return port_.isOpen(); }
    [[nodiscard]] bool write(Byte_View bytes) override { return port_.write(bytes); }
    Byte_Array discardInput() override { return port_.discardInput(); }
    [[nodiscard]] bool hasInput() const override { return port_.hasInput(); }
    void setRts(bool on) override { port_.setRts(on); }
    void tellNotBefore(Micros when) override { port_.tellNotBefore(when); }

  private:
    Byte_Port& port_;
    Simulator& simulator_;
};

} // namespace zorvane
