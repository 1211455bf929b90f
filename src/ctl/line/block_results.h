// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "ctl/text/json_text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// What came of a request.
enum class Request_End {
    Good,
    Refused,    ///< the controller answered with an exception
    Unanswered, ///< no good answer to any of its tries
    Not_Sent,   ///< it wasn't due, or can't be sent
};

/// A scan block of a document after a transfer.
struct Block_Result {
    std::int32_t first = 0;
    std::int32_t last = 0;
    Request_End end = Request_End::Not_Sent;
    std::string answer{}; ///< the exception, or why nothing could be sent
};

/// How a request ended that brought nothing, by the link's words: empty for no answer, an exception of the
/// controller, or why the request can't be sent.
[[nodiscard]] Request_End endOf(const std::string& response);

/// Every scan block of the document, by the link's readings.
[[nodiscard]] std::vector<Block_Result> blockResults(const Comm_Context& comm);

/// Members "read", "refused", "unanswered" and "not_read", each a list of {"first","last"}, with an "answer"
/// where there is one. Every block is in one of them.
void addBlockLists(Json& json, const std::vector<Block_Result>& blocks);

/// Why the text of a register isn't shown, as "Registers 110-111 were not read: BUSY"; nothing when its
/// latest reading since the port was opened brought a value.
[[nodiscard]] std::optional<std::string> readingFault(const Comm_Context& comm, std::int32_t address);

} // namespace zorvane::ctl
