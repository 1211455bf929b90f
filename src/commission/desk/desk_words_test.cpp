// SPDX-License-Identifier: MIT
#include "commission/desk/desk_words.h"
#include "commission/desk/session_parts.h"
#include "commission/testing/session_bench.h"

#include <gmock/gmock.h>

namespace zorvane::commission {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

compare::Identity identityWith(compare::Verdict verdict) {
    compare::Identity identity;
    identity.verdict = verdict;
    identity.model = "PUMP";
    identity.unit = 3;
    return identity;
}

TEST(DeskWords, TheIdentityIsASentence) {
    EXPECT_EQ(identityText(identityWith(compare::Verdict::Isnt)), "The controller at unit 3 isn't a PUMP.");
    EXPECT_EQ(identityText(identityWith(compare::Verdict::Cant_Tell)),
              "It can't be told whether the controller at unit 3 is a PUMP.");
    compare::Identity whole = identityWith(compare::Verdict::Is);
    whole.serial = "A-17";
    whole.firmware = "2.1";
    EXPECT_EQ(identityText(whole),
              "The controller at unit 3 is a PUMP. Its serial number is A-17. Its firmware is 2.1.");
}

TEST(DeskWords, TheEvidenceTellsWhatWasFound) {
    compare::Identity identity = identityWith(compare::Verdict::Isnt);
    identity.evidence = {{"30", "bearing", "20 to 30", "99", compare::Fit::Doesnt_Fit, {}},
                         {"object 1", "", "PUMP", "", compare::Fit::Not_Read, compare::Unread{2}}};
    EXPECT_EQ(evidenceTexts(identity).front(),
              "Register 30 (bearing) doesn't fit: \"99\" instead of \"20 to 30\".");
    EXPECT_THAT(evidenceTexts(identity).back(), HasSubstr("object 1 wasn't read: "));
    identity.evidence = {{"10-20", "block 1", "registers that can be read",
                          "Illegal data address (exception 2)", compare::Fit::Doesnt_Fit,
                          compare::Unread{2}}};
    EXPECT_THAT(evidenceTexts(identity),
                ElementsAre("Register 10-20 (block 1) doesn't fit: it can't be read, Illegal "
                            "data address (exception 2)."));
    EXPECT_THAT(
        evidenceTexts(identityWith(compare::Verdict::Cant_Tell)),
        ElementsAre("The template doesn't say by what its controller is told; what was read doesn't speak "
                    "against it."));
}

TEST(DeskWords, CountsAreASentence) {
    Value_Counts counts;
    for (const Value_State state : allValueStates)
        counts.add(state);
    counts.add(Value_State::Verified);
    EXPECT_EQ(countsText(counts),
              "2 of 6 values verified, 1 refused, 1 stored otherwise, 1 unknown, 1 not sent.");
}

TEST(SessionParts, TheControllersFileHasWhatWasReadAndLeavesTheDocumentAlone) {
    doubles::Session_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.set(1, 3, 2, "0:45");
    compare::Controller_Registers registers;
    registers.take(11, {33});
    const std::string file = controllerFile(bench.bench.document, registers);
    EXPECT_THAT(file, HasSubstr("Level,33,"));
    EXPECT_THAT(file, HasSubstr("Delay,0:45,"));
    EXPECT_EQ(bench.bench.cell(1, 2, 2).Value, "50");
}

TEST(SessionParts, WhatIsOutsideItsLimitsOrInNoListHasItsReason) {
    doubles::Session_Bench bench;
    EXPECT_TRUE(strayReasons(bench.bench.document).empty());
    bench.set(1, 1, 2, "9");
    bench.set(1, 2, 2, "95");
    EXPECT_EQ(strayReasons(bench.bench.document),
              (std::map<Cell_Place, std::string>{{{1, 1, 2}, "its list has no \"9\""},
                                                 {{1, 2, 2}, "its value 95 is outside its limits"}}));
}

TEST(SessionParts, AnotherSerialNumberThanTheLastIsTold) {
    EXPECT_EQ(anotherSerial("", "S-1"), "") << "none was known";
    EXPECT_EQ(anotherSerial("S-1", "S-1"), "");
    EXPECT_EQ(anotherSerial("S-1", "S-2"),
              "Another controller answers: its serial number is \"S-2\", and the last one's was \"S-1\".");
}

TEST(SessionParts, TheModelThatWasFoundIsNamedInAnyLetterCase) {
    compare::Identity identity = identityWith(compare::Verdict::Isnt);
    identity.evidence = {{"30", "bearing", "20", "99", compare::Fit::Doesnt_Fit, {}},
                         {"320-327", "model", "PUMP", "Fan 2", compare::Fit::Doesnt_Fit, {}}};
    EXPECT_TRUE(isFoundModel(identity, " FAN 2"));
    EXPECT_TRUE(isFoundModel(identity, "pump"));
    EXPECT_FALSE(isFoundModel(identity, "fan"));
    EXPECT_FALSE(isFoundModel(identity, ""));
}

} // namespace
} // namespace zorvane::commission
