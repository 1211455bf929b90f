// SPDX-License-Identifier: MIT
#include "checker/testing/rule_samples.h"

namespace zorvane::checker::doubles {

std::vector<Sample> lineSamples() {
    return {
        {"byte-order-mark",
         {{"[HARDWARE]", "\xEF\xBB\xBF[HARDWARE]"}},
         "1: error: a byte order mark in front of the first line [byte-order-mark]\n"
         "1: warning: a line without \"=\" [stray-line]\n"
         "1: warning: the controller has no name [controller-missing]\n"
         "2: warning: a key in front of the first section [no-section]\n"},
        {"utf-8",
         {{"ROW_3=Name,Pump", "ROW_3=Gr\xC3\xB6\xC3\x9F"
                              "e,Pump"}},
         "38: warning: the line looks like UTF-8 [utf-8]\n"},
        {"code-page",
         {{"ROW_3=Name,Pump", "ROW_3=Na\x81me,Pump"}},
         "38: warning: the byte 0x81 is no character [code-page]\n"},
        {"control-character",
         {{"COL_2_WIDTH=800", "COL_2_WIDTH\t=800"}},
         "14: warning: no width for column 2 [width-missing]\n"
         "17: warning: a tab in the line [control-character]\n"
         "17: warning: a blank after the key \"COL_2_WIDTH\" [key-blank]\n"},
        {"indented-header",
         {{"[FIELD_1_MESSAGES]", " [FIELD_1_MESSAGES]"}},
         "31: error: a section header after blanks [indented-header]\n"
         "32: warning: unknown key \"ADDRESS_100\" in [FIELD_1_CONFIGURATION] [key-unknown]\n"
         "36: warning: the default \"Off\" is no number (field 1, row 1, column 2) [default-number]\n"},
        {"indented-comment",
         {{"", "  ; ROW_6=not yet"}},
         "41: warning: a comment after blanks [indented-comment]\n"},
        {"header-end",
         {{"[FIELD_1_MESSAGES]", "[FIELD_1_MESSAGES"}},
         "31: error: a section header that doesn't end in its \"]\" [header-end]\n"
         "31: warning: unknown section \"FIELD_1_MESSAGE\" [section-unknown]\n"
         "36: warning: the default \"Off\" is no number (field 1, row 1, column 2) [default-number]\n"},
        {"stray-line",
         {{"ROW_3=Name,Pump", "ROW_3=Name,Pump\nROW_6"}},
         "39: warning: a line without \"=\" [stray-line]\n"},
        {"semicolon",
         {{"NUMERIC_ROWS=YES", "NUMERIC_ROWS=YES ; numbers in front"}},
         "8: warning: a \";\" in the value, which is \"YES \" now [semicolon]\n"
         "8: warning: \"YES \" counts as no [yes-no]\n"},
        {"section-unknown",
         {{"[FIELD_1_MESSAGES]", "[FIELD_1_MESAGES]"}},
         "31: warning: unknown section \"FIELD_1_MESAGES\" [section-unknown]\n"
         "36: warning: the default \"Off\" is no number (field 1, row 1, column 2) [default-number]\n"},
        {"no-section",
         {{"[HARDWARE]", "PORT=1\n[HARDWARE]"}},
         "1: warning: a key in front of the first section [no-section]\n"},
        {"key-unknown",
         {{"COL_2_MDBUSREQUEST=ALWAYS", "COL_2_MODBUSREQUEST=ALWAYS"}},
         "20: warning: unknown key \"COL_2_MODBUSREQUEST\" in [FIELD_1_COLUMNS] [key-unknown]\n"
         "32: warning: a list that can be edited in a column that isn't polled (field 1, row 1, column 2) "
         "[list-request]\n"},
        {"key-blank",
         {{"NUMERIC_ROWS=YES", "NUMERIC_ROWS =YES"}},
         "8: warning: a blank after the key \"NUMERIC_ROWS\" [key-blank]\n"}};
}

std::vector<Sample> tableSamples() {
    return {
        {"number-text",
         {{"ROW_3=Name,Pump", "ROW_3.=Name,Pump"}},
         "38: warning: \"3.\" is no number; 3 is taken [number-text]\n"},
        {"key-twice",
         {{"COL_2_WIDTH=800", "COL_2_WIDTH=800\nCOL_2_WIDTH=900"}},
         "18: warning: the same key as in line 17 [key-twice]\n"},
        {"field-limit",
         {{"FIELD_1_DESC=Outputs", "FIELD_1_DESC=Outputs\nFIELD_101_DESC=Inputs"}},
         "14: error: field 101 is above 100 [field-limit]\n"
         "14: error: field 101 has no FIELD_101_RC [field-size]\n"
         "14: warning: field 101 has no texts for the upper grid [upper-texts]\n"},
        {"field-repeated",
         {{"FIELD_1_DESC=Outputs", "FIELD_1_DESC=Outputs\nFIELD_1_DESC=Inputs"}},
         "14: error: field 1 was named in line 13 [field-repeated]\n"},
        {"field-missing",
         {{"FIELD_1_DESC=Outputs", "FIELD_1_DESC=Outputs\nFIELD_3_DESC=Inputs\nFIELD_3_RC=1,1"}},
         "14: error: this is field 3, and there is no field 2 [field-missing]\n"
         "14: warning: field 3 has no texts for the upper grid [upper-texts]\n"
         "15: warning: no width for column 1 [width-missing]\n"
         "15: warning: no line speaks of row 1 [row-empty]\n"},
        {"field-size",
         {{"FIELD_1_RC=5,2", "FIELD_1_RC=5,2\nFIELD_2_DESC=Inputs\nFIELD_2_RC=5x2"}},
         "15: warning: field 2 has no texts for the upper grid [upper-texts]\n"
         "16: error: \"5x2\" is no size of a table [field-size]\n"},
        {"field-emptied",
         {{"[FIELD_1_MESSAGES]", "[CONFIGURATION_FIELDS]\nFIELD_1_RC=5,2\n[FIELD_1_MESSAGES]"}},
         "32: warning: field 1 has its table already [field-emptied]\n"
         "34: warning: field 1 has no cell at register 100 [message-unused]\n"},
        {"before-size",
         {{"[HARDWARE]", "[FIELD_1_COLUMNS]\nCOL_1_DESC=Setting\n[HARDWARE]"}},
         "2: error: field 1 has no table yet [before-size]\n"},
        {"before-count",
         {{"NUMERIC_ROWS=YES", "COL_1_DESC=Number\nNUMERIC_ROWS=YES"}},
         "8: error: the upper grid has no columns yet [before-count]\n"},
        {"out-of-range",
         {{"ROW_5=Starts,40000", "ROW_5=Starts,40000\nROW_6=Hours,0"}},
         "41: error: row 6 isn't there: rows go from 1 to 5 [out-of-range]\n"},
        {"list-long",
         {{"ROW_3=Name,Pump", "ROW_3=Name, of the pump,Pump"}},
         "38: error: 3 items for 2 columns [list-long]\n"
         "38: warning: the text \" of the pump\" is longer than 8 characters (field 1, row 3, column 2) "
         "[text-long]\n"},
        {"list-short",
         {{"ROWADDRESS_1=,100", "ROWADDRESS_1=,100\n[FIELD_1_DEFAULT]\nROW_1=Mode\n[FIELD_1_CONFIGURATION]"},
          {"ROW_1=Mode,Off\n", ""}},
         "24: warning: 1 item for 2 columns [list-short]\n"},
        {"upper-texts",
         {{"FIELD_1=,Outputs", "FIELD_1="}},
         "34: warning: 1 item for 2 columns of the upper grid [upper-texts]\n"},
        {"width-missing",
         {{"COL_2_WIDTH=800\n", ""}},
         "14: warning: no width for column 2 [width-missing]\n"},
        {"row-empty",
         {{"FIELD_1_RC=5,2", "FIELD_1_RC=7,2"}},
         "14: warning: no line speaks of rows 6, 7 [row-empty]\n"},
        {"width-number",
         {{"COL_2_WIDTH=800", "COL_2_WIDTH=800 twips"}},
         "17: error: \"800 twips\" is no width [width-number]\n"},
        {"not-a-number",
         {{"HOLDINGREGISTERS=200", "HOLDINGREGISTERS=200\nCOMMUNICATIONS_1_OUT=0.5 s"}},
         "5: error: \"0.5 s\" is no number for COMMUNICATIONS_1_OUT [not-a-number]\n"},
        {"yes-no",
         {{"COL_2_MODIFIABLE=YES", "COL_2_MODIFIABLE=YES\nCOL_1_MODIFIABLE=TRUE"}},
         "20: warning: \"TRUE\" counts as no [yes-no]\n"},
        {"alignment-word",
         {{"COL_2_WIDTH=800", "COL_2_WIDTH=800\nCOL_2_ALIGNMENT=CENTRE"}},
         "18: warning: unknown alignment \"CENTRE\" [alignment-word]\n"},
        {"type-word",
         {{"COL_2_TYPE=NUMERIC", "COL_2_TYPE=NUMERIC\nCOL_1_TYPE=NUMBER"}},
         "19: warning: unknown type \"NUMBER\" [type-word]\n"},
        {"format-word",
         {{"ROWADDRESSFORMAT_5=,NUMERIC_UNSIGNED", "ROWADDRESSFORMAT_5=,UNSIGNED"},
          {"ROW_5=Starts,40000", "ROW_5=Starts,0"}},
         "30: warning: unknown format \"UNSIGNED\" [format-word]\n"},
        {"colour-word",
         {{"[CONFIGURATION_COLUMNS]", "[COLORS]\nTXT_1_NORMAL=GREY\n[CONFIGURATION_COLUMNS]"}},
         "8: warning: unknown colour \"GREY\" [colour-word]\n"},
        {"colour-same",
         {{"[CONFIGURATION_COLUMNS]", "[COLORS]\nTXT_1_NORMAL=WHITE\n[CONFIGURATION_COLUMNS]"}},
         "8: warning: text and ground of NORMAL are both WHITE [colour-same]\n"},
        {"bits-number",
         {{"COL_2_WIDTH=800", "COL_2_WIDTH=800\nCOL_1_BITSNEGATIVEFORMAT=sign"}},
         "18: warning: \"sign\" is no number of bits [bits-number]\n"}};
}

} // namespace zorvane::checker::doubles
