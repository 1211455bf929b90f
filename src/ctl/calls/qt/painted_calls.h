#pragma once

#include "ctl/document/call.h"

#include <memory>
#include <vector>

namespace zorvane {

/// The calls that measure and paint texts: they need a QGuiApplication.
[[nodiscard]] std::vector<Call_Entry> paintedCalls();

[[nodiscard]] std::unique_ptr<Call> makeReportCall();

} // namespace zorvane
