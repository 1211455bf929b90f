// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"

namespace zorvane {

/// "&Upload to PC": starts reading every block into the register image. While an upload runs it only empties
/// the lists of the last transfer.
void MNU_Upload_Click(const Comm_Context& comm);

/// One tick of the upload: notes failed exchanges, moves the bar with the scan, and ends the transfer when it
/// was cancelled, when the link is lost at a change of block, or after the last pass. A finished upload fills
/// the document's cells and, with no failure and blocks to poll, goes online. An upload whose document was
/// closed or replaced is dropped.
void TMR_Actualiza_valores_Timer(const Comm_Context& comm);

} // namespace zorvane
