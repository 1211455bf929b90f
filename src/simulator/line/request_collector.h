// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/line/line_pace.h"
#include "simulator/wire/bytes.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>

namespace zorvane::simulator {

/// Bytes that came in one after another: a whole request with a right check sum, or bytes that are none.
struct Arrival {
    Bytes frame;
    Instant wireBegin;  ///< when the first byte began to pass on the line
    Instant wireEnd;    ///< when the last byte had passed
    std::string broken; ///< empty for a request; else "truncated", "bad CRC" or "noise"
};

/// Cuts what a client sends into requests. Bytes that make no request are given up after a silence, as a real
/// controller does, so that noise and halves of requests never spoil a later one. Each byte takes its time on
/// the line, even when the client hands over many at once.
class Request_Collector {
  public:
    using Check = std::function<bool(Bytes_View)>;

    Request_Collector(Line_Pace pace, Check checkSumRight);

    void feed(Bytes_View bytes, Instant now);

    /// The next request, or the next bytes given up; nothing when more must come first.
    [[nodiscard]] std::optional<Arrival> next(Instant now);

    /// When the bytes there are given up, if nothing else comes.
    [[nodiscard]] std::optional<Instant> deadline() const;

    void clear();

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
