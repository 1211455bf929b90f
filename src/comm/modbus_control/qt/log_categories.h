// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>

namespace zorvane {

// What support asks for, on the error output: silent unless a rule says otherwise, such as
// QT_LOGGING_RULES="zorvane.*.debug=true". No register's value is among it.
Q_DECLARE_LOGGING_CATEGORY(portLog)      ///< "zorvane.port": opened how, refused why, lost
Q_DECLARE_LOGGING_CATEGORY(simulatorLog) ///< "zorvane.simulator": the simulated controller of the window

} // namespace zorvane
