#pragma once

#include "ctl/document/call.h"

namespace zorvane {

/// The calls that need no serial port. Each has a file of its own.
[[nodiscard]] std::vector<Call_Entry> documentCalls();

[[nodiscard]] std::unique_ptr<Call> makeModelsCall();
[[nodiscard]] std::unique_ptr<Call> makeCheckCall();
[[nodiscard]] std::unique_ptr<Call> makeDumpCall();
[[nodiscard]] std::unique_ptr<Call> makeSaveCall();
[[nodiscard]] std::unique_ptr<Call> makeUpdateCall();
[[nodiscard]] std::unique_ptr<Call> makeApplyCall();
[[nodiscard]] std::unique_ptr<Call> makePlanCall();
[[nodiscard]] std::unique_ptr<Call> makeShowCall();
[[nodiscard]] std::unique_ptr<Call> makeSetCall();
[[nodiscard]] std::unique_ptr<Call> makeRecoverCall();

} // namespace zorvane
