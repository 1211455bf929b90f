// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"

#include <cstdint>

namespace zorvane {

/// Fills the cells of a field from the register image after a transfer. A list cell of the field shown gets
/// its message text in the lower grid too; the grid is not repainted meanwhile.
/// Gives how many cells took a value; those that had another one before are added to `Last_Upload.changes`.
std::int32_t PRO_Aplica_Registros(const Comm_Context& comm, std::int32_t field);

/// Refreshes the lower grid, and the cells that it shows, for the columns whose request word is the one
/// scanned. While the link is lost a cell of a whole register shows "???" and keeps its `Value`.
void PRO_Refresca_Settings(const Comm_Context& comm, std::int32_t row);

} // namespace zorvane
