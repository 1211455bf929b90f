// SPDX-License-Identifier: MIT
#include "simulator/faults/fault_rule.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane::simulator {
namespace {

std::string complaint(const char* text) {
    try {
        (void)parseFault(text);
    } catch (const Bad_Fault& bad) {
        return bad.what();
    }
    return "accepted";
}

TEST(FaultRule, AKindAloneStrikesEveryTimeAndEverywhere) {
    const Fault_Rule fault = parseFault("silent");
    EXPECT_EQ(fault.kind, Fault_Kind::Silent);
    EXPECT_FALSE(fault.percent || fault.count || fault.first || fault.last);
    EXPECT_EQ(fault.text, "silent");
}

TEST(FaultRule, HasARateInPercent) {
    const Fault_Rule fault = parseFault("crc:5%");
    EXPECT_EQ(fault.kind, Fault_Kind::Crc);
    EXPECT_EQ(fault.percent, 5.0);
    EXPECT_EQ(parseFault("crc:0.25%").percent, 0.25);
    EXPECT_EQ(parseFault("crc:100%").percent, 100.0);
}

TEST(FaultRule, HasACountAndARangeOfRegisters) {
    const Fault_Rule fault = parseFault("silent:3@40010-40020");
    EXPECT_EQ(fault.count, 3);
    EXPECT_EQ(fault.first, 40010);
    EXPECT_EQ(fault.last, 40020);
}

TEST(FaultRule, HasAValueARateAndARangeAtOnce) {
    const Fault_Rule fault = parseFault("late=300:10%@1-50");
    EXPECT_EQ(fault.kind, Fault_Kind::Late);
    EXPECT_EQ(fault.value, 300);
    EXPECT_EQ(fault.percent, 10.0);
    EXPECT_EQ(fault.first, 1);
    EXPECT_EQ(fault.last, 50);
}

TEST(FaultRule, ARangeMayBeOneRegister) {
    const Fault_Rule fault = parseFault("short@7");
    EXPECT_EQ(fault.first, 7);
    EXPECT_EQ(fault.last, 7);
}

TEST(FaultRule, KnowsEveryKind) {
    EXPECT_EQ(parseFault("truncate=4").value, 4);
    EXPECT_EQ(parseFault("noise=9").kind, Fault_Kind::Noise);
    EXPECT_EQ(parseFault("echo").kind, Fault_Kind::Echo);
    EXPECT_EQ(parseFault("wrong-unit").kind, Fault_Kind::Wrong_Unit);
    EXPECT_EQ(parseFault("wrong-echo:1").kind, Fault_Kind::Wrong_Echo);
    EXPECT_EQ(parseFault("exception=4").value, 4);
    EXPECT_EQ(parseFault("busy=2").value, 2);
    EXPECT_EQ(parseFault("unplug=250").value, 250);
}

TEST(FaultRule, AnUnplugLastsASecondWithoutAValue) { EXPECT_EQ(parseFault("unplug:1").value, 1000); }

TEST(FaultRule, SaysWhatIsWrong) {
    EXPECT_EQ(complaint("loud"),
              "fault \"loud\": no such kind of fault; there are silent, late, crc, truncate, noise, echo, "
              "wrong-unit, wrong-echo, short, exception, busy, unplug");
    EXPECT_EQ(complaint("late"), "fault \"late\": late needs a value, as in late=1");
    EXPECT_EQ(complaint("crc=2"), "fault \"crc=2\": crc takes no value");
    EXPECT_EQ(complaint("late=soon"), "fault \"late=soon\": late needs a whole number from 1 to 3600000");
    EXPECT_EQ(complaint("exception=256"),
              "fault \"exception=256\": exception needs a whole number from 1 to 255");
    EXPECT_EQ(complaint("crc:0%"),
              "fault \"crc:0%\": a rate is a number above 0 up to 100 with a percent sign, as in 5%");
    EXPECT_EQ(complaint("crc:101%"),
              "fault \"crc:101%\": a rate is a number above 0 up to 100 with a percent sign, as in 5%");
    EXPECT_EQ(complaint("crc:0"), "fault \"crc:0\": after \":\" stands a rate (5%) or a count from 1");
    EXPECT_EQ(complaint("crc:"), "fault \"crc:\": after \":\" stands a rate (5%) or a count from 1");
    EXPECT_EQ(complaint("crc@20-10"),
              "fault \"crc@20-10\": after \"@\" stands a register or a range, as in 40010 or 40010-40020");
    EXPECT_EQ(complaint("crc@"),
              "fault \"crc@\": after \"@\" stands a register or a range, as in 40010 or 40010-40020");
    EXPECT_EQ(complaint("").substr(0, 33), "fault \"\": no such kind of fault; ");
}

TEST(FaultRule, TheHelpNamesEveryKind) {
    const std::string help = faultHelp();
    for (const char* kind : {"silent", "late=N", "crc", "truncate=N", "noise=N", "echo", "wrong-unit",
                             "wrong-echo", "short", "exception=N", "busy=N", "unplug[=N]"})
        EXPECT_NE(help.find(std::string("\n  ") + kind + " "), std::string::npos) << kind;
}

} // namespace
} // namespace zorvane::simulator
