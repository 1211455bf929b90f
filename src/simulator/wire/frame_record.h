// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/wire/bytes.h"
#include "simulator/wire/request.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::simulator {

enum class Direction { In, Out };

/// A frame that came in or went out, as it stands in the log.
struct Frame_Record {
    Direction direction = Direction::In;
    Bytes bytes; ///< as they passed, noise and damage included
    std::optional<Frame_Facts> facts;
    std::string fault;         ///< the fault's text; empty for none
    std::optional<bool> taken; ///< a write: whether the registers took it
    std::string note;          ///< why there is no answer
    std::string quirk{};       ///< the texts of the quirks; empty for none
    std::vector<std::uint16_t>
        stored{}; ///< a write: what the registers hold then, where it isn't what was sent
};

/// One line of JSON without a line end: "ms" since the start, "direction" (in, out), "hex", and as far as
/// they are known "unit", "function", "address" (the register's number), "wire" (its address on the wire),
/// "quantity", "values", "exception", "fault", "taken", "note", "quirk", "stored".
[[nodiscard]] std::string logLine(const Frame_Record& record, std::chrono::nanoseconds sinceStart,
                                  std::int32_t addressBase);

/// A line about something else than a frame: {"ms","event"}.
[[nodiscard]] std::string eventLine(const std::string& event, std::chrono::nanoseconds sinceStart);

/// Bytes as hex pairs in upper case, a blank between.
[[nodiscard]] std::string hexText(Bytes_View bytes);

} // namespace zorvane::simulator
