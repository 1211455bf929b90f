// SPDX-License-Identifier: MIT
#include "simulator/controller/controller.h"
#include "simulator/controller/testing/write_requests.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace zorvane::simulator {
namespace {

using namespace std::chrono_literals;

/// A controller with registers 100 to 109 that hold 1000 to 1009, at a clock that the test moves.
class Controller_Quirks : public testing::Test {
  protected:
    void quirks(std::initializer_list<const char*> texts, Controller_Traits traits = {}) {
        for (const char* text : texts)
            traits.quirks.push_back(parseQuirk(text));
        Register_Map map;
        for (std::int32_t i = 0; i < 10; ++i)
            map.values[100 + i] = static_cast<std::uint16_t>(1000 + i);
        map.objects = objects_;
        map.writeOnly = writeOnly_;
        controller_.emplace(map, 1, std::vector<Fault_Rule>{}, 1, std::move(traits));
    }

    Reaction take(const Bytes& body) { return controller_->take(sealer_.sealed(body), now_); }

    /// The bytes that go out for a request, without check sum; empty for no answer.
    Bytes answer(const Bytes& body) {
        const Reaction reaction = take(body);
        if (reaction.outgoing.empty()) return {};
        const Bytes& bytes = reaction.outgoing.back().bytes;
        return {bytes.begin(), bytes.end() - 2};
    }

    std::vector<int> read(std::uint8_t address, std::uint8_t count) {
        const Bytes bytes = answer({1, 3, 0, address, 0, count});
        if (bytes.size() < 5) return {};
        std::vector<int> values;
        for (std::size_t i = 3; i + 1 < bytes.size(); i += 2)
            values.push_back(bytes[i] << 8 | bytes[i + 1]);
        return values;
    }

    Modbus_Slave sealer_{1};
    std::optional<Controller> controller_;
    Instant now_{};
    Device_Objects objects_;
    std::set<std::int32_t> writeOnly_;
};

const Bytes blockTaken{1, 16, 0, 100, 0, 2};

TEST_F(Controller_Quirks, AWriteIsAcknowledgedAndForgotten) {
    quirks({"forgets@101"});
    const Reaction reaction = take(writeBlock);
    EXPECT_EQ(reaction.received.taken, true);
    EXPECT_EQ(reaction.received.quirk, "forgets@101");
    EXPECT_EQ(reaction.received.stored, (std::vector<std::uint16_t>{8, 1001}));
    EXPECT_EQ(read(100, 2), (std::vector{8, 1001}));
}

TEST_F(Controller_Quirks, AForgetsOfACountStrikesTheFirstWritesOnly) {
    quirks({"forgets:1"});
    EXPECT_EQ(read(100, 1), std::vector{1000});
    EXPECT_EQ(answer(writeSeven), writeSeven);
    EXPECT_EQ(read(100, 1), std::vector{1000});
    EXPECT_EQ(answer(writeSeven), writeSeven);
    EXPECT_EQ(read(100, 1), std::vector{7});
}

TEST_F(Controller_Quirks, AWriteIsStoredRoundedAndClamped) {
    quirks({"rounds=5@100", "at-most=8@101"});
    EXPECT_EQ(answer(writeBlock), blockTaken);
    EXPECT_EQ(read(100, 2), (std::vector{10, 8}));
}

TEST_F(Controller_Quirks, TheOldValueIsReadForAWhile) {
    quirks({"stale=300"});
    EXPECT_EQ(answer(writeSeven), writeSeven);
    EXPECT_EQ(controller_->value(100), 7);
    EXPECT_EQ(read(100, 1), std::vector{1000});
    now_ += 299ms;
    EXPECT_EQ(read(100, 1), std::vector{1000});
    now_ += 1ms;
    EXPECT_EQ(read(100, 1), std::vector{7});
}

TEST_F(Controller_Quirks, ARegisterDriftsFromWhereItWasWritten) {
    quirks({"drifts=100@100"});
    EXPECT_EQ(read(100, 2), (std::vector{1000, 1001}));
    now_ += 250ms;
    EXPECT_EQ(read(100, 2), (std::vector{1002, 1001}));
    now_ += 50ms;
    EXPECT_EQ(read(100, 1), std::vector{1003});
    EXPECT_EQ(answer(writeSeven), writeSeven);
    now_ += 99ms;
    EXPECT_EQ(read(100, 1), std::vector{7});
    now_ += 1ms;
    EXPECT_EQ(read(100, 1), std::vector{8});
}

TEST_F(Controller_Quirks, AWriteOnlyRegisterRefusesReading) {
    quirks({"write-only@101"});
    EXPECT_EQ(answer({1, 3, 0, 100, 0, 2}), (Bytes{1, 0x83, 2}));
    EXPECT_EQ(read(100, 1), std::vector{1000});
    EXPECT_EQ(answer(writeBlock), blockTaken);
    EXPECT_EQ(controller_->value(101), 9);
}

TEST_F(Controller_Quirks, RegistersThatTheTemplateCallsWriteOnlyRefuseReading) {
    writeOnly_ = {101};
    quirks({});
    EXPECT_EQ(answer({1, 3, 0, 100, 0, 2}), (Bytes{1, 0x83, 2}));
    EXPECT_EQ(answer(writeBlock), blockTaken);
    EXPECT_EQ(controller_->value(101), 9);
}

TEST_F(Controller_Quirks, TakesAnotherUnitNumberAfterItsAnswer) {
    quirks({"renumbers@101"});
    EXPECT_EQ(answer({1, 6, 0, 101, 0, 0}), (Bytes{1, 6, 0, 101, 0, 0}));     // no unit number
    EXPECT_EQ(answer({1, 6, 0, 101, 0, 248}), (Bytes{1, 6, 0, 101, 0, 248})); // nor this
    EXPECT_EQ(answer({1, 6, 0, 101, 0, 17}), (Bytes{1, 6, 0, 101, 0, 17}));
    EXPECT_TRUE(take(writeSeven).outgoing.empty());
    EXPECT_EQ(answer({17, 3, 0, 101, 0, 1}), (Bytes{17, 3, 2, 0, 17}));
}

TEST_F(Controller_Quirks, ALimitDependsOnAnotherRegister) {
    quirks({"not-above=101@100"});
    EXPECT_EQ(answer({1, 6, 0, 100, 3, 0xEA}), (Bytes{1, 0x86, 3})); // 1002 > 1001
    EXPECT_EQ(controller_->value(100), 1000);
    EXPECT_EQ(answer({1, 6, 0, 101, 3, 0xEA}), (Bytes{1, 6, 0, 101, 3, 0xEA}));
    EXPECT_EQ(answer({1, 6, 0, 100, 3, 0xEA}), (Bytes{1, 6, 0, 100, 3, 0xEA}));
}

TEST_F(Controller_Quirks, APowerCutLosesWhatWasNotStored) {
    Controller_Traits traits;
    traits.storeDelay = 500ms;
    quirks({"power-cut=2000:1@105"}, std::move(traits));
    EXPECT_EQ(answer(writeSeven), writeSeven);
    now_ += 400ms;
    EXPECT_EQ(answer({1, 6, 0, 101, 0, 7}), (Bytes{1, 6, 0, 101, 0, 7}));
    EXPECT_EQ(controller_->nextMoment(), now_ + 100ms);
    now_ += 100ms;
    const Reaction cut = take({1, 6, 0, 105, 0, 7});
    EXPECT_TRUE(cut.outgoing.empty());
    EXPECT_TRUE(cut.powerOff);
    EXPECT_EQ(cut.received.note, "no power");
    EXPECT_EQ(cut.events, std::vector<std::string>{"power off"});
    EXPECT_EQ(controller_->nextMoment(), now_ + 2000ms);
    now_ += 1999ms;
    EXPECT_TRUE(take(writeSeven).outgoing.empty());
    now_ += 1ms;
    EXPECT_EQ(controller_->elapse(now_), std::vector<std::string>{"power on"});
    EXPECT_EQ(read(100, 2), (std::vector{7, 1001}));
    EXPECT_EQ(read(105, 1), std::vector{1005});
}

TEST_F(Controller_Quirks, KeepsWhatIsStoredABlockAtATime) {
    std::vector<std::map<std::int32_t, std::uint16_t>> kept;
    Controller_Traits traits;
    traits.keep = [&kept](const auto& values) { kept.push_back(values); };
    quirks({}, std::move(traits));
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0].at(100), 1000);
    EXPECT_EQ(answer(writeBlock), blockTaken);
    ASSERT_EQ(kept.size(), 2U);
    EXPECT_EQ(kept[1].at(100), 8);
    EXPECT_EQ(kept[1].at(101), 9);
    EXPECT_EQ(kept[1].at(102), 1002);
}

