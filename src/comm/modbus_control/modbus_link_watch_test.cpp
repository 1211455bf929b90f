// SPDX-License-Identifier: MIT
// The scan as a watcher sees it that looks every 10 ms, as the upload does: no index and no failure is
// missed.
#include "comm/modbus_control/testing/link_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::ElementsAre;
using testing::Link_Rig;
using testing::ms;

/// Looks as the upload does: every 10 ms, transaction first, then the index.
std::vector<std::int32_t> indexesOfOnePass(Link_Rig& rig) {
    std::vector<std::int32_t> seen;
    rig.link.SetScanMode("NONE");
    rig.link.ResetScan();
    rig.link.PrepareScan();
    const std::int32_t first = watchedScanBlock(rig.link);
    std::int32_t last = first;
    rig.link.StartScan();
    for (int tick = 0; tick < 1000; ++tick) {
        rig.clock.runFor(10 * ms);
        if (watchedScanBlock(rig.link) == last) continue;
        last = watchedScanBlock(rig.link);
        seen.push_back(last);
        if (rig.link.CommLost() || last == first) return seen;
    }
    ADD_FAILURE() << "the pass doesn't end";
    return seen;
}

TEST(ModbusLinkWatch, A10MsWatcherSeesEveryIndexAtEverySpeed) {
    for (const std::int32_t baud : {300, 9600, 115200, 921600}) {
        Port_Settings settings = Link_Rig::defaults();
        settings.line.baud = baud;
        Link_Rig rig(settings);
        rig.turnaround = 200;
        rig.block(1, 5);
        rig.block(6, 7);
        rig.block(8, 300);
        EXPECT_THAT(indexesOfOnePass(rig), ElementsAre(2, 3, 1)) << baud;
    }
}

TEST(ModbusLinkWatch, LookingAtTheIndexMovesNothing) {
    const auto requestsOf = [](auto&& look) {
        Link_Rig rig;
        rig.turnaround = 200;
        rig.block(1, 5);
        rig.block(6, 7);
        rig.scan();
        for (int tick = 0; tick < 100; ++tick) {
            rig.clock.runFor(10 * ms);
            look(rig.link);
        }
        return rig.port.written.size();
    };
    const std::size_t alone = requestsOf([](const Modbus_Link&) {});
    EXPECT_EQ(requestsOf([](const Modbus_Link& link) {
                  (void)link.ScanBlockIndex();
                  (void)link.LastRequestFailed();
              }),
              alone);
    EXPECT_LT(requestsOf([](Modbus_Link& link) { (void)watchedScanBlock(link); }), alone)
        << "a watcher who says that it looks is waited for";
}

TEST(ModbusLinkWatch, AUploadOfOneBlockEnds) {
    Link_Rig rig;
    rig.block(1, 5);
    EXPECT_THAT(indexesOfOnePass(rig), ElementsAre(0, 1));
}

TEST(ModbusLinkWatch, AWatchedPassEndsWithNoRequestOnTheWay) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.block(6, 7);
    indexesOfOnePass(rig);
    EXPECT_EQ(rig.port.written.size(), 2U);
}

TEST(ModbusLinkWatch, AScanWithoutBlocksIsLostAtOnce) {
    Link_Rig rig;
    EXPECT_EQ(indexesOfOnePass(rig).size(), 1U);
    EXPECT_TRUE(rig.link.CommLost());
    EXPECT_EQ(rig.link.ScanBlockCount(), 0);
}

TEST(ModbusLinkWatch, AScanWithoutBlocksIsLostTooWhenTheWishToScanStoodBefore) {
    Link_Rig rig;
    rig.link.StartScan();
    EXPECT_EQ(indexesOfOnePass(rig).size(), 1U);
    EXPECT_TRUE(rig.link.CommLost());
}

