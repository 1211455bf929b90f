// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

namespace zorvane::app {

/// The document commands for an open document. Save isn't among them: a file just opened has nothing to save.
void PRO_Habilita_Menus(const App_Context& app);

/// The document commands off, the splitter hidden, the panels empty but for the unit number.
void PRO_Deshabilita_Menus(const App_Context& app);

/// "&Show grid  in report": turns the tick over and remembers it.
void MNU_Grid_Click(const App_Context& app);

void PRO_Marca_Solo_Lectura(const App_Context& app);
void PRO_Quita_Solo_Lectura(const App_Context& app);

} // namespace zorvane::app
