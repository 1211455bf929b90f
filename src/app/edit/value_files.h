// SPDX-License-Identifier: MIT
#pragma once

#include "app/edit/fit_question.h"
#include "app/form/app_context.h"
#include "edit/value_export.h"

#include <string>

namespace zorvane::app {

/// The file types of "Export &values...": how columns and decimals are separated.
inline const std::string exportedTypes =
    "Comma, decimal point (*.csv)|*.csv|Semicolon, decimal comma (*.csv)|*.csv|"
    "Semicolon, decimal point (*.csv)|*.csv|Tabs, decimal point (*.txt)|*.txt|";
inline const std::string importedTypes = "Values (*.csv;*.txt)|*.csv;*.txt|All files (*.*)|*.*|";

/// How a file of the chosen one of those types is written, from 1.
[[nodiscard]] edit::Csv_Style exportStyle(int type);

/// Writes the values of all cells that can be edited to a file. The message bar tells of a failure.
void exportValues(const App_Context& app, const std::string& path, const edit::Csv_Style& style);

/// Reads values from a file, judges all of them, and asks with a preview. What is taken is one step.
void importValues(const App_Context& app, const std::string& path, const Ask_Fit& ask);

} // namespace zorvane::app
