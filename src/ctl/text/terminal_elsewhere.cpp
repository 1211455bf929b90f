// SPDX-License-Identifier: MIT
#include "ctl/text/terminal.h"

namespace zorvane::ctl {

bool standardInputIsTerminal() { return false; }
bool standardErrorIsTerminal() { return false; }

} // namespace zorvane::ctl
