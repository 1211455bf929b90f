// SPDX-License-Identifier: MIT
#pragma once

#include "survey/listen/frame_finder.h"

#include <functional>
#include <optional>

namespace zorvane::survey {

/// What was asked: a request's unit, function, and the first and the number of the registers or coils that it
/// is about. Functions that name none have 0 for both.
struct Asked {
    std::uint8_t unit = 0;
    std::uint8_t function = 0;
    std::uint16_t address = 0; ///< on the wire
    std::uint16_t count = 0;

    auto operator<=>(const Asked&) const = default; // NOLINT(modernize-use-nullptr): a false alarm
};

/// The request's own words. REQUIRES: a whole request.
[[nodiscard]] Asked askedBy(Byte_View request);

/// A request with its answer, or one of them without the other.
struct Heard_Exchange {
    std::optional<Heard_Frame> request;
    std::optional<Heard_Frame> answer;

    [[nodiscard]] bool paired() const { return request && answer; }
    /// From the request's last byte to the answer's first. REQUIRES: paired.
    [[nodiscard]] Micros answerTime() const;
};

/// Puts the frames heard on a line together: each answer with the request before it, if it can only be that
/// one's. A pair is told once the frame after it has shown that it was none of two answers in a row.
class Heard_Exchanges {
  public:
    using Told = std::function<void(const Heard_Exchange&)>;

    explicit Heard_Exchanges(Told told) : told_(std::move(told)) {}

    void take(const Heard_Frame& frame);
    /// No more frames come: tells what stands open.
    void end();

  private:
    [[nodiscard]] bool isAnswer(const Heard_Frame& frame) const;
    void takeRequest(const Heard_Frame& frame);
    void takeAnswer(const Heard_Frame& frame);
    void tellHeld(bool asPair);
    void tellOpen();

    Told told_;
    std::optional<Heard_Frame> open_;    ///< a request without its answer so far
    std::optional<Asked> unanswered_;    ///< the request before, which got none
    std::optional<Heard_Exchange> held_; ///< a pair whose answer may be that of the request before
};

} // namespace zorvane::survey
