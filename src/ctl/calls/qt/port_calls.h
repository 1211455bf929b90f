#pragma once

#include "ctl/document/call.h"

namespace zorvane {

/// The calls that talk to a controller. They need a QCoreApplication.
[[nodiscard]] std::vector<Call_Entry> portCalls();

[[nodiscard]] std::unique_ptr<Call> makeUploadCall();
[[nodiscard]] std::unique_ptr<Call> makeDownloadCall();
[[nodiscard]] std::unique_ptr<Call> makeWatchCall();

} // namespace zorvane
