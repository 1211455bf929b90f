// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"

namespace zorvane {

/// A tick of the live refresh, every 400 ms while online: brings the image to the field shown, and tells the
/// user when the link is lost and when it is back. It never gives up; a failure in a tick ends that tick
/// only.
void TMR_Actualiza_online_Timer(const Comm_Context& comm);

/// A tick of the traffic lights, every 90 ms while online. "Rx" shows only in a tick without "Tx".
void TMR_TxRx_Timer(const Comm_Context& comm);

/// The timer that the template gives an interval: it stops itself and does nothing.
void TMR_Forza_analogas_Timer(const Comm_Context& comm);

/// The link is trying again: the main form stays usable.
void PRO_Reintentando(const Comm_Context& comm);

/// A complete stop after a lost link.
void PRO_Perdio_Comunicacion(const Comm_Context& comm);

} // namespace zorvane
