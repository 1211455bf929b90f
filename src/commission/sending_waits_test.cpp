// SPDX-License-Identifier: MIT
// How long a send waits for a controller, what it reads meanwhile, and what it writes down.
#include "commission/testing/session_bench.h"

#include <gmock/gmock.h>

#include <optional>

namespace zorvane::commission {
namespace {

using doubles::Session_Bench;
using Strike = doubles::Toy_Controller::Strike;
using ::testing::AllOf;
using ::testing::Ge;
using ::testing::HasSubstr;
using ::testing::Lt;
using ::testing::Not;

constexpr Micros second = microsPerSecond;

/// A session with its plan made, and a wish to stop.
struct Send_Bench : Session_Bench {
    Session_End sendPlanned() {
        const Micros began = toy.now();
        Session_End end = sending->send(planned, seen);
        lasted = toy.now() - began;
        return end;
    }
    void plan() {
        sending.emplace(session());
        seen = sending->look();
        planned = sending->plan(seen, {});
        asked = toy.requests();
    }
    void goAwayAtTheFirstWrite() {
        toy.onRequest = [this] {
            if (toy.writes > 0) toy.units.clear();
        };
    }
    /// The journal of the newest run.
    [[nodiscard]] std::string journal() const { return *runs.read(newestRun(), journalFile); }

