// SPDX-License-Identifier: MIT
#include "comm/modbus_control/scan/scan.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

constexpr Micros ms = microsPerMs;

Scan scanOf(const std::vector<Scan_Block>& blocks, const std::string& mode = "NONE") {
    Scan scan;
    for (const Scan_Block& block : blocks) {
        scan.plan().add(block);
    }
    scan.plan().setMode(mode);
    scan.restart(0);
    return scan;
}

std::optional<Scan_Frame> frameAt(Scan& scan, Micros now) {
    scan.advance(now);
    return scan.frame();
}

TEST(ScanPlan, NoneCoversEveryBlockAndAnyOtherWordItsOwn) {
    Scan scan =
        scanOf({{1, 5, "ALWAYS", 0}, {10, 15, "NONE", 0}, {20, 25, "ALWAYS", 0}, {30, 31, "ONCE", 0}});
    EXPECT_EQ(scan.plan().numbers(), (std::vector<std::int32_t>{1, 2, 3, 4}));
    scan.plan().setMode("ALWAYS");
    EXPECT_EQ(scan.plan().numbers(), (std::vector<std::int32_t>{1, 3}));
    scan.plan().setMode("ONCE");
    EXPECT_EQ(scan.plan().numbers(), (std::vector<std::int32_t>{4}));
    scan.plan().setMode("always");
    EXPECT_TRUE(scan.plan().numbers().empty());
    scan.plan().add({40, 41, "always", 0});
    EXPECT_EQ(scan.plan().numbers(), (std::vector<std::int32_t>{5}));
    scan.plan().clear();
    EXPECT_TRUE(scan.plan().numbers().empty());
    EXPECT_EQ(scan.plan().mode(), "always");
    scan.plan().add({50, 51, "always", 0});
    EXPECT_EQ(scan.plan().numbers(), (std::vector<std::int32_t>{1})) << "blocks count from 1 again";
}

TEST(Scan, StartsAtTheFirstBlockOfTheMode) {
    Scan scan = scanOf({{1, 5, "NONE", 0}, {10, 15, "ALWAYS", 7}}, "ALWAYS");
    EXPECT_EQ(scan.index(), 2);
    EXPECT_EQ(frameAt(scan, 0), (Scan_Frame{7, 10, 6}));
}

TEST(Scan, ARestartForgetsAllThatTheWalkWaitedFor) {
    const std::vector<Scan_Block> blocks = {
        {1, 300, "NONE", 0}, {500, 501, "NONE", 0}, {600, 601, "NONE", 0}};
    const Scan_Frame first{0, 1, 125};
    Scan inABlock = scanOf(blocks);
    inABlock.frameAnswered(true, 1 * ms);
    inABlock.restart(2 * ms);
    EXPECT_EQ(frameAt(inABlock, 2 * ms), first);

    Scan unseenIndex = scanOf(blocks);
    unseenIndex.indexSeen();
    for (int frames = 0; frames < 4; ++frames)
        unseenIndex.frameAnswered(true, 1 * ms);
    EXPECT_EQ(frameAt(unseenIndex, 2 * ms), std::nullopt);
    unseenIndex.restart(2 * ms);
    EXPECT_EQ(unseenIndex.index(), 1);
    EXPECT_EQ(frameAt(unseenIndex, 2 * ms), first);
    for (int frames = 0; frames < 3; ++frames)
        unseenIndex.frameAnswered(true, 3 * ms);
    EXPECT_EQ(frameAt(unseenIndex, 3 * ms), (Scan_Frame{0, 500, 2})) << "nobody watches any more";

    Scan unseenFailure = scanOf(blocks);
    unseenFailure.tryFailed(1 * ms);
    EXPECT_EQ(frameAt(unseenFailure, 2 * ms), std::nullopt);
    unseenFailure.restart(2 * ms);
    EXPECT_EQ(frameAt(unseenFailure, 2 * ms), first);
}