TEST(ModbusLinkWatch, AScanWithoutBlocksMissesOneAndThenRests) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.link.SetTimings(50, 0);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.clock.runFor(10 * ms);
    rig.link.PauseScan();
    rig.link.ClearBlocks();
    rig.link.ResumeScan();
    std::vector<std::int32_t> seen{watchedScanBlock(rig.link)};
    rig.link.StartScan();
    for (int tick = 0; tick < 100; ++tick) {
        rig.clock.runFor(10 * ms);
        if (watchedScanBlock(rig.link) != seen.back()) seen.push_back(watchedScanBlock(rig.link));
    }
    EXPECT_THAT(seen, ElementsAre(0, 1, 0));
}

TEST(ModbusLinkWatch, WithoutAPortABlockIsMissed) {
    Link_Rig rig;
    rig.port.onOpen = [](const std::string&) { return Port_Opening{false, "No such port", {}}; };
    rig.block(1, 5);
    EXPECT_EQ(indexesOfOnePass(rig), std::vector<std::int32_t>{0});
    EXPECT_TRUE(watchedFailure(rig.link));
    EXPECT_TRUE(rig.link.CommLost());
    EXPECT_EQ(rig.link.TransactionCount(), 0);
}

TEST(ModbusLinkWatch, PreparingWithoutBlocksIsNotLost) {
    Link_Rig rig;
    rig.link.SetScanMode("NONE");
    rig.link.PrepareScan();
    EXPECT_FALSE(rig.link.CommLost()) << "a download needs no blocks";
}

TEST(ModbusLinkWatch, ASilentControllerEndsAWatchedPassAsLost) {
    Link_Rig rig;
    rig.faults = [](int, const Byte_Array&) {};
    rig.block(1, 5);
    rig.block(6, 7);
    EXPECT_THAT(indexesOfOnePass(rig), ElementsAre(2));
    EXPECT_TRUE(rig.link.CommLost());
}

TEST(ModbusLinkWatch, A10MsWatcherMissesNoFailure) {
    Port_Settings settings = Link_Rig::defaults();
    settings.line.baud = 921600;
    Link_Rig rig(settings);
    rig.turnaround = 100;
    rig.faults = [&](int, const Byte_Array& request) {
        rig.reply(request.at(3) == 6 ? rig.slave.exception(request, 2) : rig.slave.answer(request), 100);
    };
    rig.block(1, 5);
    rig.block(6, 200);
    rig.block(8, 9);
    rig.link.SetScanMode("NONE");
    rig.link.PrepareScan();
    int failures = 0;
    std::uint8_t last = 0;
    std::int32_t index = watchedScanBlock(rig.link);
    rig.link.StartScan();
    for (int tick = 0; tick < 30 && index >= 0; ++tick) {
        rig.clock.runFor(10 * ms);
        if (rig.link.TransactionCount() != last && watchedFailure(rig.link)) ++failures;
        last = rig.link.TransactionCount();
        const bool back = watchedScanBlock(rig.link) == 1 && index == 3;
        index = back ? -1 : watchedScanBlock(rig.link);
    }
    EXPECT_EQ(index, -1);
    EXPECT_EQ(failures, 1);
}

/// The blocks that an upload would name in its records: the index that it knew when it learnt of a failure.
std::vector<std::int32_t> blocksOfFailures(Link_Rig& rig) {
    std::vector<std::int32_t> blocks;
    rig.link.SetScanMode("NONE");
    rig.link.PrepareScan();
    const std::int32_t first = watchedScanBlock(rig.link);
    std::int32_t known = first;
    std::uint8_t last = rig.link.TransactionCount();
    rig.link.StartScan();
    for (int tick = 0; tick < 1000; ++tick) {
        rig.clock.runFor(10 * ms);
        if (rig.link.TransactionCount() != last && watchedFailure(rig.link)) blocks.push_back(known);
        last = rig.link.TransactionCount();
        const std::int32_t index = watchedScanBlock(rig.link);
        if (index != known && (index == first || rig.link.CommLost())) return blocks;
        known = index;
    }
    ADD_FAILURE() << "the pass doesn't end";
    return blocks;
}

