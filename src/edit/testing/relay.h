// SPDX-License-Identifier: MIT
#pragma once

#include "template/testing/reading_bench.h"

#include <string>

namespace zorvane::doubles {

/// A template with two pages: "Regulation" of a name, a value (a number from 800 to 1400, one without limits,
/// a time from 0:05 to 9:00, a list, a text of 4 characters), a remark and a reading, and "Timers", whose
/// rows have no name.
inline std::string relayTemplate() {
    return "[HARDWARE]\r\n"
           "CONTROLLER=RELAY\r\n"
           "[PORT_CONFIGURATION]\r\n"
           "HOLDINGREGISTERSBLOCK_1=100-130\r\n"
           "[CONFIGURATION_COLUMNS]\r\n"
           "CONFIGURATION_NC=2\r\n"
           "[CONFIGURATION_FIELDS]\r\n"
           "FIELD_1_DESC=Regulation\r\n"
           "FIELD_1_RC=5,4\r\n"
           "FIELD_2_DESC=Timers\r\n"
           "FIELD_2_RC=2,2\r\n"
           "[FIELD_1_COLUMNS]\r\n"
           "COL_1_DESC=Setting\r\n"
           "COL_2_DESC=Value\r\n"
           "COL_2_TYPE=NUMERIC\r\n"
           "COL_2_MODIFIABLE=YES\r\n"
           "COL_3_DESC=Remark\r\n"
           "COL_3_TYPE=TEXT\r\n"
           "COL_3_MODIFIABLE=YES\r\n"
           "COL_4_DESC=Reading\r\n"
           "COL_4_TYPE=NUMERIC\r\n"
           "[FIELD_2_COLUMNS]\r\n"
           "COL_1_DESC=Pulse\r\n"
           "COL_1_TYPE=NUMERIC\r\n"
           "COL_1_MODIFIABLE=YES\r\n"
           "COL_2_DESC=Pause\r\n"
           "COL_2_TYPE=NUMERIC\r\n"
           "COL_2_MODIFIABLE=YES\r\n"
           "[FIELD_1_CONFIGURATION]\r\n"
           "ROWADDRESS_1=,100,,120\r\n"
           "ROWADDRESSNUMERICMINVALUE_1=,800\r\n"
           "ROWADDRESSNUMERICMAXVALUE_1=,1400\r\n"
           "ROWADDRESS_2=,101\r\n"
           "ROWADDRESS_3=,102\r\n"
           "ROWADDRESSFORMAT_3=,TIME\r\n"
           "ROWADDRESSTIMEMINVALUE_3=,0:05\r\n"
           "ROWADDRESSTIMEMAXVALUE_3=,9:00\r\n"
           "ROWADDRESS_4=,103/HI\r\n"
           "ROWASCIIRANGE_5=,104-105\r\n"
           "[FIELD_2_CONFIGURATION]\r\n"
           "ROWADDRESS_1=110,111\r\n"
           "ROWADDRESS_2=112,113\r\n"
           "[FIELD_1_MESSAGES]\r\n"
           "ADDRESS_103/HI=(0)Off,(1)On,(7)Trip\r\n"
           "[CONFIGURATION_DEFAULT]\r\n"
           "FIELD_1=,Regulation\r\n"
           "FIELD_2=,Timers\r\n"
           "[FIELD_1_DEFAULT]\r\n"
           "ROW_1=Set point,1125,agreed,1123\r\n"
           "ROW_2=Drop X,-12,,\r\n"
           "ROW_3=Delay,0:45,,\r\n"
           "ROW_4=Output,On,,\r\n"
           "ROW_5=Tag,T-2,,\r\n"
           "[FIELD_2_DEFAULT]\r\n"
           "ROW_1=1,2\r\n"
           "ROW_2=3,4\r\n";
}

/// That template, read.
struct Relay : Reading_Bench {
    Relay() { readTemplate(relayTemplate()); }
};

} // namespace zorvane::doubles
