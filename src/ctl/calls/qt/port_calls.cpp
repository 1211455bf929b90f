// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/port_calls.h"

#include "ctl/compare/compare_subcommand.h"
#include "ctl/compare/identify_subcommand.h"

namespace zorvane::ctl {

namespace {

std::unique_ptr<Subcommand> identifyOnPort() { return makeIdentifySubcommand(makeQtControllerLine); }
std::unique_ptr<Subcommand> compareOnPort() { return makeCompareSubcommand(makeQtControllerLine); }

} // namespace

std::vector<Subcommand_Entry> portCalls() {
    return {
        {"upload", "Read a document's values from the controller", makeUploadSubcommand},
        {"download", "Write a document's values to the controller", makeDownloadSubcommand},
        {"watch", "Show live values of a field until Ctrl+C", makeWatchSubcommand},
        {"identify", "Tell whether the controller is the template's", identifyOnPort},
        {"compare", "Compare a document with a file, the factory values or a controller", compareOnPort},
        {"verify-record", "Tell whether the controller is still as a record says",
         makeVerifyRecordSubcommand},
        {"find", "Find the controllers of a line, by reads alone", makeFindSubcommand},
        {"listen", "Hear who asks what on a line, without sending a byte", makeListenSubcommand},
    };
}

} // namespace zorvane::ctl
