// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form.h"
#include "values/run_time_failure.h"

#include <utility>

namespace zorvane {

/// The message for a run-time failure that nothing handled.
void tellRunTimeFailure(Main_Form& mainForm, const Run_Time_Failure& failure);

/// Runs a handler for the window: a run-time failure stops it with a message and the program goes on.
template <class Handler> void stoppingOnFailure(Main_Form& mainForm, Handler&& handler) {
    try {
        std::forward<Handler>(handler)();
    } catch (const Run_Time_Failure& failure) {
        tellRunTimeFailure(mainForm, failure);
    }
}

} // namespace zorvane
