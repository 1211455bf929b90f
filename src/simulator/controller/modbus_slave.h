// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/wire/bytes.h"
#include "simulator/wire/unique_fd_linux.h"

#include <modbus/modbus.h>

#include <memory>

namespace zorvane::simulator {

/// libmodbus (https://libmodbus.org) on one end of a socket pair: it checks requests, keeps the 65,536
/// registers, and builds answers and check sums. The other end is this object's own, so the program decides
/// itself what reaches the line and when. Throws `std::system_error` when it can't be set up.
class Modbus_Slave {
  public:
    /// `unit` from 1 to 247.
    explicit Modbus_Slave(int unit);

    /// From now on it has another number, from 1 to 247; gives it back.
    int setUnit(int unit);

    /// A frame of these bytes (unit first, 2 to 254 of them) with its check sum after them.
    [[nodiscard]] Bytes sealed(Bytes_View body);

    /// Whether the last two bytes are the check sum of those before; false for less than 4 or more than 256.
    [[nodiscard]] bool checkSumRight(Bytes_View frame);

    /// Executes a whole request and gives the answer: none to a broadcast and to a request for another unit.
    [[nodiscard]] Bytes answer(Bytes_View request);

    [[nodiscard]] std::uint16_t value(std::uint16_t address) const;
    void setValue(std::uint16_t address, std::uint16_t value);

  private:
    struct Free {
        void operator()(modbus_t* context) const noexcept { modbus_free(context); }
        void operator()(modbus_mapping_t* mapping) const noexcept { modbus_mapping_free(mapping); }
    };

    [[nodiscard]] Bytes written();

    Unique_Fd inner_; ///< libmodbus's end
    Unique_Fd outer_;
    std::unique_ptr<modbus_t, Free> context_;
    std::unique_ptr<modbus_mapping_t, Free> registers_;
};

} // namespace zorvane::simulator
