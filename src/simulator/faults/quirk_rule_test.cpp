// SPDX-License-Identifier: MIT
#include "simulator/faults/quirk_rule.h"

#include <gtest/gtest.h>

namespace zorvane::simulator {
namespace {

std::string quirkComplaint(const char* text) {
    try {
        (void)parseQuirk(text);
    } catch (const Bad_Rule& bad) {
        return bad.what();
    }
    return "accepted";
}

TEST(QuirkRule, IsWrittenLikeAFault) {
    const Quirk_Rule quirk = parseQuirk("rounds=10:5%@40010-40020");
    EXPECT_EQ(quirk.kind, Quirk_Kind::Rounds);
    EXPECT_EQ(quirk.value, 10);
    EXPECT_EQ(quirk.percent, 5.0);
    EXPECT_EQ(quirk.first, 40010);
    EXPECT_EQ(quirk.last, 40020);
    EXPECT_EQ(quirk.text, "rounds=10:5%@40010-40020");
}

TEST(QuirkRule, KnowsEveryKind) {
    EXPECT_EQ(parseQuirk("forgets").kind, Quirk_Kind::Forgets);
    EXPECT_EQ(parseQuirk("at-most=1400").kind, Quirk_Kind::At_Most);
    EXPECT_EQ(parseQuirk("at-least=5").kind, Quirk_Kind::At_Least);
    EXPECT_EQ(parseQuirk("stale=300").kind, Quirk_Kind::Stale);
    EXPECT_EQ(parseQuirk("drifts=100@7").kind, Quirk_Kind::Drifts);
    EXPECT_EQ(parseQuirk("write-only@7").kind, Quirk_Kind::Write_Only);
    EXPECT_EQ(parseQuirk("not-above=40010@40011").kind, Quirk_Kind::Not_Above);
    EXPECT_EQ(parseQuirk("not-below=40010@40011").kind, Quirk_Kind::Not_Below);
    EXPECT_EQ(parseQuirk("power-cut=500:1").value, 500);
    EXPECT_EQ(parseQuirk("power-cut").value, 1000);
}

TEST(QuirkRule, SaysWhatIsWrong) {
    EXPECT_EQ(quirkComplaint("sulks"),
              "quirk \"sulks\": no such kind of quirk; there are forgets, rounds, at-most, "
              "at-least, stale, drifts, write-only, not-above, not-below, renumbers, power-cut");
    EXPECT_EQ(quirkComplaint("rounds"), "quirk \"rounds\": rounds needs a value, as in rounds=2");
    EXPECT_EQ(quirkComplaint("rounds=1"), "quirk \"rounds=1\": rounds needs a whole number from 2 to 65535");
    EXPECT_EQ(quirkComplaint("forgets=3"), "quirk \"forgets=3\": forgets takes no value");
    EXPECT_EQ(quirkComplaint("drifts=9:5%"), "quirk \"drifts=9:5%\": drifts takes neither rate nor count");
    EXPECT_EQ(quirkComplaint("forgets:0"),
              "quirk \"forgets:0\": after \":\" stands a rate (5%) or a count from 1");
}

TEST(QuirkRule, TheHelpNamesEveryKind) {
    const std::string help = quirkHelp();
    for (const char* kind : {"forgets", "rounds=N", "at-most=N", "at-least=N", "stale=N", "drifts=N",
                             "write-only", "not-above=N", "not-below=N", "renumbers", "power-cut[=N]"})
        EXPECT_NE(help.find(std::string("\n  ") + kind + " "), std::string::npos) << kind;
}

} // namespace
} // namespace zorvane::simulator
