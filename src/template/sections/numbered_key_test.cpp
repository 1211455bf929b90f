// SPDX-License-Identifier: MIT
#include "template/sections/numbered_key.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::failureNumber;

std::string told(const Numbered_Key& key) { return key.key + " " + std::to_string(key.number); }

TEST(TwoUnderscoreKey, HasItsNumberBetweenThem) {
    EXPECT_EQ(told(twoUnderscoreKey("COL_7_WIDTH")), "COL_#_WIDTH 7");
    EXPECT_EQ(told(twoUnderscoreKey("Col_7_Width")), "COL_#_WIDTH 7");
    EXPECT_EQ(told(twoUnderscoreKey("COL__WIDTH")), "COL_#_WIDTH 0");
    EXPECT_EQ(told(twoUnderscoreKey("COL_1_A_B")), "COL_#_A_B 1");
}

TEST(TwoUnderscoreKey, WithFewerStaysAsItIs) {
    EXPECT_EQ(told(twoUnderscoreKey("Numeric_Rows")), "NUMERIC_ROWS 0");
    EXPECT_EQ(told(twoUnderscoreKey("CONTROLLER")), "CONTROLLER 0");
}

TEST(OneUnderscoreKey, HasItsNumberAfterTheFirst) {
    EXPECT_EQ(told(oneUnderscoreKey("ROWADDRESS_12")), "ROWADDRESS_# 12");
    EXPECT_EQ(told(oneUnderscoreKey("row_3_4")), "ROW_# 3");
    EXPECT_EQ(told(oneUnderscoreKey("ROW_")), "ROW_# 0");
    EXPECT_EQ(told(oneUnderscoreKey("ROW")), "ROW 0");
}

TEST(OpenUnderscoreKey, TakesBothForms) {
    EXPECT_EQ(told(openUnderscoreKey("HOLDINGREGISTERSBLOCK_4")), "HOLDINGREGISTERSBLOCK_# 4");
    EXPECT_EQ(told(openUnderscoreKey("COMMUNICATIONS_1_OUT")), "COMMUNICATIONS_#_OUT 1");
    EXPECT_EQ(told(openUnderscoreKey("PORT")), "PORT 0");
}

TEST(NumberedKeys, ATrailingBlankStaysInTheKey) {
    EXPECT_EQ(told(twoUnderscoreKey("COL_1_DESC ")), "COL_#_DESC  1");
    EXPECT_EQ(told(twoUnderscoreKey("CONTROLLER ")), "CONTROLLER  0");
}

TEST(NumberedKeys, ANumberBeyond32BitsIsFailure6) {
    EXPECT_EQ(failureNumber([] { (void)twoUnderscoreKey("COL_99999999999_DESC"); }), 6);
    EXPECT_EQ(failureNumber([] { (void)oneUnderscoreKey("ROW_99999999999"); }), 6);
}

} // namespace
} // namespace zorvane
