// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/link_clock.h"
#include "comm/modbus_control/line/port_settings.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace zorvane::survey {

/// Line settings to try. A frame sent with two stop bits is good for a receiver that waits for one or two, so
/// that one try serves for both.
struct Line_Candidate {
    Line_Settings line;          ///< as found settings are told
    bool eitherStopBits = false; ///< probed with two stop bits, whatever `line` says

    [[nodiscard]] Line_Settings probed() const;
    bool operator==(const Line_Candidate&) const = default;
};

/// The order of trying: what worked last, what the templates say, 19200 8E1, 9600 8N1, and then all other
/// usual settings by likelihood. Each baud and parity once.
[[nodiscard]] std::vector<Line_Candidate> likelyLines(const std::optional<Line_Settings>& lastGood,
                                                      std::span<const Line_Settings> ofTemplates);
/// Those that were named and no others, just as named, each once.
[[nodiscard]] std::vector<Line_Candidate> namedLines(std::span<const Line_Settings> named);

/// "1-247", "5", "1-20,40": unit numbers in the order named, each once. None for anything else.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> parseUnits(std::string_view text);

/// What a search for controllers tries, and how long it waits.
struct Search_Plan {
    Port_Settings port; ///< its line and slave play no part
    std::vector<Line_Candidate> lines;
    std::vector<std::uint8_t> units;      ///< 1 to 247, in the order of likelihood
    std::vector<std::uint16_t> addresses; ///< registers to read, on the wire; at least one
    Micros listen = 1500 * microsPerMs;   ///< before the first request
    Micros timeOut = 100 * microsPerMs;   ///< of a probe
    Micros longTimeOut = microsPerSecond; ///< for a unit whose answer came late
    int reads = 10;                       ///< of each controller found, for its answer times
};

/// A read that a search may make.
struct Probe_Point {
    std::size_t line = 0; ///< index of the plan's lines
    std::uint8_t unit = 1;
    std::uint16_t address = 0;

    auto operator<=>(const Probe_Point&) const = default; // NOLINT(modernize-use-nullptr): a false alarm
};

/// The order in which a plan's points are tried. Few units are numbered above 20, so the first of them are
/// tried with every setting before the others; once a controller was found, its setting is kept and all units
/// are tried with it.
class Search_Order {
  public:
    static constexpr std::size_t likelyUnits = 20;

    explicit Search_Order(const Search_Plan& plan);

    /// The point to try next; none when all were tried.
    [[nodiscard]] std::optional<Probe_Point> next();
    /// A controller answers at this line: what is left of the others isn't tried.
    void keep(std::size_t line);
    /// What is left of a line that can't be tried, or of a unit that was found, isn't tried.
    void leaveOutLine(std::size_t line);
    void leaveOutUnit(std::uint8_t unit);

    /// How many points were given out, and how many are left.
    [[nodiscard]] std::size_t given() const { return given_; }
    [[nodiscard]] std::size_t left() const { return points_.size(); }

  private:
    std::deque<Probe_Point> points_;
    std::size_t given_ = 0;
};

} // namespace zorvane::survey
