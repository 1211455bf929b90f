// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/line/transfer.h"
#include "ctl/text/json_text.h"

#include <iosfwd>
#include <string>

namespace zorvane::ctl {

/// {"outcome","passes","errors","log","panel4"}, with the members of the records under their names; of a
/// download also "writes": {"planned","written","failed","unknown","not_sent"}, the first being the sum of
/// the others.
[[nodiscard]] Json transferJson(const Transfer_Report& report);

/// The same with what came of each request: the lists of `addBlockLists`, "failed_writes" with
/// {"register","value","result","answer"}, and "panel4_lines".
[[nodiscard]] Json transferResultJson(const Transfer_Report& report);

/// Tells people how a transfer ended, what failed in it, and what to do. `name` is "Upload" or "Download".
void tellTransfer(std::ostream& err, const std::string& name, const Transfer_Report& report);

} // namespace zorvane::ctl
