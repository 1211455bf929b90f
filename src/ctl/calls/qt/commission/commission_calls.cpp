// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/commission/commission_calls.h"

namespace zorvane::ctl {

std::vector<Subcommand_Entry> commissionCalls() {
    return {
        {"plan", "Show every write that a download would make", makePortPlanSubcommand},
        {"send", "Send the values that differ, and read back each of them", makeSendSubcommand},
        {"resume", "Go on with a send that was interrupted", makeResumeSubcommand},
        {"restore", "Put back what was there before a send", makeRestoreSubcommand},
        {"verify", "Tell whether the controller is still as a send left it", makeVerifySubcommand},
        {"runs", "List the sends that are kept", makeRunsSubcommand},
    };
}

} // namespace zorvane::ctl