TEST(Scan, ARestartedPassThatNobodySawIsFollowedAtOnce) {
    Scan scan = scanOf({{1, 5, "NONE", 0}, {10, 15, "NONE", 0}});
    scan.indexSeen();
    scan.restart(0);
    scan.frameAnswered(true, 1 * ms);
    scan.frameAnswered(true, 2 * ms);
    EXPECT_EQ(frameAt(scan, 2 * ms), (Scan_Frame{0, 1, 5}));
}

TEST(Scan, AnUnseenIndexStaysFor250MsOnceSomebodyLooks) {
    Scan scan = scanOf({{1, 5, "NONE", 0}, {10, 15, "NONE", 0}, {20, 21, "NONE", 0}});
    scan.indexSeen();
    scan.frameAnswered(true, 5 * ms);
    EXPECT_EQ(scan.index(), 2);
    scan.frameAnswered(true, 10 * ms);
    EXPECT_EQ(frameAt(scan, 10 * ms), std::nullopt);
    EXPECT_EQ(scan.index(), 2);
    EXPECT_EQ(scan.waitsUntil(), 255 * ms);
    EXPECT_EQ(frameAt(scan, 255 * ms - 1), std::nullopt);
    EXPECT_EQ(frameAt(scan, 255 * ms), (Scan_Frame{0, 20, 2}));
    EXPECT_EQ(scan.index(), 3);
    EXPECT_EQ(scan.waitsUntil(), std::nullopt);
}

TEST(Scan, NobodyLookingTheWalkGoesAtFullSpeed) {
    Scan scan = scanOf({{1, 5, "NONE", 0}, {10, 15, "NONE", 0}});
    scan.frameAnswered(true, 5 * ms);
    EXPECT_EQ(frameAt(scan, 5 * ms), (Scan_Frame{0, 10, 6}));
    scan.frameAnswered(true, 10 * ms);
    EXPECT_EQ(scan.index(), 1);
    EXPECT_EQ(frameAt(scan, 10 * ms), (Scan_Frame{0, 1, 5}));
}

TEST(Scan, APassWithoutALookEndsTheWatch) {
    Scan scan = scanOf({{1, 5, "NONE", 0}, {10, 15, "NONE", 0}});
    scan.indexSeen();
    scan.frameAnswered(true, 5 * ms);
    scan.frameAnswered(true, 300 * ms);
    EXPECT_EQ(frameAt(scan, 550 * ms), (Scan_Frame{0, 1, 5})) << "the pass after a look is watched";
    scan.frameAnswered(true, 800 * ms);
    scan.frameAnswered(true, 1050 * ms);
    EXPECT_EQ(frameAt(scan, 1050 * ms), (Scan_Frame{0, 1, 5}));
    scan.frameAnswered(true, 1055 * ms);
    EXPECT_EQ(frameAt(scan, 1055 * ms), (Scan_Frame{0, 10, 6}));
}

TEST(Scan, ASeenIndexIsLeftWithTheAnswer) {
    Scan scan = scanOf({{1, 5, "NONE", 0}, {10, 15, "NONE", 0}});
    scan.indexSeen();
    scan.frameAnswered(true, 5 * ms);
    EXPECT_EQ(scan.index(), 2);
    EXPECT_EQ(frameAt(scan, 5 * ms), (Scan_Frame{0, 10, 6}));
}

TEST(Scan, ASlowExchangeNeedsNoLook) {
    Scan scan = scanOf({{1, 5, "NONE", 0}, {10, 15, "NONE", 0}});
    scan.frameAnswered(true, 46 * ms);
    EXPECT_EQ(scan.index(), 2);
    EXPECT_EQ(frameAt(scan, 46 * ms), (Scan_Frame{0, 10, 6}));
}

TEST(Scan, NobodyWatchingThePassesFollowEachOther) {
    Scan scan = scanOf({{1, 5, "NONE", 0}, {10, 15, "NONE", 0}});
    scan.frameAnswered(true, 46 * ms);
    scan.frameAnswered(true, 92 * ms);
    EXPECT_EQ(scan.index(), 1);
    EXPECT_EQ(frameAt(scan, 92 * ms), (Scan_Frame{0, 1, 5}));
}

