#include "ctl/calls/qt/port_calls.h"

namespace zorvane {

std::vector<Call_Entry> portCalls() {
    return {
        {"upload", "Read a document's values from the controller", makeUploadCall},
        {"download", "Write a document's values to the controller", makeDownloadCall},
        {"watch", "Show live values of a field until Ctrl+C", makeWatchCall},
    };
}

} // namespace zorvane
