// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/line/transfer.h"

#include <iosfwd>
#include <string>

namespace zorvane::ctl {

/// Tells people what stopped a transfer before its end and what was written until then: the blocks that
/// weren't read, or the signal. Says nothing of a transfer that nothing stopped. `name` is "Upload" or
/// "Download".
void tellStop(std::ostream& err, const std::string& name, const Transfer_Report& report);

} // namespace zorvane::ctl
