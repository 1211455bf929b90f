// SPDX-License-Identifier: MIT
#pragma once

#include "compare/controller_registers.h"
#include "template/testing/reading_bench.h"

#include <string>

namespace zorvane::compare::doubles {

/// A template with each kind of cell. Page 1, settings: a mode from a list (10), a level with limits (11), a
/// delay (12), a name of six characters (13-15), two bytes in one register (16), a time in two parts (17), an
/// unsigned number (18), and a unit number that downloads keep away from (19); a column of remarks. Page 2:
/// an offset in sign and magnitude (20), and a reading that can't be edited (30).
inline const std::string pumpTemplate = "[HARDWARE]\n"
                                        "CONTROLLER=PUMP\n"
                                        "[PORT_CONFIGURATION]\n"
                                        "HOLDINGREGISTERSBLOCK_1=10-20\n"
                                        "HOLDINGREQUESTBLOCK_1=CONFIG\n"
                                        "HOLDINGREGISTERSBLOCK_2=30-30\n"
                                        "HOLDINGREQUESTBLOCK_2=ALWAYS\n"
                                        "[CONFIGURATION_FIELDS]\n"
                                        "FIELD_1_DESC=Settings\n"
                                        "FIELD_1_RC=10,3\n"
                                        "FIELD_2_DESC=Readings\n"
                                        "FIELD_2_RC=1,3\n"
                                        "[FIELD_1_COLUMNS]\n"
                                        "COL_1_DESC=Setting\n"
                                        "COL_2_DESC=Value\n"
                                        "COL_2_TYPE=NUMERIC\n"
                                        "COL_2_MODIFIABLE=YES\n"
                                        "COL_2_MDBUSREQUEST=CONFIG\n"
                                        "COL_3_DESC=Remark\n"
                                        "COL_3_MODIFIABLE=YES\n"
                                        "[FIELD_2_COLUMNS]\n"
                                        "COL_1_DESC=Reading\n"
                                        "COL_2_DESC=Offset\n"
                                        "COL_2_MODIFIABLE=YES\n"
                                        "COL_2_BITSNEGATIVEFORMAT=8\n"
                                        "COL_2_MDBUSREQUEST=CONFIG\n"
                                        "COL_3_DESC=Now\n"
                                        "COL_3_MDBUSREQUEST=ALWAYS\n"
                                        "[FIELD_1_CONFIGURATION]\n"
                                        "ROWADDRESS_1=,10,\n"
                                        "ROWADDRESS_2=,11,\n"
                                        "ROWADDRESSNUMERICMINVALUE_2=,-20\n"
                                        "ROWADDRESSNUMERICMAXVALUE_2=,90\n"
                                        "ROWADDRESS_3=,12,\n"
                                        "ROWADDRESSFORMAT_3=,TIME\n"
                                        "ROWASCIIRANGE_4=,13-15,\n"
                                        "ROWADDRESS_5=,16/HI,\n"
                                        "ROWADDRESS_6=,16/LO,\n"
                                        "ROWADDRESS_7=,17,\n"
                                        "ROWADDRESSFORMAT_7=,TIMEMM\n"
                                        "ROWADDRESS_8=,17,\n"
                                        "ROWADDRESSFORMAT_8=,TIMESS\n"
                                        "ROWADDRESS_9=,18,\n"
                                        "ROWADDRESSFORMAT_9=,NUMERIC_UNSIGNED\n"
                                        "ROWADDRESS_10=,19,\n"
                                        "[FIELD_2_CONFIGURATION]\n"
                                        "ROWADDRESS_1=,20,30\n"
                                        "[FIELD_1_MESSAGES]\n"
                                        "ADDRESS_10=(0)Off,(1)On,(2)Auto\n"
                                        "[ADDRESS_NOTDOWNLOADABLE]\n"
                                        "ADDRESS_1=19\n"
                                        "[FIELD_1_DEFAULT]\n"
                                        "ROW_1=Mode,Auto,\n"
                                        "ROW_2=Level,-5,in %\n"
                                        "ROW_3=Delay,1:30,\n"
                                        "ROW_4=Name,PUMP,\n"
                                        "ROW_5=Upper,7,\n"
                                        "ROW_6=Lower,8,\n"
                                        "ROW_7=Minutes,2,\n"
                                        "ROW_8=Seconds,05,\n"
                                        "ROW_9=Starts,40000,\n"
                                        "ROW_10=Unit,1,\n"
                                        "[FIELD_2_DEFAULT]\n"
                                        "ROW_1=Bearing,-3,21\n";

/// What a controller holds after a download of the template's own values: a name filled with blanks, -3 in
/// sign and magnitude.
inline Controller_Registers::Values pumpRegisters() {
    return {{10, 2},      {11, 65531}, {12, 90},    {13, 0x5055}, {14, 0x4D50}, {15, 0x2020},
            {16, 0x0708}, {17, 125},   {18, 40000}, {19, 1},      {20, 131},    {30, 21}};
}

} // namespace zorvane::compare::doubles
