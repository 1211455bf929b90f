// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"

namespace zorvane {

/// "&Download to Device": writes every modifiable cell of the document, field by field, column by column, and
/// returns when all is written, the user has cancelled, or the link is lost at the start of a field. A clean
/// download goes online when the template has blocks to poll. A download whose document is closed or replaced
/// meanwhile is dropped. Failures: 13 for a cell of the board family that lies in no block of its kind, and
/// those of the conversions of a value.
void MNU_Download_Click(const Comm_Context& comm);

} // namespace zorvane
