// SPDX-License-Identifier: MIT
#include "survey/listen/read_times.h"

#include <gtest/gtest.h>

namespace zorvane::survey {
namespace {

Exchange_Record answeredAfter(Micros took) {
    Exchange_Record exchange;
    exchange.good = true;
    exchange.duration = took;
    exchange.sent = {7, 3, 0, 0, 0, 1, 0, 0};
    return exchange;
}

Port_Settings portAt(std::int32_t baud) {
    Port_Settings port;
    port.port = "ttyUSB0";
    port.slave = 7;
    port.line.baud = baud;
    return port;
}

TEST(ReadTimes, ProposeATimeOutFromFiftyReads) {
    Read_Times times;
    EXPECT_EQ(times.text(), "No read was answered yet.");
    for (int i = 0; i < 49; ++i)
        times.add(answeredAfter(28334), portAt(9600));
    EXPECT_EQ(times.proposedTimeOutMs(), 0);
    times.add(answeredAfter(48334), portAt(9600));
    EXPECT_EQ(times.text(), "50 reads of unit 7: half answered within 20.0 ms, 99 % within 40.0 ms.");
    EXPECT_EQ(times.proposedTimeOutMs(), 150); // three times 40 ms, up to the next 50
}

TEST(ReadTimes, CountAnsweredReadsAlone) {
    Read_Times times;
    Exchange_Record failed = answeredAfter(1000);
    failed.good = false;
    Exchange_Record write = answeredAfter(1000);
    write.function = Function_Code::PresetSingleRegister;
    times.add(failed, portAt(9600));
    times.add(write, portAt(9600));
    EXPECT_EQ(times.times().count(), 0U);
}

TEST(ReadTimes, BeginAnewWithOtherSettingsButForTheTimeOut) {
    Read_Times times;
    Port_Settings port = portAt(9600);
    times.add(answeredAfter(28334), port);
    port.timeOutMs = 150;
    times.add(answeredAfter(28334), port);
    EXPECT_EQ(times.times().count(), 2U);
    times.add(answeredAfter(28334), portAt(19200));
    EXPECT_EQ(times.text(), "1 read of unit 7: half answered within 24.2 ms, 99 % within 24.2 ms.");
}

/// Over Modbus TCP no line takes its time.
TEST(ReadTimes, TakeTheWholeTimeOverANetwork) {
    Read_Times times;
    Port_Settings port = portAt(9600);
    port.port = "tcp:gate:502";
    times.add(answeredAfter(5000), port);
    EXPECT_EQ(times.times().median(), 5000);
}

} // namespace
} // namespace zorvane::survey
