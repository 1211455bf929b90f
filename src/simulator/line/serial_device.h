// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/line/line_pace.h"
#include "simulator/line/line_port.h"
#include "simulator/wire/unique_fd_linux.h"

#include <string>

namespace zorvane::simulator {

/// A serial port of the machine, set as the line says. Throws `std::runtime_error` with a reason for people.
class Serial_Device : public Line_Port {
  public:
    Serial_Device(const std::string& device, const Line_Settings& settings);

    [[nodiscard]] int fd() const override { return device_.get(); }

  private:
    Unique_Fd device_;
};

} // namespace zorvane::simulator
