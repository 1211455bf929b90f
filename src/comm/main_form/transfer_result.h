// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zorvane {

/// How the write of a value ended.
enum class Value_End {
    Taken,
    Refused,    ///< answered by an exception
    Unanswered, ///< it went out, and nothing came back: the controller may have it or not
    Uncertain,  ///< an answer came that doesn't tell whether the controller has it
    Unsendable, ///< nothing of it went out
};

/// A value of a download that the controller didn't take for certain.
struct Missed_Value {
    std::string address; ///< as the cell has it
    Value_End end = Value_End::Unsendable;

    bool operator==(const Missed_Value&) const = default;
};

/// What became of the values of a download, counted as the write of each one ends.
struct Download_Result {
    std::int32_t values = 0; ///< that the document has to send
    std::int32_t taken = 0;
    std::int32_t refused = 0;
    std::int32_t unanswered = 0;
    std::int32_t uncertain = 0;
    std::int32_t unsendable = 0;
    std::int32_t withoutWrite = 0; ///< no register, kept back by the template, or sent along with a neighbour
    std::vector<Missed_Value> missed; ///< in the order of the download

    /// The write of a cell with that address has ended.
    void count(const std::string& address, Value_End end);
    /// Those that the download didn't come to.
    [[nodiscard]] std::int32_t notReached() const noexcept {
        const std::int32_t reached = taken + refused + unanswered + uncertain + unsendable + withoutWrite;
        return values > reached ? values - reached : 0;
    }
};

/// A polled block that brings no values any more.
struct Polled_Gap {
    std::int32_t block = 0; ///< number of the scan block
    std::string registers;  ///< "300-309"
    std::string response;   ///< the controller's refusal in words; empty when it didn't answer
    std::string since;      ///< time of day at which that was seen first

    bool operator==(const Polled_Gap&) const = default;
};

} // namespace zorvane
