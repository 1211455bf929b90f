// SPDX-License-Identifier: MIT
// One small template for each code, and what is found in it.

#include "checker/checker.h"
#include "checker/testing/finding_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <ostream>
#include <set>
#include <utility>

namespace zorvane::checker {
namespace {

using doubles::findingsText;

/// A template in which nothing is found.
const std::string good = "[HARDWARE]\n"
                         "CONTROLLER=ABC\n"
                         "[PORT_CONFIGURATION]\n"
                         "HOLDINGREGISTERS=200\n"
                         "HOLDINGREGISTERSBLOCK_1=100-119\n"
                         "HOLDINGREQUESTBLOCK_1=ALWAYS\n"
                         "[CONFIGURATION_COLUMNS]\n"
                         "NUMERIC_ROWS=YES\n"
                         "CONFIGURATION_NC=2\n"
                         "COL_1_WIDTH=450\n"
                         "COL_2_WIDTH=1600\n"
                         "[CONFIGURATION_FIELDS]\n"
                         "FIELD_1_DESC=Outputs\n"
                         "FIELD_1_RC=5,2\n"
                         "[FIELD_1_COLUMNS]\n"
                         "COL_1_WIDTH=1000\n"
                         "COL_2_WIDTH=800\n"
                         "COL_2_TYPE=NUMERIC\n"
                         "COL_2_MODIFIABLE=YES\n"
                         "COL_2_MDBUSREQUEST=ALWAYS\n"
                         "[FIELD_1_CONFIGURATION]\n"
                         "ROWADDRESS_1=,100\n"
                         "ROWADDRESS_2=,101\n"
                         "ROWADDRESSFORMAT_2=,TIME\n"
                         "ROWASCIIRANGE_3=,110-113\n"
                         "ROWADDRESS_4=,102\n"
                         "ROWADDRESSNUMERICMINVALUE_4=,10\n"
                         "ROWADDRESSNUMERICMAXVALUE_4=,90\n"
                         "ROWADDRESS_5=,103\n"
                         "ROWADDRESSFORMAT_5=,NUMERIC_UNSIGNED\n"
                         "[FIELD_1_MESSAGES]\n"
                         "ADDRESS_100=(0)Off,(1)On\n"
                         "[CONFIGURATION_DEFAULT]\n"
                         "FIELD_1=,Outputs\n"
                         "[FIELD_1_DEFAULT]\n"
                         "ROW_1=Mode,Off\n"
                         "ROW_2=Delay,1:30\n"
                         "ROW_3=Name,Pump\n"
                         "ROW_4=Level,50\n"
                         "ROW_5=Starts,40000\n";

/// Text that stands in the good template and what takes its place; in place of nothing it goes to the end.
using Edit = std::pair<std::string, std::string>;

struct Sample {
    std::string code;
    std::vector<Edit> edits;
    std::string findings;
};

void PrintTo(const Sample& sample, std::ostream* out) { *out << sample.code; }

const std::vector<Sample> samples = {
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
     "8: warning: a blank after the key \"NUMERIC_ROWS\" [key-blank]\n"},
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
    {"width-missing", {{"COL_2_WIDTH=800\n", ""}}, "14: warning: no width for column 2 [width-missing]\n"},
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
     "18: warning: \"sign\" is no number of bits [bits-number]\n"},
    {"address-form",
     {{"ROWADDRESS_4=,102", "ROWADDRESS_4=,102/hi"}},
     "26: error: \"102/hi\" is no address (field 1, row 4, column 2) [address-form]\n"},
    {"address-range",
     {{"HOLDINGREGISTERS=200", "HOLDINGREGISTERS=200\nADDRESSBASE=101"}},
     "23: error: register \"100\" is no address on the line (field 1, row 1, column 2) [address-range]\n"},
    {"ascii-backwards",
     {{"ROWASCIIRANGE_3=,110-113", "ROWASCIIRANGE_3=,113-110"}},
     "25: error: the text \"113-110\" goes backwards (field 1, row 3, column 2) [ascii-backwards]\n"},
    {"address-unscanned",
     {{"ROWADDRESS_4=,102", "ROWADDRESS_4=,120"}},
     "26: warning: register 120 lies in no scan block (field 1, row 4, column 2) [address-unscanned]\n"},
    {"address-shared",
     {{"ROWADDRESS_5=,103", "ROWADDRESS_5=,102"}},
     "29: warning: register 102 is an unsigned number here (field 1, row 5, column 2) and a number in field "
     "1, row 4, column 2 [address-shared]\n"},
    {"time-pair",
     {{"ROWADDRESSFORMAT_2=,TIME", "ROWADDRESSFORMAT_2=,TIMEMM"},
      {"ROW_2=Delay,1:30", "ROW_2=Delay,1"},
      {"", "[ADDRESS_NOTDOWNLOADABLE]\nADDRESS_1=101"}},
     "24: warning: TIMEMM at register 101 without its TIMESS (field 1, row 2, column 2) [time-pair]\n"},
    {"half-alone",
     {{"ROWADDRESS_4=,102", "ROWADDRESS_4=,102/HI"}},
     "26: warning: 102/HI without 102/LO (field 1, row 4, column 2) [half-alone]\n"},
    {"list-replaces",
     {{"ROWASCIIRANGE_3=,110-113", "ROWASCIIRANGE_3=,110-113\nROWADDRESS_3=,104"}},
     "26: warning: it replaces what line 25 says of column 2 [list-replaces]\n"},
    {"bits-cell",
     {{"COL_2_WIDTH=800", "COL_2_WIDTH=800\nCOL_2_BITSNEGATIVEFORMAT=16"},
      {"ROWADDRESSFORMAT_2=,TIME\n", ""},
      {"ROWASCIIRANGE_3", "ROWADDRESS_3"},
      {",110-113", ","},
      {"ROW_3=Name,Pump", "ROW_3=Spare,0"},
      {"ROW_2=Delay,1:30", "ROW_2=Delay,90"},
      {"ADDRESS_100=(0)Off,(1)On\n", ""},
      {"ROW_1=Mode,Off", "ROW_1=Mode,0"}},
     "29: warning: an unsigned number in a column with BITSNEGATIVEFORMAT (field 1, row 5, column 2) "
     "[bits-cell]\n"},
    {"free-text-register",
     {{"COL_2_TYPE=NUMERIC\n", ""}},
     "22: warning: register 101 in a column of free text (field 1, row 2, column 2) [free-text-register]\n"
     "24: warning: register 110-113 in a column of free text (field 1, row 3, column 2) "
     "[free-text-register]\n"
     "25: warning: register 102 in a column of free text (field 1, row 4, column 2) [free-text-register]\n"
     "28: warning: register 103 in a column of free text (field 1, row 5, column 2) [free-text-register]\n"},
    {"message-unused",
     {{"ADDRESS_100=(0)Off,(1)On", "ADDRESS_100=(0)Off,(1)On\nADDRESS_105=(0)Off,(1)On"}},
     "33: warning: field 1 has no cell at register 105 [message-unused]\n"},
    {"message-brackets",
     {{"ADDRESS_100=(0)Off,(1)On", "ADDRESS_100=(0)Off,(1)On, slowly"}},
     "32: error: \" slowly\" has no code in brackets in front [message-brackets]\n"},
    {"message-codes",
     {{"ADDRESS_100=(0)Off,(1)On", "ADDRESS_100=(0)Off,(2)On"}},
     "32: warning: \"On\" has the code 2 in place 1 [message-codes]\n"},
    {"message-twice",
     {{"ADDRESS_100=(0)Off,(1)On", "ADDRESS_100=(0)Off,(1)On,(2)ON"}},
     "32: warning: \"ON\" occurs twice [message-twice]\n"},
    {"message-number",
     {{"ADDRESS_100=(0)Off,(1)On", "ADDRESS_100=(0)Off,(1)2,(2)4"}},
     "32: warning: the text \"2\" is the code of another text [message-number]\n"},
    {"message-blank",
     {{"ADDRESS_100=(0)Off,(1)On", "ADDRESS_100=(0)Off,(1) On"}},
     "32: warning: blanks around the text \" On\" [message-blank]\n"},
    {"list-request",
     {{"COL_2_MDBUSREQUEST=ALWAYS", "COL_2_MDBUSREQUEST=CONFIG"},
      {"HOLDINGREQUESTBLOCK_1=ALWAYS", "HOLDINGREQUESTBLOCK_1=CONFIG"}},
     "32: warning: a list that can be edited in a column that isn't polled (field 1, row 1, column 2) "
     "[list-request]\n"},
    {"limits-order",
     {{"ROWADDRESSNUMERICMINVALUE_4=,10", "ROWADDRESSNUMERICMINVALUE_4=,100"}},
     "28: error: the lowest value 100 is above the highest, 90 (field 1, row 4, column 2) [limits-order]\n"},
    {"limits-default",
     {{"ROW_4=Level,50", "ROW_4=Level,0"}},
     "39: warning: the default \"0\" lies outside the limits \"10\" and \"90\" (field 1, row 4, column 2) "
     "[limits-default]\n"},
    {"limits-text",
     {{"ROWADDRESSNUMERICMAXVALUE_4=,90", "ROWADDRESSNUMERICMAXVALUE_4=,90 %"}},
     "28: warning: \"90 %\" is no number (field 1, row 4, column 2) [limits-text]\n"},
    {"limits-empty",
     {{"ROWADDRESSFORMAT_5=,NUMERIC_UNSIGNED",
       "ROWADDRESSFORMAT_5=,NUMERIC_UNSIGNED\nROWADDRESSNUMERICMAXVALUE_5=,"},
      {"ROW_5=Starts,40000", "ROW_5=Starts,0"}},
     "31: warning: the empty item sets 32767 (field 1, row 5, column 2) [limits-empty]\n"},
    {"limits-register",
     {{"ROWADDRESSNUMERICMAXVALUE_4=,90", "ROWADDRESSNUMERICMAXVALUE_4=,40000"}},
     "28: warning: the limit \"40000\" is beyond the register, which holds -32768 to 32767 (field 1, row 4, "
     "column 2) [limits-register]\n"},
    {"limits-single",
     {{"ROWADDRESSFORMAT_2=,TIME", "ROWADDRESSFORMAT_2=,TIME\nROWADDRESSTIMEMAXVALUE_2=,10:00"}},
     "25: warning: a time with a highest value only (field 1, row 2, column 2) [limits-single]\n"},
    {"default-message",
     {{"ROW_1=Mode,Off", "ROW_1=Mode,Of"}},
     "36: warning: \"Of\" is no text of the list (field 1, row 1, column 2) [default-message]\n"},
    {"default-order",
     {{"[FIELD_1_MESSAGES]", "[FIELD_1_DEFAULT]\nROW_1=Mode,Off\n[FIELD_1_MESSAGES]"},
      {"ROW_1=Mode,Off\nROW_2", "ROW_2"}},
     "32: warning: a default in front of the line that makes the cell a list (field 1, row 1, column 2) "
     "[default-order]\n"},
    {"default-number",
     {{"ROW_4=Level,50", "ROW_4=Level,"}},
     "39: warning: the default \"\" is no number (field 1, row 4, column 2) [default-number]\n"},
    {"default-register",
     {{"ROW_5=Starts,40000", "ROW_5=Starts,70000"}},
     "40: warning: the default \"70000\" doesn't fit the register, which holds 0 to 65535 (field 1, row 5, "
     "column 2) [default-register]\n"},
    {"default-time",
     {{"ROW_2=Delay,1:30", "ROW_2=Delay,90 s"}},
     "37: warning: the default \"90 s\" is no time (field 1, row 2, column 2) [default-time]\n"},
    {"text-long",
     {{"ROW_3=Name,Pump", "ROW_3=Name,Pump house"}},
     "38: warning: the text \"Pump house\" is longer than 8 characters (field 1, row 3, column 2) "
     "[text-long]\n"},
    {"text-character",
     {{"ROW_3=Name,Pump", "ROW_3=Name,Ca\xF1o"}},
     "38: warning: the text \"Ca\xF1o\" has a character beyond ASCII (field 1, row 3, column 2) "
     "[text-character]\n"},
    {"no-block",
     {{"HOLDINGREGISTERSBLOCK_1=100-119\nHOLDINGREQUESTBLOCK_1=ALWAYS\n", ""},
      {"COL_2_MDBUSREQUEST=ALWAYS\n", ""}},
     "3: error: no HOLDINGREGISTERSBLOCK_# line in the whole file [no-block]\n"
     "29: warning: a list that can be edited in a column that isn't polled (field 1, row 1, column 2) "
     "[list-request]\n"},
    {"block-form",
     {{"HOLDINGREGISTERSBLOCK_1=100-119", "HOLDINGREGISTERSBLOCK_1=100-119\nHOLDINGREGISTERSBLOCK_2=120"}},
     "6: error: \"120\" is no block of registers [block-form]\n"},
    {"block-size",
     {{"HOLDINGREGISTERSBLOCK_1=100-119", "HOLDINGREGISTERSBLOCK_1=1-126"}},
     "5: warning: the block has 126 registers [block-size]\n"},
    {"block-overlap",
     {{"HOLDINGREGISTERSBLOCK_1=100-119",
       "HOLDINGREGISTERSBLOCK_1=100-119\nHOLDINGREGISTERSBLOCK_2=119-130"}},
     "6: warning: the block meets block 1 of line 5 [block-overlap]\n"},
    {"block-number",
     {{"HOLDINGREGISTERSBLOCK_1=100-119",
       "HOLDINGREGISTERSBLOCK_1=100-119\nHOLDINGREGISTERSBLOCK_3=120-130"}},
     "6: warning: block 3 is block 2 of the file [block-number]\n"},
    {"request-order",
     {{"HOLDINGREGISTERSBLOCK_1=100-119\nHOLDINGREQUESTBLOCK_1=ALWAYS",
       "HOLDINGREQUESTBLOCK_1=ALWAYS\nHOLDINGREGISTERSBLOCK_1=100-119"},
      {"COL_2_MDBUSREQUEST=ALWAYS", "COL_2_MDBUSREQUEST=NONE"},
      {"ADDRESS_100=(0)Off,(1)On\n", ""},
      {"ROW_1=Mode,Off", "ROW_1=Mode,0"}},
     "5: error: block 1 comes further down [request-order]\n"},
    {"request-word",
     {{"COL_2_MDBUSREQUEST=ALWAYS", "COL_2_MDBUSREQUEST=ALWAYS\nCOL_1_MDBUSREQUEST=CONFIGS"}},
     "21: warning: no scan block has the request word \"CONFIGS\" [request-word]\n"},
    {"request-cell",
     {{"HOLDINGREGISTERSBLOCK_1=100-119", "HOLDINGREGISTERSBLOCK_1=100-102\nHOLDINGREGISTERSBLOCK_2=103-119"},
      {"ROWASCIIRANGE_3=,110-113", "ROWADDRESS_3=,"},
      {"ROW_3=Name,Pump", "ROW_3=Spare,0"}},
     "30: warning: register 103 of an ALWAYS column lies in a block that isn't polled (field 1, row 5, "
     "column 2) [request-cell]\n"},
    {"image-size",
     {{"HOLDINGREGISTERS=200", "HOLDINGREGISTERS=110"}},
     "4: warning: the highest register in use is 119 [image-size]\n"},
    {"file-name", {}, "1: warning: the file's name \"A.B.ZTP\" is no name of a template [file-name]\n"},
    {"controller-missing",
     {{"CONTROLLER=ABC\n", ""}},
     "1: warning: the controller has no name [controller-missing]\n"},
    {"controller-order",
     {{"CONTROLLER=ABC", "DOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=100-103\nCONTROLLER=R7702-16"}},
     "2: warning: a DOWNLOAD line in front of CONTROLLER [controller-order]\n"},
    {"default-download",
     {{"CONTROLLER=ABC", "CONTROLLER=R7702-16\nDOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=100-103"}},
     "3: error: a DOWNLOAD line in the template that the window starts with [default-download]\n"},
    {"download-form",
     {{"CONTROLLER=ABC", "CONTROLLER=R7702-16\nDOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=100-103"},
      {"[PORT_CONFIGURATION]", "DOWNLOAD_2_MULTIPLEREGISTERBLOCKASCII=110\n[PORT_CONFIGURATION]"}},
     "4: error: \"110\" is no block of registers [download-form]\n"},
    {"download-size",
     {{"CONTROLLER=ABC", "CONTROLLER=R7702-16\nDOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=1-124"}},
     "3: warning: the block has 124 registers [download-size]\n"},
    {"download-shadow",
     {{"CONTROLLER=ABC", "CONTROLLER=R7702-16\nDOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=100-103"},
      {"[PORT_CONFIGURATION]", "DOWNLOAD_2_MULTIPLEREGISTERBLOCKNUMERIC=104-109\n[PORT_CONFIGURATION]"}},
     "4: warning: the block of line 3 is taken for every number from 100 on [download-shadow]\n"},
    {"download-overlap",
     {{"CONTROLLER=ABC", "CONTROLLER=R7702-16\nDOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=100-103"},
      {"[PORT_CONFIGURATION]", "DOWNLOAD_2_MULTIPLEREGISTERBLOCKASCII=110-125\nDOWNLOAD_3_"
                               "MULTIPLEREGISTERBLOCKASCII=118-133\n[PORT_CONFIGURATION]"}},
     "5: warning: the block meets that of line 4 [download-overlap]\n"},
    {"download-missing",
     {{"CONTROLLER=ABC", "CONTROLLER=R7702-16\nDOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=100-102"}},
     "30: error: register 103 lies after the end of the block of line 3 (field 1, row 5, column 2) "
     "[download-missing]\n"},
    {"download-unused",
     {{"CONTROLLER=ABC", "CONTROLLER=ABC\nDOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=100-103"}},
     "3: warning: a DOWNLOAD line for the controller \"ABC\" [download-unused]\n"},
    {"held-back-unused",
     {{"", "[ADDRESS_NOTDOWNLOADABLE]\nADDRESS_1=105"}},
     "42: warning: no cell has the address \"105\" [held-back-unused]\n"},
    {"time-download",
     {{"ROWADDRESS_1=,100", "ROWADDRESS_1=101,100"},
      {"ROWADDRESSFORMAT_2=,TIME", "ROWADDRESSFORMAT_1=TIMESS\nROWADDRESSFORMAT_2=,TIMEMM"},
      {"ROW_2=Delay,1:30", "ROW_2=Delay,1"}},
     "25: warning: TIMEMM at register 101 would be downloaded (field 1, row 2, column 2) [time-download]\n"},
    {"identity-registers",
     {{"", "[IDENTITY]\nLAST=101-100"}},
     "42: error: \"101-100\" goes backwards [identity-registers]\n"},
    {"identity-number",
     {{"", "[IDENTITY]\nREGISTER_1=150\nVALUE_1=0x10"}},
     "43: warning: \"0x10\" is no whole number [identity-number]\n"},
    {"identity-mark",
     {{"", "[IDENTITY]\nREGISTER_1=150"}},
     "42: warning: REGISTER_1 has nothing to be compared with [identity-mark]\n"},
    {"identity-fit",
     {{"", "[IDENTITY]\nREGISTER_1=150\nVALUE_1=70000"}},
     "43: error: \"70000\" doesn't fit into 1 register [identity-fit]\n"},
    {"identity-requests",
     {{"", "[IDENTITY]\nREGISTER_1=150\nVALUE_1=1\nTEXTAT_2=160-163\nIS_2=ABC\nFIRMWARE=170\nSERIAL=180"}},
     "46: warning: \"170\" would take one request too many [identity-requests]\n"},
    {"identity-cell",
     {{"", "[IDENTITY]\nLAST=101,150"}},
     "42: warning: no cell has \"150\" [identity-cell]\n"},
    {"identity-link",
     {{"", "[IDENTITY]\nLINK=units:102"}},
     "42: warning: \"units\" is nothing of a line [identity-link]\n"},
    {"identity-objects",
     {{"", "[IDENTITY]\nOBJECT_1=PUMP"}},
     "42: warning: an object that nobody asks for [identity-objects]\n"},
    {"reading-stops",
     {{"COL_2_WIDTH=800", "COL_2_WIDTH=800\nCOL_99999999999_DESC=Setting"}},
     "18: error: reading stops here: Overflow (failure 6) [reading-stops]\n"},
};

