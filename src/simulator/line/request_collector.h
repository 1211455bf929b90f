// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/line/line_framing.h"
#include "simulator/line/line_pace.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>

namespace zorvane::simulator {

/// Frames of a serial line. Cuts what a client sends into requests. Bytes that make no request are given up
/// after a silence, as a real controller does, so that noise and halves of requests never spoil a later one.
/// Each byte takes its time on the line, even when the client hands over many at once.
class Request_Collector final : public Line_Framing {
  public:
    using Check = std::function<bool(Bytes_View)>;

    Request_Collector(Line_Pace pace, Check checkSumRight);

    void feed(Bytes_View bytes, Instant now) override;

    [[nodiscard]] std::optional<Arrival> next(Instant now) override;
    [[nodiscard]] std::optional<Instant> deadline() const override;
    void clear() override;
    /// As they are.
    [[nodiscard]] Bytes enveloped(Bytes_View frame, const Arrival&) const override {
        return {frame.begin(), frame.end()};
    }

  private:
    [[nodiscard]] std::optional<std::size_t> wholeRequest() const;
    [[nodiscard]] const char* whatIsWrong() const;
    [[nodiscard]] Arrival take(std::size_t length, std::string broken);

    Line_Pace pace_;
    Check checkSumRight_;
    Bytes bytes_;
    std::deque<Instant> passed_; ///< for each byte, when it had passed
    Instant lineFree_{};
};

} // namespace zorvane::simulator
