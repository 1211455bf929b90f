// SPDX-License-Identifier: MIT
#include "ctl/text/terminal.h"

#include <unistd.h>

namespace zorvane::ctl {

bool standardInputIsTerminal() { return ::isatty(STDIN_FILENO) != 0; }
bool standardErrorIsTerminal() { return ::isatty(STDERR_FILENO) != 0; }

} // namespace zorvane::ctl