TEST(Scan, AWatchedPassEndsWithoutTheNextRequest) {
    Scan scan = scanOf({{1, 5, "NONE", 0}, {10, 15, "NONE", 0}});
    scan.indexSeen();
    scan.frameAnswered(true, 46 * ms);
    scan.indexSeen();
    scan.frameAnswered(true, 92 * ms);
    EXPECT_EQ(scan.index(), 1);
    EXPECT_EQ(frameAt(scan, 92 * ms), std::nullopt);
    scan.indexSeen();
    EXPECT_EQ(frameAt(scan, 95 * ms), (Scan_Frame{0, 1, 5}));
}

TEST(Scan, AWatchedPassGoesOnAfter250MsWhenNobodyLooksAnyMore) {
    Scan scan = scanOf({{1, 5, "NONE", 0}, {10, 15, "NONE", 0}});
    scan.indexSeen();
    scan.frameAnswered(true, 46 * ms);
    scan.indexSeen();
    scan.frameAnswered(true, 92 * ms);
    EXPECT_EQ(frameAt(scan, 342 * ms - 1), std::nullopt);
    EXPECT_EQ(frameAt(scan, 342 * ms), (Scan_Frame{0, 1, 5}));
}

TEST(Scan, ASingleBlockShows0BetweenTwoPasses) {
    Scan scan = scanOf({{1, 5, "NONE", 0}});
    scan.indexSeen();
    scan.frameAnswered(true, 46 * ms);
    EXPECT_EQ(scan.index(), 0);
    EXPECT_EQ(frameAt(scan, 50 * ms), std::nullopt);
    scan.indexSeen();
    scan.advance(51 * ms);
    EXPECT_EQ(scan.index(), 1);
    EXPECT_EQ(scan.frame(), std::nullopt);
    scan.indexSeen();
    EXPECT_EQ(frameAt(scan, 52 * ms), (Scan_Frame{0, 1, 5}));
}

TEST(Scan, ASingleBlockShows0For250MsAtMost) {
    Scan scan = scanOf({{1, 5, "NONE", 0}});
    scan.indexSeen();
    scan.frameAnswered(true, 46 * ms);
    EXPECT_EQ(scan.index(), 0);
    scan.advance(296 * ms - 1);
    EXPECT_EQ(scan.index(), 0);
    scan.advance(296 * ms);
    EXPECT_EQ(scan.index(), 1);
}

TEST(Scan, ASingleBlockThatNobodyWatchesIsReadWithoutPause) {
    Scan scan = scanOf({{1, 5, "NONE", 0}});
    scan.frameAnswered(true, 6 * ms);
    EXPECT_EQ(scan.index(), 1);
    EXPECT_EQ(frameAt(scan, 6 * ms), (Scan_Frame{0, 1, 5}));
}

TEST(Scan, ABlockAbove125RegistersIsReadBySeveralFramesWithinItsIndex) {
    Scan scan = scanOf({{100, 400, "NONE", 0}, {500, 624, "NONE", 0}});
    scan.indexSeen();
    EXPECT_EQ(frameAt(scan, 0), (Scan_Frame{0, 100, 125}));
    scan.frameAnswered(true, 1 * ms);
    EXPECT_EQ(frameAt(scan, 1 * ms), (Scan_Frame{0, 225, 125}));
    scan.frameAnswered(true, 2 * ms);
    EXPECT_EQ(frameAt(scan, 2 * ms), (Scan_Frame{0, 350, 51}));
    EXPECT_EQ(scan.index(), 1);
    scan.frameAnswered(true, 3 * ms);
    EXPECT_EQ(scan.index(), 2);
    EXPECT_EQ(frameAt(scan, 3 * ms), (Scan_Frame{0, 500, 125}));
}

