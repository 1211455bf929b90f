// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <string>

namespace zorvane::app {

/// "&Open...": asks for a configuration file, reads its template and then the file over it, and shows them.
/// Every step runs with failures ignored, so a bad template leaves what was read so far on screen.
void MNU_Open_Click(const App_Context& app);

/// The same for a file at hand, without the dialog: one that was dropped on the window.
void openFile(const App_Context& app, const std::string& path, bool readOnly);

/// "&Close".
void MNU_Close_Click(const App_Context& app);

/// "&Save": writes the file that was opened. It looks at no result, and the title goes clean even so. A
/// document without a place goes the way of Save As.
void MNU_Save_Click(const App_Context& app);

/// "Save &As...". A document can't be saved over a model's factory file, DEFAULT.
void MNU_Saveas_Click(const App_Context& app);

/// Asks about unsaved changes and clears the document. `ok` is false only when the user cancelled; it stays
/// true when the save failed, and a caller that goes on loses the changes.
void PRO_Cierra_Documento(const App_Context& app, bool& ok);

/// Resets the model and the main form.
void PRO_Limpia_Documento(const App_Context& app);

} // namespace zorvane::app
