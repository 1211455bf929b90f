// SPDX-License-Identifier: MIT
#include "comm/modbus_control/testing/toy_slave.h"
#include "survey/find/unit_trial.h"

#include <gtest/gtest.h>

namespace zorvane::survey {
namespace {

using Next = Unit_Trial::Next;
using zorvane::testing::bytesOf;
using zorvane::testing::withCrc;

const Port_Settings port{};

Try_Result tryWith(const Byte_Array& received, Micros took = 20000) {
    Try_Result result;
    result.request = readRequest(1, 0, 1);
    result.sent = encodeRequest(result.request);
    result.received = received;
    result.endedAt = took;
    if (const Finding finding = findAnswer(result.request, received);
        finding.verdict == Finding::Verdict::Found)
        result.answer = finding.answer;
    return result;
}

Try_Result silent() { return tryWith({}); }
Try_Result value(const char* pairs) { return tryWith(withCrc(bytesOf(pairs))); }
Try_Result damaged() { return tryWith(bytesOf("01 03 02 00 07 00 00")); }

TEST(KindOfTry, TellsWhatCameBack) {
    const Byte_Array request = encodeRequest(readRequest(1, 0, 1));
    EXPECT_EQ(kindOf(silent(), port), Try_Kind::Silence);
    EXPECT_EQ(kindOf(tryWith(request), port), Try_Kind::Silence);
    EXPECT_EQ(kindOf(tryWith(bytesOf("FF 00")), port), Try_Kind::Silence);
    EXPECT_EQ(kindOf(tryWith(bytesOf("FF 00 FF")), port), Try_Kind::Damaged);
    EXPECT_EQ(kindOf(value("01 03 02 00 07"), port), Try_Kind::Answer);
    EXPECT_EQ(kindOf(value("01 83 02"), port), Try_Kind::Refusal);
    EXPECT_EQ(kindOf(value("01 83 06"), port), Try_Kind::Refusal);
    EXPECT_EQ(kindOf(value("01 83 0A"), port), Try_Kind::Gateway);
    EXPECT_EQ(kindOf(value("01 83 0B"), port), Try_Kind::Gateway);
    EXPECT_EQ(kindOf(value("02 03 02 00 07"), port), Try_Kind::Stranger);
    EXPECT_EQ(kindOf(damaged(), port), Try_Kind::Damaged);
}

TEST(UnitTrial, EndsAtSilence) {
    Unit_Trial trial(10);
    EXPECT_EQ(trial.take(silent(), port), Next::NotThere);
    EXPECT_FALSE(trial.isThere());
}

TEST(UnitTrial, NeedsTwoEqualAnswers) {
    Unit_Trial trial(3);
    EXPECT_EQ(trial.take(value("01 03 02 00 07"), port), Next::Ask);
    EXPECT_FALSE(trial.isThere());
    EXPECT_EQ(trial.take(value("01 03 02 00 08"), port), Next::Ask);
    EXPECT_FALSE(trial.isThere());
    EXPECT_EQ(trial.take(value("01 03 02 00 07"), port), Next::Found);
    EXPECT_TRUE(trial.isThere());
    EXPECT_EQ(trial.times().count(), 3U);
}

TEST(UnitTrial, NeedsOneRefusal) {
    Unit_Trial trial(1);
    EXPECT_EQ(trial.take(value("01 83 02"), port), Next::Found);
}

TEST(UnitTrial, TakesNoGatewayForAUnit) {
    Unit_Trial trial(10);
    EXPECT_EQ(trial.take(value("01 83 0B"), port), Next::NotThere);
    EXPECT_FALSE(trial.isThere());
}

TEST(UnitTrial, GivesUpAValueThatNeverStandsStill) {
    Unit_Trial trial(10);
    for (int i = 1; i < Unit_Trial::usualPatience; ++i) {
        const auto low = static_cast<std::uint8_t>(i);
        EXPECT_EQ(trial.take(tryWith(withCrc({1, 3, 2, 0, low})), port), Next::Ask);
    }
    EXPECT_EQ(trial.take(value("01 03 02 00 FF"), port), Next::NotThere);
}

TEST(UnitTrial, AsksAgainAfterDamage) {
    Unit_Trial trial(2);
    EXPECT_EQ(trial.take(damaged(), port), Next::Ask);
    EXPECT_EQ(trial.take(value("01 03 02 00 07"), port), Next::Ask);
    EXPECT_EQ(trial.take(value("01 03 02 00 07"), port), Next::Found);
    EXPECT_EQ(trial.damaged(), 1);
    EXPECT_FALSE(trial.mostlyDamaged());
}

TEST(UnitTrial, GivesUpWhereAllIsDamaged) {
    Unit_Trial trial(10, 3);
    EXPECT_EQ(trial.take(damaged(), port), Next::Ask);
    EXPECT_EQ(trial.take(damaged(), port), Next::Ask);
    EXPECT_EQ(trial.take(damaged(), port), Next::NotThere);
    EXPECT_TRUE(trial.mostlyDamaged());
}

TEST(UnitTrial, OneThatAnsweredOnceMayBeSilentTwiceInARow) {
    Unit_Trial trial(2);
    EXPECT_EQ(trial.take(value("01 03 02 00 07"), port), Next::Ask);
    EXPECT_EQ(trial.take(silent(), port), Next::Ask);
    EXPECT_EQ(trial.take(silent(), port), Next::Ask);
    EXPECT_EQ(trial.take(value("01 03 02 00 08"), port), Next::Ask);
    EXPECT_EQ(trial.silentInARow(), 0);
    EXPECT_EQ(trial.take(silent(), port), Next::Ask);
    EXPECT_EQ(trial.take(silent(), port), Next::Ask);
    EXPECT_EQ(trial.take(silent(), port), Next::NotThere);
    EXPECT_EQ(trial.silentInARow(), 3);
}

TEST(UnitTrial, OneThatIsThereAndFallsSilentIsAskedTwiceForEachAnswerAndTwelveTimesMore) {
    Unit_Trial trial(3);
    EXPECT_EQ(trial.take(value("01 83 02"), port), Next::Ask);
    for (int tries = 2; tries < 2 * 3 + 12; ++tries)
        EXPECT_EQ(trial.take(silent(), port), Next::Ask) << tries;
    EXPECT_EQ(trial.take(silent(), port), Next::Found);
    EXPECT_EQ(trial.times().count(), 1U);
}

TEST(UnitTrial, KeepsTheFirstRefusal) {
    Unit_Trial trial(2);
    EXPECT_EQ(trial.take(value("01 83 02"), port), Next::Ask);
    EXPECT_EQ(trial.take(value("01 83 04"), port), Next::Found);
    EXPECT_EQ(trial.refusal(), 2);
}

TEST(UnitTrial, MoreThanHalfOfItAndThreeAtLeastIsMostlyDamaged) {
    Unit_Trial trial(10);
    (void)trial.take(damaged(), port);
    (void)trial.take(damaged(), port);
    EXPECT_FALSE(trial.mostlyDamaged()) << "two of two";
    (void)trial.take(value("01 03 02 00 01"), port);
    (void)trial.take(value("01 03 02 00 02"), port);
    trial.answeredAgain(1);
    EXPECT_TRUE(trial.mostlyDamaged()) << "three, of four tries";
    (void)trial.take(value("01 03 02 00 03"), port);
    EXPECT_TRUE(trial.mostlyDamaged()) << "three of five";
    (void)trial.take(value("01 03 02 00 04"), port);
    EXPECT_FALSE(trial.mostlyDamaged()) << "three of six";
}

TEST(UnitTrial, OneValueIsPatienceEnoughForTwelveTries) {
    Unit_Trial trial(10, 3);
    EXPECT_EQ(trial.take(value("01 03 02 00 01"), port), Next::Ask);
    for (int tries = 2; tries < Unit_Trial::usualPatience; ++tries)
        EXPECT_EQ(trial.take(damaged(), port), Next::Ask) << tries;
    EXPECT_EQ(trial.take(damaged(), port), Next::NotThere);
}

TEST(UnitTrial, MeasuresFromTheRequestsLastByte) {
    // Eight characters of ten bits at 9600 baud take 8334 us.
    EXPECT_EQ(answerTimeOf(tryWith({}, 20000), port), 20000 - 8334);
}

} // namespace
} // namespace zorvane::survey