std::string fileNameFor(const std::string& code) {
    if (code == "default-download") return "kvrt.ztp";
    return code == "file-name" ? "A.B.ZTP" : "ABC.ZTP";
}

std::string edited(const std::vector<Edit>& edits) {
    std::string text = good;
    for (const auto& [before, after] : edits) {
        const std::size_t at = before.empty() ? text.size() : text.find(before);
        if (at == std::string::npos)
            ADD_FAILURE() << before << " isn't there";
        else
            text.replace(at, before.size(), after);
    }
    return text;
}

TEST(Rules, FindNothingInAGoodTemplate) { EXPECT_EQ(findingsText(checkTemplate("ABC.ZTP", good)), ""); }

class EachCode : public testing::TestWithParam<Sample> {};

INSTANTIATE_TEST_SUITE_P(Codes, EachCode, testing::ValuesIn(samples), [](const auto& sample) {
    std::string name = sample.param.code;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST_P(EachCode, IsFoundInItsSample) {
    const Sample& sample = GetParam();
    EXPECT_EQ(findingsText(checkTemplate(fileNameFor(sample.code), edited(sample.edits))), sample.findings);
}

/// For each rule its code, severity and meaning, what becomes of such a line, and what to write instead of
/// what its sample has.
std::string advice() {
    std::map<std::string_view, std::string> instead;
    for (const Sample& sample : samples)
        for (const Finding& finding : checkTemplate(fileNameFor(sample.code), edited(sample.edits)))
            if (finding.code == sample.code) instead[finding.code] += "    " + finding.instead + "\n";
    std::string text;
    for (const Rule& rule : allRules())
        text += "[" + std::string(rule.code) + "] " +
                (rule.severity == Severity::Error ? "error: " : "warning: ") + std::string(rule.meaning) +
                "\n    " + std::string(rule.why) + "\n" + instead[rule.code];
    return text;
}

TEST(Rules, SayWhatBecomesOfALineAndWhatToWriteInstead) {
    std::ifstream file(ZORVANE_ROOT "/src/checker/testing/advice.txt");
    const std::string expected((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    EXPECT_EQ(advice(), expected);
}

TEST(Rules, HaveOtherWordsForOtherCasesOfIdentity) {
    const auto told = [](const std::string& lines) {
        std::string text;
        for (const Finding& finding : checkTemplate("ABC.ZTP", good + "[IDENTITY]\n" + lines))
            text += std::string(finding.code) + ": " + finding.what + ". " + finding.instead + "\n";
        return text;
    };
    EXPECT_EQ(told("REGISTER_1=150\nVALUE_1=7\nWHAT_1=Model\nSERIAL=151-154\nFIRMWARE=155\nLAST=101,103\n"
                   "LEAVEOUT=110-113\nLINK=unit:102\nOBJECTS=NO\n"),
              "");
    EXPECT_EQ(told("REGISTR_1=150\n"),
              "key-unknown: unknown key \"REGISTR_1\" in [IDENTITY]. Write REGISTER_1.\n");
    EXPECT_EQ(
        told("TEXTAT_1=150-153 \nIS_1=AB ;x\n"),
        "semicolon: a \";\" in the value, which is \"AB \" now. Put comments on lines of their own, and use "
        "no \";\" in texts.\n");
    EXPECT_EQ(told("REGISTER_1=150-154\nVALUE_1=7\n"),
              "identity-registers: \"150-154\" are 5 registers. Name at most 4.\n");
    EXPECT_EQ(told("SERIAL=model\n"), "identity-registers: \"model\" names no registers. Write a register or "
                                      "first-last, such as 320-327, in digits and without blanks.\n");
    EXPECT_EQ(told("VALUE_1=7\n"),
              "identity-mark: no line says in which register this stands. Write REGISTER_1=.\n");
    EXPECT_EQ(
        told("IS_1=AB\nWHAT_1=Model\n"),
        "identity-mark: no line says in which registers this stands. Write TEXTAT_1=.\n"
        "identity-mark: no line says in which registers this stands. Write REGISTER_1= or TEXTAT_1=.\n");
    EXPECT_EQ(told("TEXTAT_1=150\n"),
              "identity-mark: TEXTAT_1 has nothing to be compared with. Write IS_1=.\n");
    EXPECT_EQ(
        told("TEXTAT_1=150\nIS_1=ABC\n"),
        "identity-fit: \"ABC\" is longer than its registers. Name a register for each two characters.\n");
    EXPECT_EQ(told("REGISTER_1=150\nLOW_1=9\nHIGH_1=3\n"),
              "identity-fit: the lowest value is above the highest. Swap the two.\n");
    EXPECT_EQ(
        told("REGISTER_1=150\nVALUE_1=16\nMASK_1=15\n"),
        "identity-fit: \"16\" has bits that the mask takes away. Write the value as it is under the mask.\n");
    EXPECT_EQ(told("REGISTER_1=150\nVALUE_1=16\nLOW_1=1\n"),
              "identity-fit: a value beside a lowest or highest one. Keep either; the value alone counts.\n");
    EXPECT_EQ(told("LINK=116\n"), "identity-link: \"116\" isn't a word and a register. Write unit:REG or "
                                  "baud:REG, such as unit:116,baud:115.\n");
    EXPECT_EQ(told("LINK=unit:150\n"),
              "identity-link: no cell has register 150. Write the register of the cell "
              "that changes the line.\n");
    EXPECT_EQ(told("LINK=baud:100\n"),
              "identity-link: a text of the list of register 100 is no number. Begin "
              "each text of the list with its number, such as 9600.\n");
    EXPECT_EQ(told("LINK=parity:102\n"),
              "identity-link: \"parity\" is nothing of a line. The known ones are unit or baud.\n");
    EXPECT_EQ(told("OBJECTS=ja\nOBJECT_300=PUMP\n"),
              "yes-no: \"ja\" counts as no. Write YES or NO.\n"
              "identity-objects: there is no object 300. Objects count from 0 to 255.\n");
    EXPECT_EQ(
        told("REGISTER_99999999999=1\n"),
        "key-unknown: unknown key \"REGISTER_99999999999\" in [IDENTITY]. The known ones are "
        "REGISTER_#, VALUE_#, LOW_#, HIGH_#, MASK_#, TEXTAT_#, IS_#, WHAT_#, SERIAL, FIRMWARE, WRITEONLY, "
        "LAST, LEAVEOUT, LINK, OBJECTS or OBJECT_#.\n");
}

TEST(Rules, HaveOtherWordsForOtherCasesOfOneCode) {
    const auto told = [](const std::vector<Edit>& edits, std::string_view code) {
        std::string text;
        for (const Finding& finding : checkTemplate("ABC.ZTP", edited(edits)))
            if (finding.code == code) text += finding.what + ". " + finding.instead + "\n";
        return text;
    };
    EXPECT_EQ(told({{"ROW_3=Name,Pump", "ROW_3=Na\rme,Pump"}}, "control-character"),
              "a CR without an LF in the line. End lines with CR LF.\n");
    EXPECT_EQ(told({{"ROW_3=Name,Pump", "ROW_3=Na\x01me,Pump"}}, "control-character"),
              "the control character 0x01 in the line. Use spaces, and none around the \"=\".\n");
    EXPECT_EQ(told({{"[FIELD_1_MESSAGES]", "["}}, "header-end"),
              "a section header without a name: reading stops here. Write the section's name and \"]\" after "
              "it.\n");
    EXPECT_EQ(told({{"ROW_3=Name,Pump", "=Name,Pump"}}, "stray-line"),
              "a value without a key. Write KEY=value, or put a \";\" in the first column.\n");
    EXPECT_EQ(told({{"(1)On", "(1)On\nADDRESS_100=(0)No,(1)Yes"}}, "key-twice"),
              "the same key as in line 32. Keep one of the two lines. The list of the first one counts.\n");
    EXPECT_EQ(
        told({{"FIELD_1_RC=5,2", "FIELD_1_RC=5,2\nFIELD_2_RC=1,1"}}, "field-missing"),
        "field 2 has no FIELD_2_DESC. Name it in [CONFIGURATION_FIELDS], in front of its other lines.\n");
    EXPECT_EQ(told({{"FIELD_1_RC=5,2", "FIELD_1_RC=5,2\nFIELD_2_DESC=Inputs"}}, "field-size"),
              "field 2 has no FIELD_2_RC. Write FIELD_2_RC=rows,columns.\n");
    EXPECT_EQ(
        told({{"ROWADDRESSFORMAT_5=,NUMERIC_UNSIGNED", "ROWADDRESSFORMAT_5=,numeric_unsigned"}},
             "format-word"),
        "\"numeric_unsigned\" in lower case. Write NUMERIC_UNSIGNED: some places ask for it exactly.\n");
    EXPECT_EQ(told({{"ROWASCIIRANGE_3=,110-113", "ROWASCIIRANGE_3=,118-121"}}, "address-unscanned"),
              "register 118-121 lies in scan blocks in part only (field 1, row 3, column 2). Widen a "
              "HOLDINGREGISTERSBLOCK, or correct the address.\n");
    EXPECT_EQ(told({{"ROWADDRESS_5=,103", "ROWADDRESS_5=,102"},
                    {"ROWADDRESSFORMAT_5=,NUMERIC_UNSIGNED", "ROWADDRESSFORMAT_5=,TIMEMM"}},
                   "address-shared"),
              "register 102 is a shared time here (field 1, row 5, column 2) and a number in field 1, row 4, "
              "column 2. Correct the address, or give both cells the same format and list.\n");
    EXPECT_EQ(
        told({{"COL_2_TYPE=NUMERIC", "COL_2_TYPE=NUMERIC\nCOL_2_BITSNEGATIVEFORMAT=8"},
              {"ROWADDRESS_4=,102", "ROWADDRESS_4=102,102"}},
             "address-shared"),
        "register 102 is a number in the negative format 8 here (field 1, row 4, column 2) and a number in "
        "field 1, row 4, column 1. Correct the address, or give both cells the same format and list.\n");
    EXPECT_EQ(
        told({{"[FIELD_1_CONFIGURATION]\n", "[FIELD_1_MESSAGES]\nADDRESS_103=(0)Off\n"
                                            "[FIELD_1_CONFIGURATION]\n"}},
             "message-unused"),
        "the cell at register 103 gets its address further down. Write [FIELD_1_CONFIGURATION] in front "
        "of this section.\n");
    EXPECT_EQ(told({{"(1)On", "(1)"}}, "message-blank"),
              "the text of code 1 is empty. Give the code a text, such as \"-\".\n");
    EXPECT_EQ(told({{"ROWADDRESSNUMERICMINVALUE_4=,10", "ROWADDRESSTIMEMINVALUE_4=,10"}}, "limits-text"),
              "\"10\" is no time (field 1, row 4, column 2). Write m:ss, such as 1:30.\n");
    EXPECT_EQ(
        told({{"ROWADDRESSNUMERICMINVALUE_4=,10", "ROWADDRESSTIMEMINVALUE_4=,"}}, "limits-empty"),
        "the empty item sets 0 (field 1, row 4, column 2). Write the limit, or NUMERIC limits for the row "
        "with the times in seconds.\n");
    EXPECT_EQ(told({{"HOLDINGREGISTERSBLOCK_1=100-119\nHOLDINGREQUESTBLOCK_1=ALWAYS\n", ""}}, "request-word"),
              "no scan block has the request word \"ALWAYS\". Write HOLDINGREQUESTBLOCK_n=ALWAYS.\n");
    EXPECT_EQ(
        told({{"CONTROLLER=ABC", "CONTROLLER=R7702-16\nDOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=102-110"}},
             "download-missing"),
        "register 101 lies in no DOWNLOAD block (field 1, row 2, column 2). Widen a DOWNLOAD block of the "
        "kind that fits: NUMERIC for numbers and times, MESSAGELIST for halves, ASCII for texts.\n");
}

TEST(Rules, AnUnreadableFileSaysWhatToLookAt) {
    const Finding finding = unreadable("Permission denied");
    EXPECT_EQ(finding.what, "the file can't be read: Permission denied");
    EXPECT_EQ(finding.instead, "Check its path and who may read it.");
}

TEST(Rules, HaveASampleEachAndACodeOfTheirOwn) {
    std::multiset<std::string> codes;
    for (const Rule& rule : allRules())
        codes.emplace(rule.code);
    std::multiset<std::string> sampled = {"unreadable"}; // of a file, not of its text
    for (const Sample& sample : samples)
        sampled.insert(sample.code);
    EXPECT_EQ(sampled, codes);
    EXPECT_EQ(std::set(codes.begin(), codes.end()).size(), codes.size());
}

} // namespace
} // namespace zorvane::checker
