// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"

namespace zorvane {

// What the message bar is told of transfers and of polling. None of it changes a panel, an effect of a
// command or a request.

/// Before a download sends anything: which of the controller's registers will hold what nobody read, since
/// halves, shared times and blocks are built from the register image.
void tellUnreadBeforeDownload(const Comm_Context& comm);

/// After a download: what became of its values, and whether a controller was seen at all.
void tellDownloadEnd(const Comm_Context& comm, const Download_Result& result);

/// After an upload, before the port is opened again: which blocks it couldn't read, and which pages show
/// something older or 0 for them.
void tellUploadGaps(const Comm_Context& comm, const Upload_Result& result);

/// At each refresh while polling: which polled blocks bring no values any more, and since when.
void tellPolledGaps(const Comm_Context& comm);

/// Polling begins: nothing is known of its blocks yet.
void forgetPolledGaps(const Comm_Context& comm);

} // namespace zorvane
