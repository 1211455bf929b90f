// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "comm/transfer/transfer_texts.h"

#include <cstdint>

namespace zorvane {

/// What the status form shows of the last transfer.
[[nodiscard]] Transfer_Status transferStatus(const Comm_Context& comm, bool isUpload);

/// Answers to the buttons of the status form. `isUpload` is 0 after a download.

/// Goes online in spite of the failures.
void Status_Connect(const Comm_Context& comm, std::int16_t isUpload);
/// Runs the same transfer again.
void Status_Retry(const Comm_Context& comm, std::int16_t isUpload);
/// Leaves the records and stays offline.
void Status_CancelProg(const Comm_Context& comm, std::int16_t isUpload);

} // namespace zorvane
