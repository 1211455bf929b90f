// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/faults/fault_effect.h"
#include "simulator/line/line_framing.h"

namespace zorvane::simulator {

/// Frames of Modbus TCP ("MODBUS Messaging on TCP/IP Implementation Guide V1.0b", 3.1.3,
/// https://modbus.org/docs/Modbus_Messaging_Implementation_Guide_V1_0b.pdf): number, protocol and length,
/// then what stands before the check sum on a serial line. Bytes that can begin none are given up at once,
/// and with them all that is there.
class Mbap_Collector final : public Line_Framing {
  public:
    /// `sealed` adds the check sum to a body.
    explicit Mbap_Collector(Sealer sealed) : sealed_(std::move(sealed)) {}

    void feed(Bytes_View bytes, Instant now) override;
    [[nodiscard]] std::optional<Arrival> next(Instant now) override;
    [[nodiscard]] std::optional<Instant> deadline() const override { return std::nullopt; }
    void clear() override { bytes_.clear(); }
    [[nodiscard]] Bytes enveloped(Bytes_View frame, const Arrival& request) const override;

  private:
    [[nodiscard]] Arrival take(std::size_t length, Instant now);

    Sealer sealed_;
    Bytes bytes_;
};

} // namespace zorvane::simulator