TEST_F(Controller_Quirks, AnotherControllerTakesItsPlace) {
    std::size_t kept = 0;
    Controller_Traits traits;
    traits.keep = [&kept](const auto&) { ++kept; };
    objects_ = {{0, "A"}, {1, "B"}, {2, "C"}};
    Exchange exchange;
    exchange.after = 2;
    exchange.registers.values = {{100, 50}};
    traits.exchange = exchange;
    quirks({}, std::move(traits));
    EXPECT_EQ(answer({1, 43, 14, 4, 1}), (Bytes{1, 43, 14, 4, 0x81, 0, 0, 1, 1, 1, 'B'}));
    (void)take({9, 3, 0, 100, 0, 1}); // another unit's
    const Reaction last = take(writeSeven);
    EXPECT_EQ(last.outgoing.size(), 1U);
    EXPECT_EQ(last.events, std::vector<std::string>{"exchanged"});
    const std::size_t before = kept;
    EXPECT_EQ(read(100, 1), std::vector{50});
    EXPECT_EQ(answer({1, 3, 0, 101, 0, 1}), (Bytes{1, 0x83, 2}));
    EXPECT_EQ(answer({1, 43, 14, 4, 1}), (Bytes{1, 0xAB, 1}));
    EXPECT_EQ(answer(writeSeven), writeSeven);
    EXPECT_EQ(kept, before);
}

TEST_F(Controller_Quirks, TellsWhatItIsWhenItHasObjects) {
    objects_ = {{0, "A"}, {1, "B"}};
    quirks({});
    const Reaction reaction = take({1, 43, 14, 1, 0});
    ASSERT_EQ(reaction.outgoing.size(), 1U);
    EXPECT_EQ(reaction.outgoing[0].record.facts->function, 43);
    EXPECT_TRUE(sealer_.checkSumRight(reaction.outgoing[0].bytes));
    EXPECT_EQ(answer({1, 43, 14, 4, 9}), (Bytes{1, 0xAB, 2}));
    EXPECT_EQ(answer({1, 43, 13, 1, 0}), (Bytes{1, 0xAB, 1}));
}

} // namespace
} // namespace zorvane::simulator
