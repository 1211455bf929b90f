// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/framing.h"
#include "comm/modbus_control/line/link_clock.h"

#include <optional>
#include <vector>

namespace zorvane {

/// The answers of the last while, each kept for as long as a second copy of it may come.
class Answered_Requests {
  public:
    struct Entry {
        Rtu_Request request;
        Byte_Array answer;
        Micros until = 0;
        std::optional<Micros> took; ///< from the request's last byte to the answer's; none: it came late
    };

    void forgetPast(Micros now);
    /// The oldest goes when there are too many.
    void add(const Rtu_Request& request, Byte_View answer, Micros until, std::optional<Micros> took);

    /// Whether the bytes hold the answer to a request that was answered before: a second copy, or the true
    /// answer where the copy of another was taken for it.
    [[nodiscard]] bool answersOne(const Framing& framing, Byte_View bytes) const;
    enum class Copy {
        No,
        OfOwn,   ///< of an earlier answer to the same request
        OfOther, ///< of the answer to a read of as many other registers, and not what these held before
    };
    /// Whether this answer to a read may be the second copy of an earlier one: it is so word for word.
    [[nodiscard]] Copy mayBeCopy(const Rtu_Request& request, Byte_View answer) const;
    /// Whether an answer after that time came before its request was out, on a line where none did.
    [[nodiscard]] bool tooEarly(std::uint16_t count, Micros took) const;
    /// The longest that a read of so many registers took; 0 for none.
    [[nodiscard]] Micros longest(std::uint16_t count) const;

    /// Whether a request to its unit and of its function was answered.
    [[nodiscard]] bool hasFunction(const Rtu_Request& request) const;

    [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; }

  private:
    std::vector<Entry> entries_;
};

} // namespace zorvane