    std::optional<Session> sending;
    Controller_Look seen;
    Plan planned;
    std::size_t asked = 0; ///< requests before the first of the send
    Micros lasted = 0;
};

std::size_t countIn(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

std::vector<std::string> rowStates(const Session_End& end) {
    std::vector<std::string> states;
    for (const Sent_Row& row : end.report.rows)
        states.push_back(row.address + " " + std::string(valueStateWord(row.state)));
    return states;
}

TEST(Sending_Waits, AControllerThatStaysAwayIsGivenUpAfterTenSeconds) {
    Send_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.plan();
    bench.goAwayAtTheFirstWrite();
    const Session_End end = bench.sendPlanned();
    EXPECT_EQ(end.step, Step::Incomplete);
    EXPECT_EQ(end.why, "The controller doesn't answer: no answer.");
    EXPECT_EQ(rowStates(end), (std::vector<std::string>{"11 unknown"}));
    EXPECT_EQ(bench.waited.size(), 1U);
    EXPECT_THAT(bench.lasted, AllOf(Ge(10 * second), Lt(12 * second)));
}

TEST(Sending_Waits, AWishToStopEndsTheWaitingAtOnce) {
    Send_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.plan();
    bench.goAwayAtTheFirstWrite();
    bench.toy.isCancelled = [&] { return !bench.waited.empty(); };
    const Session_End end = bench.sendPlanned();
    EXPECT_EQ(end.why, "The controller doesn't answer: no answer.");
    EXPECT_LT(bench.lasted, 2 * second);
}

TEST(Sending_Waits, AWriteWithoutAnAnswerThatWasTakenIsntSentAgain) {
    Send_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.plan();
    bench.toy.strikeAt(bench.asked + 1, Strike::Lose_Answer);
    EXPECT_EQ(bench.sendPlanned().step, Step::Good);
    EXPECT_EQ(bench.toy.writes, 1);
    EXPECT_THAT(bench.journal(), HasSubstr(R"("end":"no answer")"));
    EXPECT_THAT(bench.journal(), HasSubstr(R"("address":11)"));
    EXPECT_THAT(bench.journal(), HasSubstr(R"("values":[50])"));
    EXPECT_EQ(countIn(bench.journal(), R"("read")"), 1U) << bench.journal();
}

TEST(Sending_Waits, AWriteThatNeverArrivedIsSentAgainAfterAReading) {
    Send_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.plan();
    bench.toy.strikeAt(bench.asked + 1, Strike::Lose_Request);
    EXPECT_EQ(bench.sendPlanned().step, Step::Good);
    EXPECT_EQ(bench.toy.writes, 2);
    EXPECT_EQ(countIn(bench.journal(), R"("read")"), 1U) << bench.journal();
}

TEST(Sending_Waits, AWriteWhoseRegisterCantBeReadJustBeforeIsLeftOut) {
    Send_Bench bench;
    bench.set(1, 5, 2, "9");
    bench.set(1, 9, 2, "41000");
    bench.plan();
    bench.toy.unreadable = {16};
    const Session_End end = bench.sendPlanned();
    EXPECT_EQ(end.step, Step::Incomplete);
    EXPECT_EQ(rowStates(end), (std::vector<std::string>{"16/HI not_sent", "18 verified"}));
    EXPECT_EQ(end.report.rows.at(0).answer, "its registers couldn't be read just before: exception 2");
    EXPECT_EQ(countIn(bench.journal(), R"("left out")"), 1U) << bench.journal();
    EXPECT_THAT(bench.journal(), HasSubstr("couldn't be read just before: exception 2"));
    EXPECT_EQ(bench.waited.size(), 0U) << "it answers";
}

TEST(Sending_Waits, AControllerSilentAtThatReadingIsAskedWhoItIsBeforeTheNextWrite) {
    Send_Bench bench;
    bench.set(1, 5, 2, "9");
    bench.set(1, 9, 2, "41000");
    bench.plan();
    bench.toy.strikeAt(bench.asked + 1, Strike::Lose_Request);
    const Session_End end = bench.sendPlanned();
    EXPECT_EQ(rowStates(end), (std::vector<std::string>{"16/HI not_sent", "18 verified"}));
    EXPECT_EQ(end.report.rows.at(0).answer, "its registers couldn't be read just before: no answer");
    EXPECT_EQ(countIn(bench.journal(), R"("identity")"), 3U) << "at first, after the silence, at the end";
}

TEST(Sending_Waits, OneThatIsAwayAtThatReadingAndStaysAwayEndsTheSend) {
    Send_Bench bench;
    bench.set(1, 5, 2, "9");
    bench.set(1, 9, 2, "41000");
    bench.plan();
    bench.toy.onRequest = [&] {
        if (bench.toy.requests() > bench.asked) bench.toy.units.clear();
    };
    const Session_End end = bench.sendPlanned();
    EXPECT_EQ(end.step, Step::Failed);
    EXPECT_EQ(end.why, "The controller doesn't answer: no answer.");
    EXPECT_EQ(rowStates(end), (std::vector<std::string>{"16/HI not_sent", "18 not_sent"}));
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(Sending_Waits, AWishToStopAtThatReadingStopsBeforeTheWrite) {
    Send_Bench bench;
    bench.set(1, 5, 2, "9");
    bench.set(1, 9, 2, "41000");
    bench.plan();
    bench.toy.strikeAt(bench.asked + 1, Strike::Cancel);
    const Session_End end = bench.sendPlanned();
    EXPECT_EQ(end.step, Step::Failed);
    EXPECT_EQ(end.why, "Stopped.");
    EXPECT_EQ(bench.toy.writes, 0);
    EXPECT_EQ(countIn(bench.journal(), R"("left out")"), 0U);
}

TEST(Sending_Waits, ASendThatWasStoppedSaysSoThoughTheControllerIsGoneAtTheEnd) {
    Send_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.set(1, 9, 2, "41000");
    bench.plan();
    bench.toy.strikeAt(bench.asked + 2, Strike::Cancel); // the second write
    bench.toy.onRequest = [&] {
        if (bench.toy.requests() > bench.asked + 2) bench.toy.units.clear();
    };
    const Session_End end = bench.sendPlanned();
    EXPECT_EQ(end.step, Step::Incomplete);
    EXPECT_EQ(end.why, "Stopped.");
    EXPECT_EQ(rowStates(end), (std::vector<std::string>{"11 unknown", "18 not_sent"}));
}

/// A controller that stores a value so long after it acknowledged it.
Session_End storedAfter(Send_Bench& bench, Micros span) {
    bench.set(1, 2, 2, "50");
    bench.plan();
    std::optional<Micros> taken;
    bench.toy.onStore = [&](std::int32_t, std::uint16_t) {
        taken = bench.toy.now();
        return bench.toy.registers.at(11);
    };
    bench.toy.onRequest = [&bench, &taken, span] {
        if (taken && bench.toy.now() >= *taken + span) bench.toy.registers[11] = 50;
    };
    return bench.sendPlanned();
}

TEST(Sending_Waits, AControllerMayStoreAValueUpToTwoSecondsLater) {
    Send_Bench bench;
    const Session_End end = storedAfter(bench, 19 * second / 10);
    EXPECT_EQ(rowStates(end), (std::vector<std::string>{"11 verified"}));
    EXPECT_EQ(end.requests.writes, 1U);
    EXPECT_LT(bench.lasted, 5 * second / 2);
}

TEST(Sending_Waits, OneThatNeedsLongerStoredItOtherwise) {
    Send_Bench bench;
    const Session_End end = storedAfter(bench, 5 * second / 2);
    EXPECT_EQ(rowStates(end), (std::vector<std::string>{"11 stored_otherwise"}));
    EXPECT_THAT(bench.lasted, AllOf(Ge(2 * second), Lt(5 * second / 2)));
}

TEST(Sending_Waits, WhoIsThereIsAskedAgainOnceFiveSecondsHavePassed) {
    Send_Bench bench;
    bench.set(1, 1, 2, "1");
    bench.set(1, 2, 2, "50");
    bench.set(1, 3, 2, "0:45");
    bench.set(1, 9, 2, "41000");
    bench.plan();
    bench.toy.requestTime = 2 * second;
    EXPECT_EQ(bench.sendPlanned().step, Step::Good);
    EXPECT_EQ(bench.toy.writes, 4);
    EXPECT_EQ(countIn(bench.journal(), R"("identity")"), 3U) << "before the fourth too";
}

TEST(Sending_Waits, WithinFiveSecondsNobodyIsAskedAgain) {
    Send_Bench bench;
    bench.changeMuch();
    bench.plan();
    EXPECT_EQ(bench.sendPlanned().step, Step::Good);
    EXPECT_EQ(countIn(bench.journal(), R"("identity")"), 2U);
    EXPECT_THAT(bench.journal(), Not(HasSubstr("left out")));
}

} // namespace
} // namespace zorvane::commission
