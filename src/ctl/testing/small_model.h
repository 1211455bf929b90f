// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/testing/ctl_bench.h"

namespace zorvane::doubles {

/// A template with one field of two rows and two columns: a number, and a list.
inline std::string smallTemplate() {
    return lines({
        "[HARDWARE]",
        "CONTROLLER=abc",
        "[PORT_CONFIGURATION]",
        "COMMUNICATIONS_1_REQUEST=20",
        "COMMUNICATIONS_1_OUT=600",
        "HOLDINGREGISTERS=400",
        "HOLDINGREGISTERSBLOCK_1=100-103",
        "HOLDINGREQUESTBLOCK_1=always",
        "[CONFIGURATION_COLUMNS]",
        "CONFIGURATION_NC=2",
        "COL_1_DESC=No.",
        "COL_1_WIDTH=450",
        "[CONFIGURATION_FIELDS]",
        "FIELD_1_DESC=Outputs",
        "FIELD_1_RC=2,2",
        "[FIELD_1_COLUMNS]",
        "COL_1_DESC=Level",
        "COL_1_MODIFIABLE=YES",
        "COL_2_DESC=State",
        "COL_2_MODIFIABLE=YES",
        "[FIELD_1_CONFIGURATION]",
        "ROWADDRESS_1=100,102",
        "ROWADDRESS_2=101,103",
        "[FIELD_1_MESSAGES]",
        "ADDRESS_102=(0)Off,(1)On",
        "[ADDRESS_NOTDOWNLOADABLE]",
        "ADDRESS_1=103",
    });
}

inline std::string smallConfiguration() {
    return lines({"[Configuration_Default]", "FIELD_1=,Outputs", "", "[Field_1_Default]", "ROW_1=10,On",
                  "ROW_2=-5,7", "", "[Default_1_Columns]", "COL_1_WIDTH=1100", "COL_2_WIDTH=800", ""});
}

} // namespace zorvane::doubles
