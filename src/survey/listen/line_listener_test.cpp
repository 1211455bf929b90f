// SPDX-License-Identifier: MIT
#include "comm/modbus_control/testing/hand_clock.h"
#include "comm/modbus_control/testing/toy_slave.h"
#include "survey/listen/line_listener.h"
#include "survey/listen/testing/scripted_listening_port.h"

#include <gtest/gtest.h>

#include <vector>

namespace zorvane::survey {
namespace {

using survey::testing::Scripted_Listening_Port;
using zorvane::testing::bytesOf;
using zorvane::testing::Hand_Clock;
using zorvane::testing::ms;
using zorvane::testing::withCrc;

const Byte_Array request = withCrc({1, 3, 0, 100, 0, 2});
const Byte_Array answer = withCrc({1, 3, 4, 0, 1, 0, 2});

struct Listener_Rig {
    explicit Listener_Rig(Listening_Plan plan = {"ttyUSB0", {9600, 'N', 8, 1}, {}, {}})
        : listener(port, clock, std::move(plan), [this](const Heard_Frame&) { ++heard; }) {
        listener.start([this](const Listening_Report& report) { reports.push_back(report); });
    }

    Hand_Clock clock;
    Scripted_Listening_Port port;
    int heard = 0;
    std::vector<Listening_Report> reports;
    Line_Listener listener;
};

Listening_Plan planFor(std::optional<Micros> duration, std::optional<std::uint64_t> frames) {
    return {"ttyUSB0", {9600, 'N', 8, 1}, duration, frames};
}

TEST(LineListener, CountsWhatItHearsUntilItsTimeIsUp) {
    Listener_Rig rig(planFor(2 * microsPerSecond, {}));
    EXPECT_EQ(rig.port.openedAs, "ttyUSB0 9600,n,8,1");
    for (int i = 0; i < 4; ++i) {
        rig.port.deliver(request);
        rig.clock.runFor(20 * ms);
        rig.port.deliver(answer);
        rig.clock.runFor(100 * ms);
    }
    EXPECT_EQ(rig.heard, 8);
    rig.clock.runFor(10 * microsPerSecond);
    ASSERT_EQ(rig.reports.size(), 1U);
    const Listening_Report& report = rig.reports[0];
    EXPECT_TRUE(report.opened);
    EXPECT_EQ(report.frames, 8U);
    EXPECT_EQ(report.bytes, 4U * 17);
    EXPECT_EQ(report.noiseBytes, 0U);
    EXPECT_EQ(report.duration, 2 * microsPerSecond);
    EXPECT_EQ(report.table.sum().unpaired, 0U);
    EXPECT_EQ(report.table.askings().at({1, 3, 100, 2}).answerTimes.median(), 20 * ms);
    EXPECT_FALSE(rig.port.isOpen);
}

TEST(LineListener, EndsAfterSoManyFrames) {
    Listener_Rig rig(planFor({}, 3));
    Byte_Array all = request;
    for (const Byte_Array& next : {answer, request, answer})
        all.insert(all.end(), next.begin(), next.end());
    rig.port.deliver(all);
    rig.clock.runFor(1);
    ASSERT_EQ(rig.reports.size(), 1U);
    EXPECT_EQ(rig.reports[0].frames, 3U);
    EXPECT_EQ(rig.heard, 3);
    EXPECT_EQ(rig.reports[0].table.sum().unpaired, 1U);
}

TEST(LineListener, EndsWhenItIsToldTo) {
    Listener_Rig rig;
    rig.port.deliver(request);
    rig.clock.runFor(3600 * microsPerSecond);
    EXPECT_TRUE(rig.reports.empty());
    rig.port.waiting = answer;
    rig.listener.stop();
    rig.clock.runFor(1);
    ASSERT_EQ(rig.reports.size(), 1U);
    EXPECT_EQ(rig.reports[0].frames, 2U);
    EXPECT_EQ(rig.reports[0].reason, "");
}

TEST(LineListener, EndsAFrameThatFellSilent) {
    Listener_Rig rig;
    rig.port.deliver(bytesOf("01 03 FA"));
    rig.port.deliver(request);
    rig.clock.runFor(300 * ms);
    EXPECT_EQ(rig.heard, 0); // the three bytes may still be the head of an answer
    rig.clock.runFor(100 * ms);
    EXPECT_EQ(rig.heard, 1);
}

TEST(LineListener, EndsInTimeAfterAFrameThatFellSilent) {
    Listener_Rig rig(planFor(2 * microsPerSecond, {}));
    rig.port.deliver(bytesOf("01 03 FA"));
    rig.clock.runFor(microsPerSecond);
    EXPECT_TRUE(rig.reports.empty());
    rig.clock.runFor(microsPerSecond);
    ASSERT_EQ(rig.reports.size(), 1U);
    EXPECT_EQ(rig.reports[0].duration, 2 * microsPerSecond);
    EXPECT_EQ(rig.reports[0].noiseBytes, 3U);
}

/// A program that was busy finds bytes waiting when its alarm rings.
TEST(LineListener, TakesWhatWaitsBeforeItEndsAFrame) {
    Listener_Rig rig;
    rig.port.deliver({answer.begin(), answer.begin() + 5});
    rig.port.waiting = {answer.begin() + 5, answer.end()};
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.heard, 1);
}

TEST(LineListener, SaysWhyThePortCannotBeOpened) {
    Hand_Clock clock;
    Scripted_Listening_Port port;
    port.opens = false;
    Line_Listener listener(port, clock, planFor({}, {}));
    std::vector<Listening_Report> reports;
    listener.start([&reports](const Listening_Report& report) { reports.push_back(report); });
    clock.runFor(1);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_FALSE(reports[0].opened);
    EXPECT_EQ(reports[0].reason, "No such port: ttyUSB0");
}

TEST(LineListener, EndsWhenTheAdapterIsUnplugged) {
    Listener_Rig rig;
    rig.port.deliver(request);
    rig.port.unplug();
    rig.clock.runFor(1);
    ASSERT_EQ(rig.reports.size(), 1U);
    EXPECT_TRUE(rig.reports[0].opened);
    EXPECT_EQ(rig.reports[0].reason, "Input/output error");
    EXPECT_EQ(rig.reports[0].frames, 1U);
}

} // namespace
} // namespace zorvane::survey
