// SPDX-License-Identifier: MIT
#include "simulator/faults/quirk_effect.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

namespace zorvane::simulator {
namespace {

using namespace std::chrono_literals;

/// Quirks that all strike.
class Struck {
  public:
    Struck(std::initializer_list<const char*> texts) {
        for (const char* text : texts)
            rules_.push_back(parseQuirk(text));
        for (const Quirk_Rule& rule : rules_)
            struck_.push_back(&rule);
    }
    operator Struck_Quirks() const { return struck_; } // NOLINT: stands for them in a call

  private:
    std::vector<Quirk_Rule> rules_;
    std::vector<const Quirk_Rule*> struck_;
};

TEST(QuirkEffect, WithoutQuirksARegisterTakesWhatIsSent) {
    EXPECT_EQ(storedValue(Struck{}, 100, 7), 7);
    EXPECT_EQ(hiddenTime(Struck{}, 100), 0ms);
}

TEST(QuirkEffect, OnlyTheRegistersOfItsRangeForget) {
    const Struck quirks{"forgets@100-101"};
    EXPECT_EQ(storedValue(quirks, 99, 7), 7);
    EXPECT_EQ(storedValue(quirks, 100, 7), std::nullopt);
    EXPECT_EQ(storedValue(quirks, 101, 7), std::nullopt);
    EXPECT_EQ(storedValue(quirks, 102, 7), 7);
}

TEST(QuirkEffect, RoundsToTheNearestHalvesUp) {
    const Struck quirks{"rounds=10"};
    EXPECT_EQ(storedValue(quirks, 100, 1234), 1230);
    EXPECT_EQ(storedValue(quirks, 100, 1235), 1240);
    EXPECT_EQ(storedValue(quirks, 100, 1230), 1230);
    EXPECT_EQ(storedValue(quirks, 100, 65535), 65530);
    EXPECT_EQ(storedValue(Struck{"rounds=3"}, 100, 4), 3);
    EXPECT_EQ(storedValue(Struck{"rounds=3"}, 100, 5), 6);
}

TEST(QuirkEffect, ClampsInTheOrderGiven) {
    const Struck quirks{"at-least=10", "at-most=1400"};
    EXPECT_EQ(storedValue(quirks, 100, 9), 10);
    EXPECT_EQ(storedValue(quirks, 100, 10), 10);
    EXPECT_EQ(storedValue(quirks, 100, 1400), 1400);
    EXPECT_EQ(storedValue(quirks, 100, 1401), 1400);
    EXPECT_EQ(storedValue(Struck{"rounds=100", "at-most=1350"}, 100, 1390), 1350);
    EXPECT_EQ(storedValue(Struck{"at-most=1350", "rounds=100"}, 100, 1390), 1400);
}

TEST(QuirkEffect, TheLongestStalenessHolds) {
    const Struck quirks{"stale=300@100", "stale=200"};
    EXPECT_EQ(hiddenTime(quirks, 100), 300ms);
    EXPECT_EQ(hiddenTime(quirks, 101), 200ms);
}

TEST(QuirkEffect, ALimitIsThatOfTheSameWriteElseWhatTheRegisterHolds) {
    const Struck above{"not-above=110@100-109"};
    const auto holds50 = [](std::int32_t number) {
        return number == 110 ? std::optional<std::uint16_t>(50) : std::nullopt;
    };
    EXPECT_FALSE(beyondLimit(above, {{100, 50}}, holds50));
    EXPECT_TRUE(beyondLimit(above, {{100, 51}}, holds50));
    EXPECT_FALSE(beyondLimit(above, {{111, 51}}, holds50));
    EXPECT_FALSE(beyondLimit(above, {{109, 51}, {110, 60}}, holds50));
    EXPECT_TRUE(beyondLimit(above, {{109, 49}, {110, 40}}, holds50));
    EXPECT_TRUE(beyondLimit(Struck{"not-below=110@100"}, {{100, 49}}, holds50));
    EXPECT_FALSE(beyondLimit(Struck{"not-below=110@100"}, {{100, 50}}, holds50));
    EXPECT_FALSE(beyondLimit(Struck{"not-above=999@100"}, {{100, 51}}, holds50));
}

TEST(QuirkEffect, OnlyWriteOnlyRefusesReading) {
    EXPECT_TRUE(refusesReading(Struck{"write-only@100"}));
    EXPECT_FALSE(refusesReading(Struck{"not-above=110@100"}));
}

} // namespace
} // namespace zorvane::simulator
