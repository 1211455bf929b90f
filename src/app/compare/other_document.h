// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <memory>
#include <string>

namespace zorvane::app {

/// A document beside the one at work, as Open would read it; nobody is told and no file is rewritten.
struct Other_Document {
    std::unique_ptr<Declara_Zorvane> document;
    std::string fault; ///< why it can't be worked with, whole sentences; empty when it can
};

/// Reads a template, and a configuration file over it unless its path is empty.
[[nodiscard]] Other_Document readOther(const App_Context& app, const std::string& templatePath,
                                       const std::string& configurationPath);

/// The template of a document's type ("KVRT207D") in the application folder.
[[nodiscard]] std::string templateOfType(const App_Context& app, const std::string& type);

} // namespace zorvane::app
