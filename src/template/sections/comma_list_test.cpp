// SPDX-License-Identifier: MIT
#include "template/sections/comma_list.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane {
namespace {

/// The items with their positions, as "1:a 2:b".
std::string items(std::string_view list, std::int32_t last = 100) {
    std::string text;
    forEachItem(list, [&](std::int32_t position, std::string_view item) {
        text.append(position > 1 ? " " : "").append(std::to_string(position)).append(":").append(item);
        return position < last;
    });
    return text;
}

TEST(CommaList, HasOneItemMoreThanCommas) {
    EXPECT_EQ(items("a,b,c"), "1:a 2:b 3:c");
    EXPECT_EQ(items("a,,c"), "1:a 2: 3:c");
    EXPECT_EQ(items(",,"), "1: 2: 3:");
}

TEST(CommaList, AnEmptyTextIsOneEmptyItem) { EXPECT_EQ(items(""), "1:"); }

TEST(CommaList, ItemsStandAsTheyAre) { EXPECT_EQ(items(" a , b"), "1: a  2: b"); }

TEST(CommaList, EndsWhereTheReceiverSaysSo) { EXPECT_EQ(items("a,b,c", 2), "1:a 2:b"); }

} // namespace
} // namespace zorvane
