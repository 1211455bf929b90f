// SPDX-License-Identifier: MIT
#include "commission/record/record_head.h"

#include <gtest/gtest.h>

namespace zorvane::commission {
namespace {

const Record_Head north{"North \xE4", "Feeder 7", "4711", "Ann", "Bob"};
const Record_Head south{"South", "Feeder 1", "4712", "Ann", ""};

TEST(RecordHead, IsKeptAsItWasGiven) {
    EXPECT_EQ(headOfJson(headJson(north)), north);
    EXPECT_EQ(headOfJson("{}"), Record_Head{});
    EXPECT_EQ(headOfJson("[]"), std::nullopt);
    EXPECT_EQ(headOfJson("{"), std::nullopt);
}

TEST(KeptHeads, ASiteIsAskedForOnce) {
    Kept_Heads kept;
    EXPECT_EQ(kept.of(""), Record_Head{});
    kept.keep(north);
    kept.keep(south);
    EXPECT_EQ(kept.of(""), south);
    EXPECT_EQ(kept.of(north.site), north);
    EXPECT_EQ(kept.of("West"), (Record_Head{"West", "", "", "", ""}));
    EXPECT_EQ(keptOfJson(keptJson(kept)), kept);
}

TEST(KeptHeads, AFileThatNamesNoLastOneHasNone) {
    Kept_Heads kept;
    kept.keep(north);
    kept.last.clear();
    EXPECT_EQ(keptOfJson(keptJson(kept)).last, "");
    EXPECT_EQ(keptOfJson(R"({"sites":[{"site":"South"}]})").of(""), Record_Head{});
    EXPECT_EQ(keptOfJson(R"({"sites":[{"site":"South"}],"last":7})").last, "");
}

TEST(KeptHeads, AFileThatSaysNothingKeepsNothing) {
    EXPECT_EQ(keptOfJson(""), Kept_Heads{});
    EXPECT_EQ(keptOfJson("{\"sites\":[1]}"), Kept_Heads{});
}

} // namespace
} // namespace zorvane::commission
