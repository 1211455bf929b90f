// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form.h"

namespace zorvane {

/// One step of the bar; a full bar stays full.
inline void advanceProgress(Progress_Form& progress) {
    if (progress.value() < progress.maximum()) progress.setValue(progress.value() + 1);
}

/// The controller was silent: the progress form stays open with its Ok button, and the main form is free
/// again.
inline void showNoResponse(Main_Form& mainForm) {
    mainForm.setFormEnabled(true);
    mainForm.setPanel(Panel::LinkState, "Offline");
    mainForm.setPanel(Panel::Message, "Error. The controller does not respond.");
}

} // namespace zorvane
