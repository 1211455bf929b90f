// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

namespace zorvane::app {

/// Prepares the main form: flags, menus, colours, settings. Reads nothing of a template.
void Form_Load(const App_Context& app);

/// 100 ms after the start, once: reads the default template and shows its fields. Nothing handles a failure
/// here but one of missing texts for the upper grid, which then shows the fields' names.
void TMR_Abre_ZTP_Timer(const App_Context& app);

/// 200 ms after the start, once: shows the main form.
void TMR_Inicial_ZTP_Timer(const App_Context& app);

/// 100 ms after it was enabled, once: gives the main form its normal size. Nothing enables it by itself.
void TIM_Tamaño_normal_Timer(const App_Context& app);

/// The window is about to close: asks about unsaved changes, stores the windows' places, and ends the program
/// unless the user cancelled or the save failed. `Cancel` is then 1.
void Form_QueryUnload(const App_Context& app, std::int16_t& Cancel, std::int16_t UnloadMode);

/// Stores the windows' places, releases the link and the tray icon, and ends the program.
void Form_Unload(const App_Context& app);

/// Whether a transfer is under way.
[[nodiscard]] bool transferRuns(const Main_Form_State& form);

/// The system is about to end the program: keeps the changes of the document, and leaves the wish to cancel
/// for a transfer to find. Nobody is asked.
void prepareSystemEnd(const App_Context& app);

/// "E&xit".
void MNU_Exit_Click(const App_Context& app);

/// Moves the main form to its stored place, and notes that of the monitor for when it opens. The preview asks
/// for its own when it opens. A stored size too large for single precision ends it there.
void PRO_Lee_Ventanas(const App_Context& app);

/// Stores the places of the main form and of the monitor.
void PRO_Guarda_Ventanas(const App_Context& app);

/// Which dialog is about to open.
enum class Stored_Dialog { Monitor, Preview };

/// The stored place of a dialog about to open; what the out arguments hold stands in for values never stored.
/// A stored size too large for single precision leaves them all as they are.
void PRO_Lee_Dialogos(const App_Context& app, Stored_Dialog which, double& top, double& left, double& width,
                      double& height);

} // namespace zorvane::app