TEST(ModbusLinkWatch, ARefusalIsToldUnderItsOwnBlockHoweverFastItComes) {
    for (const Micros turnaround : {0, 100, 1000, 3000, 7000, 9000, 20000}) {
        Port_Settings settings = Link_Rig::defaults();
        settings.line.baud = 921600;
        Link_Rig rig(settings);
        rig.faults = [&](int number, const Byte_Array& request) {
            const bool refused = number % 3 == 2;
            rig.reply(refused ? rig.slave.exception(request, 2) : rig.slave.answer(request), turnaround);
        };
        for (std::int32_t block = 0; block < 8; ++block)
            rig.block(10 * block, 10 * block + 3);
        EXPECT_THAT(blocksOfFailures(rig), ElementsAre(3, 6)) << turnaround;
    }
}

TEST(ModbusLinkWatch, ABlockWithoutAnAddressIsToldUnderItsOwnNumber) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.block(70000, 70001);
    rig.block(6, 7);
    EXPECT_THAT(blocksOfFailures(rig), ElementsAre(2));
    EXPECT_EQ(rig.port.written.size(), 2U);
}

/// A link whose second block was refused at once, before its watcher has looked again.
struct Refused_Unseen : Link_Rig {
    Refused_Unseen() {
        faults = [this](int number, const Byte_Array& request) {
            reply(number == 1 ? slave.exception(request, 2) : slave.answer(request), 0);
        };
        block(1, 5);
        block(6, 7);
        link.SetScanMode("NONE");
        link.PrepareScan();
        EXPECT_EQ(watchedScanBlock(link), 1);
        link.StartScan();
        clock.runUntilTrue([&] { return port.written.size() == 2; }, microsPerSecond);
        clock.runFor(requestTime() + ms);
    }
};

TEST(ModbusLinkWatch, ARefusalThatNobodySeesIsToldAfter250Ms) {
    Refused_Unseen rig;
    EXPECT_EQ(rig.link.TransactionCount(), 1);
    rig.clock.runFor(200 * ms);
    EXPECT_EQ(rig.link.TransactionCount(), 1);
    rig.clock.runFor(50 * ms);
    EXPECT_EQ(rig.link.TransactionCount(), 2);
    EXPECT_EQ(rig.link.LastResponse(), "Illegal data address (exception 2)");
}

TEST(ModbusLinkWatch, ARefusalThatNobodySawIsToldByAStop) {
    Refused_Unseen rig;
    rig.link.StopScan();
    EXPECT_EQ(rig.log.exchanges.size(), 2U);
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.port.written.size(), 2U);
}

TEST(ModbusLinkWatch, ARefusalThatNobodySawIsToldByAResetAndMovesNothing) {
    Refused_Unseen rig;
    rig.link.ResetScan();
    EXPECT_EQ(rig.log.exchanges.size(), 2U);
    EXPECT_FALSE(watchedFailure(rig.link));
    ASSERT_TRUE(rig.exchanges(3));
    EXPECT_EQ(rig.log.exchanges[2].firstRegister, 1);
}

TEST(ModbusLinkWatch, ARefusalThatNobodySawIsToldBeforeAWrite) {
    Refused_Unseen rig;
    rig.link.PresetSingleRegister(0, 3, 7);
    EXPECT_EQ(rig.log.exchanges.size(), 2U);
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_EQ(rig.slave.registers[3], 7);
}

TEST(ModbusLinkWatch, ARefusalThatNobodySawIsToldWhileTheScanPauses) {
    Refused_Unseen rig;
    rig.link.PauseScan();
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.link.TransactionCount(), 2);
    EXPECT_EQ(rig.port.written.size(), 2U);
}

TEST(ModbusLinkWatch, ARefusalThatNobodySawIsToldWhenTheLineGoes) {
    Refused_Unseen rig;
    rig.port.unplug();
    EXPECT_EQ(rig.log.exchanges.size(), 2U);
    EXPECT_TRUE(rig.link.CommLost());
}

} // namespace
} // namespace zorvane
