// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/link_roles.h"
#include "template/model/value_change.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zorvane {

/// How a transfer ended.
enum class Transfer_End {
    None,      ///< it hasn't: none was begun, or it runs
    Finished,  ///< it came to its end, whatever became of each value
    Lost,      ///< nothing answered
    Cancelled, ///< the user gave it up
    Dropped,   ///< its document was closed or replaced
    Failed,    ///< a run-time failure ended it
};

/// Runs what leaves `end` to be set by whatever ends the transfer: a failure sets it here, and goes on.
template <class Run> void endingOnFailure(Transfer_End& end, Run&& run) {
    try {
        run();
    } catch (...) {
        end = Transfer_End::Failed;
        throw;
    }
}

/// What came of a request.
enum class Request_End {
    Good,
    Refused,    ///< the controller answered with an exception
    Unanswered, ///< no good answer to any of its tries
    Not_Sent,   ///< it wasn't due, or can't be sent
};

/// How a request ended that brought nothing, by the link's words: empty for no answer, an exception of the
/// controller, or why the request can't be sent.
[[nodiscard]] Request_End endOf(const std::string& response);

/// A scan block of a document after a transfer.
struct Block_Result {
    std::int32_t first = 0;
    std::int32_t last = 0;
    Request_End end = Request_End::Not_Sent;
    std::string answer{}; ///< the exception, or why nothing could be sent

    /// Its latest reading brought no values: not the same as not being read at all.
    [[nodiscard]] bool failed() const {
        return end != Request_End::Good && (end != Request_End::Not_Sent || !answer.empty());
    }
    bool operator==(const Block_Result&) const = default;
};

/// What an upload came to.
struct Upload_Result {
    Transfer_End end = Transfer_End::None;
    std::int32_t passes = 0;             ///< whole passes over all blocks
    std::int32_t values = 0;             ///< cells that took what the registers hold
    std::vector<Value_Change> changes{}; ///< those of them that had another value before
    std::vector<Block_Result> blocks{};  ///< of an upload that finished: every scan block of the document

    [[nodiscard]] bool finished() const { return end == Transfer_End::Finished; }
};

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

/// A value of a download whose write is shown as failed.
struct Failed_Value {
    std::string address; ///< as the cell has it
    std::string value;
    std::string answer{}; ///< the exception, or why it couldn't be sent; empty for no answer

    bool operator==(const Failed_Value&) const = default;
};

/// What a download came to: its values counted as the write of each one ends.
struct Download_Result {
    Transfer_End end = Transfer_End::None;
    bool controllerSeen = false; ///< an answer came that can't be an adapter's echo
    std::int32_t values = 0;     ///< that the document has to send
    std::int32_t taken = 0;
    std::int32_t refused = 0;
    std::int32_t unanswered = 0;
    std::int32_t uncertain = 0;
    std::int32_t unsendable = 0;
    std::int32_t withoutWrite = 0; ///< no register, kept back by the template, or sent along with a neighbour
    std::vector<Missed_Value> missed; ///< not taken for certain, in the order of the download
    std::vector<Failed_Value> failed; ///< shown as failed, in the order of the download

    [[nodiscard]] bool finished() const { return end == Transfer_End::Finished; }
    /// The write of a cell with that address has ended.
    void count(const std::string& address, Value_End how);
    /// Those that the download didn't come to.
    [[nodiscard]] std::int32_t notReached() const noexcept {
        const std::int32_t reached = taken + refused + unanswered + uncertain + unsendable + withoutWrite;
        return values > reached ? values - reached : 0;
    }
};

/// What a live write came to.
struct Live_Write_Result {
    bool dropped = false;      ///< its document was closed or replaced meanwhile
    bool failedBefore = false; ///< an earlier write had failed, so that this one is shown as failed too
    Write_Outcome outcome = Write_Outcome::Uncertain;
};

/// A polled block that brings no values any more.
struct Polled_Gap {
    std::int32_t block = 0; ///< number of the scan block
    std::string registers;  ///< "300-309"
    std::string response;   ///< the controller's refusal in words; empty when it didn't answer
    std::string since;      ///< time of day at which that was seen first

    bool operator==(const Polled_Gap&) const = default;
};

/// What polling came to.
struct Polling_Result {
    std::int32_t refreshes = 0;
    bool lost = false;            ///< at the last of them the link was lost
    std::vector<Polled_Gap> gaps; ///< at the last of them
};

} // namespace zorvane