TEST(Scan, AFailureStaysUntilItWasSeenOrFor25Ms) {
    Scan scan = scanOf({{1, 300, "NONE", 0}, {500, 501, "NONE", 0}});
    scan.indexSeen();
    scan.frameAnswered(false, 30 * ms);
    EXPECT_EQ(frameAt(scan, 31 * ms), std::nullopt);
    EXPECT_EQ(scan.waitsUntil(), 55 * ms);
    scan.failureSeen();
    EXPECT_EQ(frameAt(scan, 32 * ms), (Scan_Frame{0, 126, 125}));
    scan.tryFailed(60 * ms);
    EXPECT_EQ(frameAt(scan, 85 * ms - 1), std::nullopt);
    EXPECT_EQ(frameAt(scan, 85 * ms), (Scan_Frame{0, 126, 125}));
}

TEST(Scan, ABlockThatBeginsAgainShowsItsFailureFirst) {
    Scan scan = scanOf({{1, 300, "NONE", 0}, {500, 501, "NONE", 0}});
    scan.frameAnswered(true, 1 * ms);
    scan.blockAgain(2 * ms);
    EXPECT_EQ(scan.frame(), std::nullopt);
    EXPECT_EQ(frameAt(scan, 26 * ms), std::nullopt);
    EXPECT_EQ(frameAt(scan, 27 * ms), (Scan_Frame{0, 1, 125}));
}

TEST(Scan, ABlockGivenUpIsLeftWithItsRest) {
    Scan scan = scanOf({{1, 300, "NONE", 0}, {500, 501, "NONE", 0}});
    scan.indexSeen();
    scan.blockGivenUp(30 * ms);
    EXPECT_EQ(scan.index(), 2);
    EXPECT_EQ(frameAt(scan, 30 * ms), std::nullopt);
    EXPECT_EQ(frameAt(scan, 55 * ms), (Scan_Frame{0, 500, 2}));
}

TEST(Scan, ABlockOf125RegistersIsOneFrame) {
    Scan scan = scanOf({{1, 125, "NONE", 0}, {200, 449, "NONE", 0}, {500, 501, "NONE", 0}});
    scan.frameAnswered(true, 1 * ms);
    EXPECT_EQ(frameAt(scan, 1 * ms), (Scan_Frame{0, 200, 125}));
    scan.frameAnswered(true, 2 * ms);
    EXPECT_EQ(frameAt(scan, 2 * ms), (Scan_Frame{0, 325, 125}));
    scan.frameAnswered(true, 3 * ms);
    EXPECT_EQ(frameAt(scan, 3 * ms), (Scan_Frame{0, 500, 2}));
}

TEST(Scan, APlanWithoutBlocksChangesItsIndexEachTimeOneIsMissed) {
    Scan scan = scanOf({});
    scan.indexSeen();
    scan.blockGivenUp(1 * ms);
    EXPECT_EQ(scan.index(), 1);
    scan.indexSeen();
    scan.blockGivenUp(2 * ms);
    EXPECT_EQ(scan.index(), 0);
}

TEST(Scan, TheOnlyBlockMissedBetweenTwoPassesKeeps0) {
    Scan scan = scanOf({{1, 5, "NONE", 0}});
    scan.indexSeen();
    scan.blockGivenUp(1 * ms);
    EXPECT_EQ(scan.index(), 0);
    scan.indexSeen();
    scan.blockGivenUp(2 * ms);
    EXPECT_EQ(scan.index(), 0);
}

TEST(Scan, APlanWithoutBlocksStandsAt0AndStillMovesOn) {
    Scan scan = scanOf({});
    EXPECT_EQ(scan.index(), 0);
    EXPECT_EQ(frameAt(scan, 0), std::nullopt);
    scan.indexSeen();
    scan.blockGivenUp(1 * ms);
    EXPECT_EQ(scan.index(), 1);
    scan.indexSeen();
    scan.advance(2 * ms);
    EXPECT_EQ(scan.index(), 0);
}

TEST(Scan, ABlockThatEndsBeforeItBeginsHasNoRegisters) {
    Scan scan = scanOf({{10, 9, "NONE", 0}});
    EXPECT_EQ(frameAt(scan, 0), (Scan_Frame{0, 10, 0}));
}

} // namespace
} // namespace zorvane
