// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <string>
#include <vector>

namespace zorvane::app {

/// The models that a new document can be of: the stems of the templates in the application folder, as their
/// files spell them.
[[nodiscard]] std::vector<std::string> modelsOnOffer(const App_Context& app);

/// Opens a new document of that model with its factory values: those of the model's factory file, or where it
/// has none, of its template. It is "UNTITLED" and has no place until it is saved; the document at hand is
/// left as by Open.
void newFromModel(const App_Context& app, const std::string& model);

} // namespace zorvane::app
