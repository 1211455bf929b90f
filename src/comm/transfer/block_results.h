// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"

#include <vector>

namespace zorvane {

/// What came of the latest reading of a scan block, by the link's readings: of its first register without a
/// value.
[[nodiscard]] Block_Result blockResult(const Comm_Context& comm, const Holding_Block_Rec& block);

/// Every scan block of the document.
[[nodiscard]] std::vector<Block_Result> blockResults(const Comm_Context& comm);

/// The last register of a range that a line can have.
[[nodiscard]] std::int64_t lastOnTheLine(std::int64_t first, std::int64_t last);

} // namespace zorvane
