// SPDX-License-Identifier: MIT
// What somebody sees, ticks and presses in the window of a send, without the window.
#include "commission/desk/testing/desk_bench.h"

#include <gmock/gmock.h>

#include <utility>

namespace zorvane::commission {
namespace {

using doubles::Desk_Bench;
using doubles::Killed;
using doubles::Toy_Controller;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::size_t firstRow = 0;

TEST(SendDesk, ShowsWhatDiffersWithATickAndSendsNothingByItself) {
    Desk_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.set(1, 3, 2, "0:45");
    bench.desk().begin();
    EXPECT_EQ(bench.stage(), Desk_Stage::Ready);
    EXPECT_THAT(bench.rows(),
                ElementsAre("Settings/Level/Value: -5 -> 50 +", "Settings/Delay/Value: 1:30 -> 0:45 +"));
    EXPECT_EQ(sumLine(bench.desk().state()),
              "2 values: 2 with a tick, 0 without, 0 can't be sent. 2 writes.");
    EXPECT_EQ(identityText(*bench.desk().state().identity), "The controller at unit 1 is a PUMP.");
    EXPECT_THAT(evidenceTexts(*bench.desk().state().identity),
                ElementsAre("Register 30 (bearing) fits: \"21\"."));
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(SendDesk, SendsTheRowsWithATickAndReadsThemBack) {
    Desk_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.set(1, 3, 2, "0:45");
    bench.desk().begin();
    bench.desk().tick(firstRow, false);
    EXPECT_EQ(sumLine(bench.desk().state()), "2 values: 1 with a tick, 1 without, 0 can't be sent. 1 write.");
    bench.desk().act();
    EXPECT_EQ(bench.stage(), Desk_Stage::Ended);
    EXPECT_THAT(bench.states(), ElementsAre("Delay: verified"));
    EXPECT_EQ(bench.desk().state().rows.at(0).readBack, "0:45");
    EXPECT_EQ(headline(bench.desk().state()), "All of it was sent and read back.");
    EXPECT_EQ(sumLine(bench.desk().state()), "1 of 1 values verified.");
    EXPECT_THAT(bench.busy, ElementsAre(true, false, true, false)) << "looking, then sending";
    EXPECT_EQ(bench.toy.registers.at(11), 65531);
    EXPECT_EQ(bench.toy.registers.at(12), 45);
    EXPECT_FALSE(bench.line.isOpen);
    EXPECT_FALSE(bench.desk().canRetry());
}

TEST(SendDesk, WhatHasNoTickAtFirstGoesOutOnceItHasOne) {
    Desk_Bench bench(doubles::pumpIdentity + "LINK=unit:19\nLAST=12\n");
    bench.set(1, 2, 2, "95");
    bench.set(1, 3, 2, "0:45");
    bench.set(1, 9, 2, "");
    bench.set(1, 10, 2, "7");
    bench.stray = {{{1, 2, 2}, "its value 95 is outside its limits"}};
    bench.toy.units = {1};
    bench.desk().begin();
    EXPECT_THAT(bench.rows(),
                ElementsAre("Settings/Level/Value: -5 -> 95 -", "Settings/Delay/Value: 1:30 -> 0:45 +",
                            "Settings/Starts/Value: 40000 ->  -", "Settings/Unit/Value: 1 -> 7 -"));
    EXPECT_EQ(bench.desk().state().rows.at(0).note, "its value 95 is outside its limits");
    EXPECT_EQ(notice(bench.desk().state()),
              "This may stop a process: Settings/Delay. It goes out after all others.");
    bench.desk().tick(firstRow, true);
    bench.desk().act();
    EXPECT_THAT(bench.states(), ElementsAre("Level: verified", "Delay: verified"));
    EXPECT_EQ(bench.toy.registers.at(11), 95);
}

TEST(SendDesk, CellsChosenElsewhereAreTheOnesWithATick) {
    Desk_Bench bench(doubles::pumpIdentity, Chosen_Cells::these({{1, 3, 2}}));
    bench.set(1, 2, 2, "50");
    bench.set(1, 3, 2, "0:45");
    bench.desk().begin();
    EXPECT_THAT(bench.rows(),
                ElementsAre("Settings/Level/Value: -5 -> 50 -", "Settings/Delay/Value: 1:30 -> 0:45 +"));
    bench.desk().tickAll(true);
    EXPECT_EQ(bench.desk().state().writes, 2U);
    bench.desk().tickAll(false);
    EXPECT_FALSE(canAct(bench.desk().state()));
}

TEST(SendDesk, WithoutADifferenceThereIsNothingToSend) {
    Desk_Bench bench;
    bench.desk().begin();
    EXPECT_EQ(bench.stage(), Desk_Stage::Stopped);
    EXPECT_EQ(headline(bench.desk().state()),
              "The controller holds all values of the document: there is nothing to send.");
    EXPECT_FALSE(bench.line.isOpen);
}

TEST(SendDesk, APortThatSomebodyElseHasIsTold) {
    Desk_Bench bench;
    bench.line.taken = "The port line is in use by another run. Wait for its end, or stop it.";
    bench.desk().begin();
    EXPECT_EQ(headline(bench.desk().state()),
              "Nothing is sent. The port line is in use by another run. Wait for its end, or stop it.");
}

TEST(SendDesk, ASilentControllerIsTold) {
    Desk_Bench bench;
    bench.toy.units = {9};
    bench.desk().begin();
    EXPECT_EQ(headline(bench.desk().state()), "Nothing is sent. The controller doesn't answer: no answer.");
}

// Questions.

TEST(SendDesk, AnotherModelNeedsItsName) {
    Desk_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.toy.registers[30] = 99;
    bench.desk().begin();
    EXPECT_EQ(bench.stage(), Desk_Stage::Model_Asked);
    EXPECT_EQ(
        headline(bench.desk().state()),
        "The controller isn't a PUMP: register 30 holds \"99\" and not \"20 to 30\". To go on all the same, "
        "type the name of the model PUMP.");
    bench.desk().act();
    EXPECT_FALSE(bench.desk().agreeToModel("FAN"));
    EXPECT_FALSE(bench.desk().agreeToModel(""));
    EXPECT_EQ(bench.stage(), Desk_Stage::Model_Asked);
    EXPECT_TRUE(bench.desk().agreeToModel("pump "));
    EXPECT_EQ(bench.stage(), Desk_Stage::Ready);
    EXPECT_EQ(bench.toy.writes, 0);
    bench.desk().act();
    EXPECT_THAT(bench.states(), ElementsAre("Level: verified"));
    EXPECT_EQ(listRuns(bench.runs).front().head.although, "pump ");
}

TEST(SendDesk, IsAtWorkWhileTheLineIs) {
    Desk_Bench bench;
    bench.set(1, 2, 2, "50");
    bool throughout = true;
    bench.toy.onRequest = [&] { throughout = throughout && bench.desk().atWork(); };
    EXPECT_FALSE(bench.desk().atWork());
    bench.desk().begin();
    EXPECT_FALSE(bench.desk().atWork()) << "it waits for an answer";
    bench.desk().act();
    EXPECT_FALSE(bench.desk().atWork());
    EXPECT_TRUE(throughout);
}

TEST(SendDesk, AnotherSerialNumberAsks) {
    Desk_Bench bench(doubles::pumpIdentity + "SERIAL=13-15\n");
    bench.set(1, 2, 2, "50");
    bench.serials.kept["/d line 1"] = "OTHER";
    bench.desk().begin();
    EXPECT_EQ(bench.stage(), Desk_Stage::Serial_Asked);
    EXPECT_EQ(headline(bench.desk().state()), "Another controller answers: its serial number is \"PUMP\", "
                                              "and the last one's was \"OTHER\". Do you want "
                                              "to send to this one?");
    bench.desk().agreeToSerial();
    EXPECT_EQ(bench.stage(), Desk_Stage::Ready);
    EXPECT_EQ(bench.desk().state().why, "") << "the question is answered";
    bench.desk().act();
    EXPECT_EQ(bench.serials.kept["/d line 1"], "PUMP");
}

TEST(SendDesk, WhileAQuestionStandsOpenARegisterIsReadOnceASecond) {
    Desk_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.desk().watch(); // nothing is open yet
    EXPECT_EQ(bench.toy.requests(), 0U);
    bench.desk().begin();
    const std::size_t asked = bench.toy.requests();
    bench.desk().watch();
    bench.desk().watch();
    EXPECT_EQ(bench.toy.requests(), asked + 2);
    bench.desk().act();
    const std::size_t ended = bench.toy.requests();
    bench.desk().watch();
    EXPECT_EQ(bench.toy.requests(), ended);
    EXPECT_EQ(bench.toy.writes, 1);
}

TEST(SendDesk, WhatWasJustReadIsntReadAgainHoweverLongTheMachineHasRun) {
    std::vector<std::size_t> requests;
    for (const Micros uptime : {Micros{0}, 3600 * microsPerSecond}) {
        Desk_Bench bench;
        bench.set(1, 2, 2, "50");
        bench.toy.pause(uptime);
        bench.desk().begin();
        bench.desk().act();
        EXPECT_THAT(bench.states(), ElementsAre("Level: verified"));
        requests.push_back(bench.toy.requests());
    }
    EXPECT_EQ(requests.at(0), requests.at(1));
}

TEST(SendDesk, AnOpenQuestionSaysThatTheControllerFellSilent) {
    Desk_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.desk().begin();
    bench.desk().watch();
    EXPECT_EQ(notice(bench.desk().state()), "");
    int changes = 0;
    bench.onChange = [&] { ++changes; };
    bench.toy.units = {9};
    bench.desk().watch();
    bench.desk().watch();
    EXPECT_EQ(notice(bench.desk().state()), "The controller doesn't answer now.");
    EXPECT_EQ(changes, 1) << "told once";
    bench.toy.units = {1};
    bench.desk().watch();
    EXPECT_EQ(notice(bench.desk().state()), "");
    bench.toy.units = {9};
    bench.desk().watch();
    bench.desk().act();
    EXPECT_EQ(bench.stage(), Desk_Stage::Ended);
    EXPECT_EQ(notice(bench.desk().state()), "");
    EXPECT_EQ(bench.toy.writes, 0);
}

TEST(SendDesk, AControllerThatIsWaitedForIsToldAndGoneOnWith) {
    Desk_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.set(1, 3, 2, "0:45");
    bench.desk().begin();
    std::vector<std::string> told;
    bench.onChange = [&] {
        const std::string text = notice(bench.desk().state());
        if (told.empty() || told.back() != text) told.push_back(text);
    };
    bench.toy.onRequest = [&] {
        if (bench.toy.writes == 1)
            bench.toy.strikeAt(bench.toy.requests(), Toy_Controller::Strike::Power_Cut);
        if (bench.toy.writes == 1) bench.toy.onRequest = {};
    };
    bench.desk().act();
    EXPECT_THAT(told,
                ElementsAre("",
                            "The controller doesn't answer: no answer. It is waited for, for 10 seconds at "
                            "most.",
                            ""));
    EXPECT_THAT(bench.states(), ElementsAre("Level: verified", "Delay: verified"));
}

TEST(SendDesk, WhatIsPressedDuringARequestComesAfterIt) {
    Desk_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.desk().begin();
    bool pressed = false;
    bench.toy.onRequest = [&] {
        if (std::exchange(pressed, true)) return;
        bench.desk().act();
        EXPECT_EQ(bench.stage(), Desk_Stage::Ready);
    };
    bench.desk().watch();
    EXPECT_EQ(bench.stage(), Desk_Stage::Ended);
    EXPECT_THAT(bench.states(), ElementsAre("Level: verified"));
}

TEST(SendDesk, ValuesThatChangedWhileSomebodyThoughtAreShownAgain) {
    Desk_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.desk().begin();
    bench.toy.pause(6 * microsPerSecond);
    bench.toy.registers[11] = 33;
    bench.desk().act();
    EXPECT_EQ(bench.stage(), Desk_Stage::Ready);
    EXPECT_EQ(headline(bench.desk().state()),
              "Values of the controller have changed since they were read. Look at the rows again.");
    EXPECT_THAT(bench.rows(), ElementsAre("Settings/Level/Value: 33 -> 50 +"));
    EXPECT_EQ(bench.toy.writes, 0);
    bench.desk().act();
    EXPECT_THAT(bench.states(), ElementsAre("Level: verified"));
}

// Ends.

TEST(SendDesk, EachEndStateHasItsOwnWordAndSign) {
    Desk_Bench bench(doubles::pumpIdentity + "WRITEONLY=18\n");
    bench.changeMuch();
    bench.toy.unreadable = {18};
    bench.toy.refusing = {11};
    bench.toy.onStore = [](std::int32_t number, std::uint16_t value) {
        return number == 12 ? std::uint16_t{40} : value;
    };
    bench.desk().begin();
    bench.desk().tick(firstRow, true);
    bench.desk().act();
    EXPECT_EQ(bench.desk().state().step, Step::Incomplete);
    EXPECT_THAT(bench.states(),
                ElementsAre("Mode: verified", "Level: refused", "Delay: stored otherwise", "Name: verified",
                            "Upper: verified", "Minutes: verified", "Starts: unknown", "Bearing: verified"));
    EXPECT_EQ(bench.desk().state().rows.at(2).wanted, "0:45");
    EXPECT_EQ(bench.desk().state().rows.at(2).readBack, "0:40");
    EXPECT_EQ(sumLine(bench.desk().state()),
              "5 of 8 values verified, 1 refused, 1 stored otherwise, 1 unknown.");
    std::set<std::string_view> marks;
    for (const Value_State state : allValueStates)
        marks.insert(stateMark(state));
    EXPECT_EQ(marks.size(), allValueStates.size());
}

TEST(SendDesk, CancelEndsBetweenTwoValues) {
    Desk_Bench bench;
    bench.changeMuch();
    bench.desk().begin();
    bench.onChange = [&] {
        if (bench.desk().state().done == 2 && !bench.desk().state().stopping) bench.desk().stop();
    };
    bench.desk().act();
    bench.onChange = {};
    EXPECT_EQ(bench.toy.writes, 2);
    EXPECT_EQ(bench.desk().state().step, Step::Incomplete);
    EXPECT_EQ(bench.desk().state().counts.of(Value_State::Verified), 2U);
    EXPECT_EQ(bench.desk().state().counts.of(Value_State::Not_Sent), 6U);
    EXPECT_EQ(headline(bench.desk().state()), "Not all of it was sent and read back. Stopped.");
    EXPECT_EQ(bench.busy.back(), false);
}

TEST(SendDesk, AReadingIsCancelledAtOnce) {
    Desk_Bench bench;
    bench.changeMuch();
    bench.toy.onRequest = [&] { bench.desk().stop(); };
    bench.toy.units = {9};
    bench.desk().begin();
    EXPECT_EQ(bench.stage(), Desk_Stage::Stopped);
    EXPECT_EQ(bench.toy.requests(), 1U);
}

TEST(SendDesk, AnEndOfTheProgramEndsASendAfterThePresentRequest) {
    Desk_Bench bench;
    bench.changeMuch();
    bench.desk().begin();
    bench.onChange = [&] {
        if (bench.desk().state().done == 1) bench.desk().abandon();
    };
    bench.desk().act();
    EXPECT_EQ(bench.toy.writes, 1);
    EXPECT_EQ(listRuns(bench.runs).front().state, Run_State::Interrupted);
}

TEST(SendDesk, AnEndOfTheProgramForgetsWhatWasPressedMeanwhile) {
    Desk_Bench bench;
    bench.set(1, 2, 2, "50");
    bench.toy.onRequest = [&] {
        bench.desk().act();
        bench.desk().abandon();
    };
    bench.desk().begin();
    EXPECT_EQ(bench.toy.writes, 0);
    EXPECT_THAT(bench.busy, ElementsAre(true, false));
}

// Further tasks.

TEST(SendDesk, RetryShowsWhatFailedAgainAndSendsIt) {
    Desk_Bench bench;
    bench.changeMuch();
    bench.toy.refusing = {11, 18};
    bench.desk().begin();
    bench.desk().act();
    EXPECT_TRUE(bench.desk().canRetry());
    bench.toy.refusing.clear();
    bench.desk().retryFailed();
    EXPECT_EQ(bench.stage(), Desk_Stage::Ready);
    EXPECT_THAT(bench.rows(),
                ElementsAre("Settings/Level/Value: -5 -> 50 +", "Settings/Starts/Value: 40000 -> 41000 +"));
    bench.desk().act();
    EXPECT_THAT(bench.states(), ElementsAre("Level: verified", "Starts: verified"));
    EXPECT_EQ(listRuns(bench.runs).size(), 2U);
}

TEST(SendDesk, RestorePutsBackOneRunAfterTheOther) {
    Desk_Bench bench;
    const auto before = bench.toy.registers;
    bench.changeMuch();
    bench.toy.refusing = {11};
    bench.desk().begin();
    bench.desk().act();
    bench.toy.refusing.clear();
    bench.desk().retryFailed();
    bench.desk().act();
    EXPECT_EQ(bench.desk().state().restorable.size(), 2U);
    bench.desk().restoreLast();
    EXPECT_EQ(bench.stage(), Desk_Stage::Ready);
    EXPECT_THAT(bench.rows(), ElementsAre("Settings/Level/Value: 50 -> -5 +"));
    EXPECT_EQ(sumLine(bench.desk().state()), "1 value: 1 goes out, 0 can't be sent. 1 write.");
    EXPECT_EQ(headline(bench.desk().state()),
              "These values are put back as they were before the send, in reverse order.");
    bench.desk().act();
    EXPECT_EQ(headline(bench.desk().state()), "All of it was put back.");
    EXPECT_EQ(bench.desk().state().restorable.size(), 1U);
    bench.desk().restoreLast();
    bench.desk().act();
    EXPECT_EQ(bench.toy.registers, before);
    EXPECT_THAT(bench.desk().state().restorable, IsEmpty());
}

TEST(SendDesk, WhatIsThereAlreadyIsntPutBack) {
    Desk_Bench bench;
    bench.set(1, 2, 2, "50");
    const auto before = bench.toy.registers;
    bench.desk().begin();
    bench.desk().act();
    bench.toy.registers = before; // somebody did it by hand
    bench.desk().restoreLast();
    EXPECT_EQ(bench.stage(), Desk_Stage::Stopped);
    EXPECT_EQ(headline(bench.desk().state()),
              "The controller holds what was there before: there is nothing to put back.");
    EXPECT_EQ(bench.toy.writes, 1);
}

TEST(SendDesk, AnInterruptedRunIsOfferedAndGoneOnWith) {
    Desk_Bench killed;
    killed.changeMuch();
    killed.desk().begin();
    killed.toy.strikeAt(killed.toy.requests() + 4, Toy_Controller::Strike::Kill_After);
    EXPECT_THROW(killed.desk().act(), Killed);

    Desk_Bench bench;
    bench.changeMuch();
    bench.runs.runs = killed.runs.runs;
    bench.toy.registers = killed.toy.registers;
    bench.desk().begin();
    const std::string run = bench.newestRun();
    EXPECT_EQ(bench.desk().state().interrupted, run);
    EXPECT_EQ(notice(bench.desk().state()),
              "The send " + run + " was interrupted. Resume goes on with it, Restore takes it back.");
    bench.desk().resumeInterrupted();
    EXPECT_EQ(bench.stage(), Desk_Stage::Ready);
    EXPECT_EQ(headline(bench.desk().state()), "These values of the interrupted send are still to go out.");
    const std::string rest = std::to_string(bench.desk().state().rows.size());
    EXPECT_THAT(sumLine(bench.desk().state()),
                ::testing::StartsWith(rest + " values: " + rest + " go out, 0 can't be sent. "))
        << "there is no tick in that table";
    bench.desk().act();
    EXPECT_EQ(bench.desk().state().step, Step::Good);
    EXPECT_EQ(bench.desk().state().counts.of(Value_State::Verified), 8U);
    EXPECT_EQ(listRuns(bench.runs).size(), 1U);
    EXPECT_EQ(listRuns(bench.runs).front().state, Run_State::Finished);
    EXPECT_EQ(listRuns(bench.runs).front().kind, Run_Kind::Resumed);
    EXPECT_EQ(bench.desk().state().interrupted, "");
}

TEST(SendDesk, ARegisterThatSomebodyElseChangedStopsARestoration) {
    Desk_Bench bench;
    bench.changeMuch();
    bench.desk().begin();
    bench.desk().act();
    bench.toy.registers[11] = 77;
    const int writes = bench.toy.writes;
    bench.desk().restoreLast();
    EXPECT_EQ(bench.stage(), Desk_Stage::Stopped);
    EXPECT_EQ(bench.desk().state().step, Step::Stale);
    EXPECT_THAT(headline(bench.desk().state()), HasSubstr("11 (was 65531, left 50, now 77)"));
    EXPECT_EQ(bench.toy.writes, writes);
}

TEST(SendDesk, AfterANewUnitNumberTheControllerIsLookedForUnderIt) {
    Desk_Bench bench(doubles::pumpIdentity + "LINK=unit:19\n", Chosen_Cells::these({{1, 10, 2}}));
    bench.set(1, 10, 2, "7");
    bench.toy.units = {1};
    bench.toy.onStore = [&](std::int32_t number, std::uint16_t value) {
        if (number == 19) bench.toy.units = {static_cast<std::int32_t>(value)};
        return value;
    };
    bench.desk().begin();
    EXPECT_EQ(notice(bench.desk().state()),
              "This changes the line itself: Settings/Unit. It goes out last of all.");
    bench.desk().act();
    EXPECT_THAT(bench.states(), ElementsAre("Unit: verified"));
    bench.desk().restoreLast();
    EXPECT_EQ(bench.line.units, (std::vector<std::int32_t>{1, 7}));
    bench.desk().act();
    EXPECT_EQ(bench.toy.registers.at(19), 1);
    EXPECT_EQ(headline(bench.desk().state()), "All of it was put back.");
}

/// Whatever is ticked: the sums of the line are those of the rows, and the counts those of the end.
TEST(SendDesk, SumsAddUpWhateverIsTicked) {
    for (unsigned mask = 0; mask < 256; ++mask) {
        Desk_Bench bench;
        bench.changeMuch();
        bench.toy.refusing = {11};
        bench.desk().begin();
        for (std::size_t row = 0; row < 8; ++row)
            bench.desk().tick(row, (mask >> row & 1U) != 0);
        const Row_Counts counts = countsOf(bench.desk().state().rows);
        ASSERT_EQ(counts.rows(), 8U);
        ASSERT_EQ(counts.ticked + counts.unticked, 8U);
        if (counts.ticked == 0) continue;
        bench.desk().act();
        ASSERT_EQ(bench.desk().state().counts.rows(), counts.ticked);
        ASSERT_EQ(bench.desk().state().rows.size(), counts.ticked);
    }
}

} // namespace
} // namespace zorvane::commission
