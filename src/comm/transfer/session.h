// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"

#include <string>

namespace zorvane {

/// The scan words of the system: every block of a transfer, or the blocks polled while online.
inline const std::string transferScan = "NONE";
inline const std::string onlineScan = "ALWAYS";

/// "D&isconnect": ends the session, whether polling or in the middle of a transfer.
void MNU_Disconnect_Click(const Comm_Context& comm);

/// Ends a polling session when its document closes; nothing when offline.
void PRO_Fin_Sesion(const Comm_Context& comm);

/// Hands the template's scan blocks to the link, after the template was read. A template without any is
/// failure 9.
void PRO_Registra_Bloques(const Comm_Context& comm);

/// Chooses the blocks of the scan and keeps the word that the link then reports.
void selectScan(const Comm_Context& comm, const std::string& word);

/// From an open, scanning link to the polling state: the flag, the timers and the menu.
void enterOnline(const Comm_Context& comm);

/// From a closed link to the polling state.
void goOnline(const Comm_Context& comm);

} // namespace zorvane
