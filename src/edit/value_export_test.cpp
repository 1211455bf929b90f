// SPDX-License-Identifier: MIT
#include "edit/testing/relay.h"
#include "edit/value_export.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::edit {
namespace {

using testing::HasSubstr;

struct Value_Export : testing::Test, doubles::Relay {};

TEST_F(Value_Export, EveryCellThatCanBeEditedHasALine) {
    EXPECT_EQ(exportedValues(document, {}), "\xEF\xBB\xBF"
                                            "field,row,column,page,name,heading,register,value\r\n"
                                            "1,1,2,Regulation,Set point,Value,100,1125\r\n"
                                            "1,1,3,Regulation,Set point,Remark,,agreed\r\n"
                                            "1,2,2,Regulation,Drop X,Value,101,-12\r\n"
                                            "1,2,3,Regulation,Drop X,Remark,,\r\n"
                                            "1,3,2,Regulation,Delay,Value,102,0:45\r\n"
                                            "1,3,3,Regulation,Delay,Remark,,\r\n"
                                            "1,4,2,Regulation,Output,Value,103/HI,On\r\n"
                                            "1,4,3,Regulation,Output,Remark,,\r\n"
                                            "1,5,2,Regulation,Tag,Value,104-105,T-2\r\n"
                                            "1,5,3,Regulation,Tag,Remark,,\r\n"
                                            "2,1,1,Timers,row 1,Pulse,110,1\r\n"
                                            "2,1,2,Timers,row 1,Pause,111,2\r\n"
                                            "2,2,1,Timers,row 2,Pulse,112,3\r\n"
                                            "2,2,2,Timers,row 2,Pause,113,4\r\n");
}

TEST_F(Value_Export, SeparatorAndDecimalSignAreThoseAskedFor) {
    cell(1, 2, 2).Value = "-12.5";
    cell(1, 1, 3).Value = "112.5 V";
    const std::string text = exportedValues(document, {';', ','});
    EXPECT_THAT(text, HasSubstr("field;row;column;page;name;heading;register;value\r\n"));
    EXPECT_THAT(text, HasSubstr("1;2;2;Regulation;Drop X;Value;101;\"-12,5\"\r\n"));
    EXPECT_THAT(text, HasSubstr("1;1;3;Regulation;Set point;Remark;;112.5 V\r\n")) << "a text stays as it is";
}

TEST_F(Value_Export, TextsThatASpreadsheetWouldRunAreQuotedEverywhere) {
    cell(1, 1, 3).Value = "=HYPERLINK(\"x\")";
    cell(1, 1, 1).Value = "@Set";
    cell(1, 2, 2).Value = "-none";
    const std::string text = exportedValues(document, {});
    EXPECT_THAT(text, HasSubstr("1,1,3,Regulation,'@Set,Remark,,\"'=HYPERLINK(\"\"x\"\")\"\r\n"));
    EXPECT_THAT(text, HasSubstr("Drop X,Value,101,'-none\r\n")) << "no number, whatever its cell wants";
}

TEST_F(Value_Export, IsUtf8) {
    cell(1, 1, 3).Value = "0.1\xB0";
    EXPECT_THAT(exportedValues(document, {}), HasSubstr(",,0.1\xC2\xB0\r\n"));
}

TEST_F(Value_Export, ACodeThatNoListHasIsWrittenItself) {
    cell(1, 4, 2).Value = "5";
    EXPECT_THAT(exportedValues(document, {}), HasSubstr("103/HI,5\r\n"));
}

} // namespace
} // namespace zorvane::edit
