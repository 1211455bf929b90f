// SPDX-License-Identifier: MIT
#include "compare/controller_reading.h"
#include "compare/testing/pump.h"
#include "compare/testing/scripted_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::compare {
namespace {

using doubles::pumpRegisters;
using doubles::pumpTemplate;
using doubles::Scripted_Reader;
using ::testing::ElementsAre;
using zorvane::doubles::Reading_Bench;

class ControllerReading : public ::testing::Test {
  protected:
    ControllerReading() {
        bench.readTemplate(pumpTemplate);
        reader.registers = pumpRegisters();
    }
    [[nodiscard]] Identity_Question question() { return {bench.document, section, reader, 1}; }

    Reading_Bench bench;
    Scripted_Reader reader;
    Identity_Section section;
};

TEST_F(ControllerReading, ReadsEachBlockWithOneRequest) {
    const Reading_Result result = readRanges(reader, 1, blocksOf(bench.document));
    EXPECT_TRUE(result.done());
    EXPECT_THAT(reader.requests, ElementsAre("1: 10-20", "1: 30-30"));
    EXPECT_EQ(result.registers.values(), pumpRegisters());
}

TEST_F(ControllerReading, AsksForNoRegisterThatCantBeReadBack) {
    section.writeOnly = {{10, 10}, {13, 14}, {30, 30}};
    const Looked_At seen = lookAt(question());
    EXPECT_TRUE(seen.read.latest.done());
    EXPECT_THAT(reader.requests,
                ElementsAre("1: 11-12", "1: 15-20", "pause 1800 ms", "1: 11-12", "1: 15-20"));
    EXPECT_EQ(seen.read.latest.registers.valueAt(11), 65531);
}

TEST_F(ControllerReading, KnowsWhyABlockHasNoValues) {
    reader.registers.erase(15);
    reader.ends[30] = Unit_End::Silent;
    const Reading_Result result = readRanges(reader, 1, blocksOf(bench.document));
    EXPECT_TRUE(result.done());
    EXPECT_EQ(result.registers.unreadAt(10), Unread{2});
    EXPECT_EQ(result.registers.unreadAt(30), Unread{});
    EXPECT_EQ(result.registers.unreadAt(99), std::nullopt);
    EXPECT_TRUE(result.registers.values().empty());
}

TEST_F(ControllerReading, EndsWithThePort) {
    reader.ends[10] = Unit_End::PortLost;
    const Reading_Result result = readRanges(reader, 1, blocksOf(bench.document));
    EXPECT_EQ(result.end, Reading_End::Port_Lost);
    EXPECT_EQ(result.fault, "told so");
    EXPECT_THAT(reader.requests, ElementsAre("1: 10-20"));
}

TEST_F(ControllerReading, ReadsAgainTwoSecondsLater) {
    reader.before = [this] { ++reader.registers[30]; };
    const Twice_Read twice = readTwice(reader, 1, blocksOf(bench.document));
    EXPECT_THAT(reader.requests,
                ElementsAre("1: 10-20", "1: 30-30", "pause 1800 ms", "1: 10-20", "1: 30-30"));
    EXPECT_TRUE(twice.latest.done());
    EXPECT_EQ(twice.earlier.valueAt(30), 23);
    EXPECT_EQ(twice.latest.registers.valueAt(30), 25);
    EXPECT_EQ(twice.latest.registers.valueAt(11), 65531);
}

TEST_F(ControllerReading, DoesntAskAgainForWhatItWasRefused) {
    reader.registers.erase(15);
    const Twice_Read twice = readTwice(reader, 1, blocksOf(bench.document));
    EXPECT_THAT(reader.requests, ElementsAre("1: 10-20", "1: 30-30", "pause 1800 ms", "1: 30-30"));
    EXPECT_EQ(twice.latest.registers.unreadAt(15), Unread{2});
}

TEST_F(ControllerReading, WaitsForNothingWhereNothingWasRead) {
    reader.ends = {{10, Unit_End::Silent}, {30, Unit_End::Silent}};
    EXPECT_TRUE(readTwice(reader, 1, blocksOf(bench.document)).latest.done());
    EXPECT_THAT(reader.requests, ElementsAre("1: 10-20", "1: 30-30"));
}

TEST_F(ControllerReading, KeepsTheEarlierValuesOfWhatTheSecondReadingDidntBring) {
    reader.before = [this] {
        if (reader.requests.size() == 4) reader.ends[10] = Unit_End::Silent;
    };
    const Twice_Read twice = readTwice(reader, 1, blocksOf(bench.document));
    EXPECT_TRUE(twice.latest.done());
    EXPECT_EQ(twice.latest.registers.values(), pumpRegisters());
}

TEST_F(ControllerReading, ALookTellsHowFarItIs) {
    section = readIdentity("[IDENTITY]\nREGISTER_1=19\nVALUE_1=1\n");
    std::string told;
    const Looked_At seen = lookAt(question(), [&](std::size_t done, std::size_t all) {
        told += std::to_string(done) + "/" + std::to_string(all) + " ";
    });
    EXPECT_EQ(told, "0/5 1/5 2/5 3/5 3/5 4/5 5/5 ");
    EXPECT_EQ(seen.identity.verdict, Verdict::Is);
    EXPECT_TRUE(seen.read.latest.done());
    EXPECT_EQ(reader.requests.front(), "1: 19-19");
}

TEST_F(ControllerReading, ALookThatNeedsFewerRequestsEndsWithAllOfThem) {
    reader.ends[30] = Unit_End::Refused; // not asked for again
    std::string told;
    (void)lookAt(question(), [&](std::size_t done, std::size_t all) {
        told += std::to_string(done) + "/" + std::to_string(all) + " ";
    });
    EXPECT_EQ(told, "0/4 1/4 2/4 2/4 4/4 ");
}

TEST_F(ControllerReading, ALookWithoutMarksJudgesByTheCells) {
    EXPECT_EQ(lookAt(question()).identity.verdict, Verdict::Cant_Tell);
    reader.registers[10] = 9;
    reader.registers[11] = 91;
    reader.registers[12] = 40000;
    EXPECT_EQ(lookAt(question()).identity.verdict, Verdict::Isnt);
}

TEST_F(ControllerReading, ALookEndsWithThePort) {
    section = readIdentity("[IDENTITY]\nREGISTER_1=19\nVALUE_1=1\n");
    reader.ends[19] = Unit_End::PortLost;
    const Looked_At seen = lookAt(question());
    EXPECT_EQ(seen.read.latest.end, Reading_End::Port_Lost);
    EXPECT_EQ(seen.read.latest.fault, "told so");
    EXPECT_THAT(reader.requests, ElementsAre("1: 19-19"));
}

TEST_F(ControllerReading, EndsBetweenTheTwoReadingsWhenSomebodyWantsTheEnd) {
    reader.wantsEnd = true;
    EXPECT_EQ(readTwice(reader, 1, blocksOf(bench.document)).latest.end, Reading_End::Cancelled);
    EXPECT_THAT(reader.requests, ElementsAre("1: 10-20", "1: 30-30", "pause 1800 ms"));
}

TEST_F(ControllerReading, AsksForTheMarksAlone) {
    section = readIdentity("[IDENTITY]\nREGISTER_1=10\nVALUE_1=2\nFIRMWARE=18\n");
    const Identity_Result result = askWhoIsThere(question());
    EXPECT_THAT(reader.requests, ElementsAre("1: 10-18"));
    EXPECT_EQ(result.identity.verdict, Verdict::Is);
    EXPECT_EQ(result.identity.firmware, "40000");
    EXPECT_EQ(result.identity.model, "PUMP");
    EXPECT_EQ(result.identity.unit, 1);
}

TEST_F(ControllerReading, AsksForAllBlocksWhereTheMarksCantTell) {
    section = readIdentity("[IDENTITY]\nREGISTER_1=99\nVALUE_1=2\n");
    reader.registers[10] = 9;
    reader.registers[11] = 91;
    reader.registers[12] = 40000;
    const Identity_Result result = askWhoIsThere(question());
    EXPECT_THAT(reader.requests, ElementsAre("1: 99-99", "1: 10-20", "1: 30-30"));
    EXPECT_EQ(result.identity.verdict, Verdict::Isnt);
    EXPECT_EQ(askForMarks(question()).identity.verdict, Verdict::Cant_Tell);
}

TEST_F(ControllerReading, AsksForObjectsOnlyWhereTheTemplateAllowsIt) {
    section = readIdentity("[IDENTITY]\nREGISTER_1=10\nVALUE_1=2\nOBJECT_1=PUMP\n");
    EXPECT_EQ(askWhoIsThere(question()).identity.verdict, Verdict::Is);
    EXPECT_THAT(reader.requests, ElementsAre("1: 10-10"));
    section = readIdentity("[IDENTITY]\nOBJECTS=YES\n");
    (void)askForMarks(question());
    EXPECT_THAT(reader.requests, ElementsAre("1: 10-10")) << "none is named";
}

TEST_F(ControllerReading, ObjectsSpeakBesideTheMarks) {
    section =
        readIdentity("[IDENTITY]\nREGISTER_1=10\nVALUE_1=2\nOBJECTS=YES\nOBJECT_0=ACME\nOBJECT_1=PUMP\n");
    reader.objectsEnd = Unit_End::Answered;
    reader.objects = {{0, "Acme"}, {1, "PUMP"}, {2, "1"}};
    EXPECT_EQ(askWhoIsThere(question()).identity.verdict, Verdict::Is);
    EXPECT_THAT(reader.requests, ElementsAre("1: 10-10", "1: objects to 1"));
    reader.objects[1] = "FAN";
    const Identity other = askForMarks(question()).identity;
    EXPECT_EQ(other.verdict, Verdict::Isnt);
    EXPECT_EQ(other.evidence.back().found, "FAN");
    EXPECT_EQ(placeText(other.evidence.back()), "object 1");
}

TEST_F(ControllerReading, ObjectsThatAreRefusedOrNotAnsweredAreNotRead) {
    section = readIdentity("[IDENTITY]\nREGISTER_1=10\nVALUE_1=2\nOBJECTS=YES\nOBJECT_1=PUMP\n");
    Identity_Result result = askForMarks(question());
    EXPECT_EQ(result.end, Reading_End::Done);
    EXPECT_EQ(result.identity.verdict, Verdict::Cant_Tell);
    EXPECT_EQ(result.identity.evidence.back().result, Fit::Not_Read);
    EXPECT_EQ(result.identity.evidence.back().unread, Unread{1});
    reader.objectsEnd = Unit_End::Silent;
    EXPECT_EQ(askForMarks(question()).identity.evidence.back().unread, Unread{});
    reader.objectsEnd = Unit_End::PortLost;
    EXPECT_EQ(askForMarks(question()).end, Reading_End::Port_Lost);
    reader.objectsEnd = Unit_End::Cancelled;
    EXPECT_EQ(askWhoIsThere(question()).end, Reading_End::Cancelled);
}

TEST_F(ControllerReading, ALookCountsTheRequestForObjects) {
    section = readIdentity("[IDENTITY]\nOBJECTS=YES\nOBJECT_1=PUMP\n");
    reader.objectsEnd = Unit_End::Answered;
    reader.objects = {{1, "PUMP"}};
    std::vector<std::string> told;
    const Looked_At seen = lookAt(question(), [&](std::size_t done, std::size_t all) {
        told.push_back(std::to_string(done) + "/" + std::to_string(all));
    });
    EXPECT_EQ(seen.identity.verdict, Verdict::Is);
    EXPECT_EQ(told.front(), "0/5");
    EXPECT_EQ(told.back(), "5/5");
}

TEST_F(ControllerReading, ALostPortIsNoAnswer) {
    section = readIdentity("[IDENTITY]\nREGISTER_1=10\nVALUE_1=2\n");
    reader.ends[10] = Unit_End::PortLost;
    const Identity_Result result = askWhoIsThere(question());
    EXPECT_EQ(result.end, Reading_End::Port_Lost);
    EXPECT_EQ(result.identity.verdict, Verdict::Cant_Tell);
}

TEST_F(ControllerReading, APortLostAtTheObjectsSaysWhy) {
    section = readIdentity("[IDENTITY]\nOBJECTS=YES\nOBJECT_1=PUMP\n");
    reader.objectsEnd = Unit_End::PortLost;
    const Identity_Result result = askWhoIsThere(question());
    EXPECT_EQ(result.end, Reading_End::Port_Lost);
    EXPECT_EQ(result.fault, "told so");
}

} // namespace
} // namespace zorvane::compare
