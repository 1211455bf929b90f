// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"

namespace zorvane {

/// Ends a transfer that the user has given up. `cancelled` says whether that was so.
void PRO_Verifica_Cancelar(const Comm_Context& comm, bool isUpload, bool& cancelled);

/// The document of a transfer was closed or replaced: ends the transfer without a word, the link closed and
/// the form usable.
void dropTransfer(const Comm_Context& comm);

/// Cancel in the progress form: asks, with the scan held meanwhile, and leaves the wish for the transfer to
/// find.
void BOT_Cancel_Click(const Comm_Context& comm);

} // namespace zorvane
