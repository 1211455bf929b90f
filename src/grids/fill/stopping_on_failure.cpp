// SPDX-License-Identifier: MIT
#include "grids/fill/stopping_on_failure.h"

#include "template/services/asker.h"

#include <string>

namespace zorvane {

void tellRunTimeFailure(Main_Form& mainForm, const Run_Time_Failure& failure) {
    mainForm.Msgb_Show("Run-time error '" + std::to_string(failure.number()) + "': " + failure.description(),
                       Msgb_Critical, applicationTitle);
}

} // namespace zorvane
