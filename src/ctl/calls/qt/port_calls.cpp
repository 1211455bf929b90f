// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/port_calls.h"

namespace zorvane::ctl {

std::vector<Subcommand_Entry> portCalls() {
    return {
        {"upload", "Read a document's values from the controller", makeUploadSubcommand},
        {"download", "Write a document's values to the controller", makeDownloadSubcommand},
        {"watch", "Show live values of a field until Ctrl+C", makeWatchSubcommand},
    };
}

} // namespace zorvane::ctl
