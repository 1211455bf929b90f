// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "ctl/text/json_text.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// Members "read", "refused", "unanswered" and "not_read", each a list of {"first","last"}, with an "answer"
/// where there is one. Every block is in one of them.
void addBlockLists(Json& json, const std::vector<Block_Result>& blocks);

/// Why the text of a register isn't shown, as "Registers 110-111 were not read: BUSY"; nothing when its
/// latest reading since the port was opened brought a value.
[[nodiscard]] std::optional<std::string> readingFault(const Comm_Context& comm, std::int32_t address);

} // namespace zorvane::ctl
