// SPDX-License-Identifier: MIT
// Members of files that somebody may have changed by hand.
#include "commission/folder/json_fields.h"

#include <gtest/gtest.h>

namespace zorvane::commission {
namespace {

TEST(JsonFields, AMemberThatIsNotThereAndAMemberOfNoObjectAreNull) {
    EXPECT_EQ(memberOf(Json{{"unit", 3}}, "unit"), Json(3));
    EXPECT_TRUE(memberOf(Json{{"unit", 3}}, "units").is_null());
    EXPECT_TRUE(memberOf(Json::array({1, 2}), "unit").is_null());
    EXPECT_TRUE(memberOf(Json("unit"), "unit").is_null());
}

TEST(JsonFields, ATextIsATextOnly) {
    EXPECT_EQ(stringOf(Json("PUMP")), "PUMP");
    EXPECT_EQ(stringOf(Json("")), "");
    EXPECT_EQ(stringOf(Json(5)), std::nullopt);
    EXPECT_EQ(stringOf(Json()), std::nullopt);
}

TEST(JsonFields, ANumberIsWholeAndWithinTheTypesRange) {
    EXPECT_EQ(numberOf<std::uint16_t>(Json::parse("65535")), 65535);
    EXPECT_EQ(numberOf<std::uint16_t>(Json::parse("65536")), std::nullopt);
    EXPECT_EQ(numberOf<std::uint16_t>(Json::parse("-1")), std::nullopt);
    EXPECT_EQ(numberOf<std::uint16_t>(Json(7)), 7); // a signed value, as the program makes them
    EXPECT_EQ(numberOf<std::int32_t>(Json::parse("-5")), -5);
    EXPECT_EQ(numberOf<std::int32_t>(Json::parse("-2147483649")), std::nullopt);
    EXPECT_EQ(numberOf<std::int32_t>(Json::parse("18446744073709551615")), std::nullopt);
    EXPECT_EQ(numberOf<std::int32_t>(Json::parse("1.0")), std::nullopt);
    EXPECT_EQ(numberOf<std::int32_t>(Json::parse("\"1\"")), std::nullopt);
    EXPECT_EQ(numberOf<std::int32_t>(Json::parse("true")), std::nullopt);
}

TEST(JsonFields, AnEventIsToldByItsName) {
    EXPECT_TRUE(isEvent(Json{{"event", "write"}}, "write"));
    EXPECT_FALSE(isEvent(Json{{"event", "answer"}}, "write"));
    EXPECT_FALSE(isEvent(Json{{"event", 5}}, "write"));
    EXPECT_FALSE(isEvent(Json::object(), "write"));
}

} // namespace
} // namespace zorvane::commission
