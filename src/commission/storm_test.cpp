// SPDX-License-Identifier: MIT
// Thousands of sends that are struck at a random request: the program is killed, the adapter unplugged, the
// controller's power cut, a request or an answer lost. Whatever happens: nothing is called verified that the
// controller doesn't hold, at most one write is in doubt, going on reaches the image of an undisturbed send,
// and taking back the one before. The seeds are the numbers of the rounds.
//
// ZORVANE_STORM=10000 runs so many instead.
#include "commission/testing/session_bench.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace zorvane::commission {
namespace {

using doubles::Killed;
using doubles::Session_Bench;
using doubles::Toy_Controller;
using Strike = Toy_Controller::Strike;
using Image = std::map<std::int32_t, std::uint16_t>;

int rounds() {
    const char* wanted = std::getenv("ZORVANE_STORM");
    return wanted != nullptr ? std::atoi(wanted) : 500;
}

constexpr std::array strikes = {Strike::Kill_Before, Strike::Kill_After,    Strike::Lose_Request,
                                Strike::Lose_Answer, Strike::Unplug_Before, Strike::Unplug_After,
                                Strike::Power_Cut};

/// Values that the report calls verified and the controller doesn't hold.
int falselyVerified(const Session_End& end, const Image& held) {
    int count = 0;
    for (const Sent_Row& row : end.report.rows) {
        if (row.state != Value_State::Verified) continue;
        const auto number = static_cast<std::int32_t>(std::strtol(row.address.c_str(), nullptr, 10));
        for (std::size_t i = 0; i < row.sent.size(); ++i)
            if (held.at(number + static_cast<std::int32_t>(i)) != row.sent[i]) ++count;
    }
    return count;
}

/// Writes whose intent stands in the journal and whose answer doesn't.
int openIntents(const Session_Bench& bench) {
    std::map<std::size_t, int> open;
    const auto bytes = bench.runs.read(bench.newestRun(), journalFile).value_or("");
    for (const Json& record : readJournal(bytes).records) {
        if (record.at("event") == "write") open[record.at("write").get<std::size_t>()] = 1;
        if (record.at("event") == "answer") open[record.at("write").get<std::size_t>()] = 0;
    }
    int count = 0;
    for (const auto& [write, isOpen] : open)
        count += isOpen;
    return count;
}

TEST(Storm, NoFalseVerifiedAndResumeAndRestoreReachTheirImages) {
    Session_Bench calm;
    const Image before = calm.toy.registers;
    calm.changeMuch();
    ASSERT_EQ(calm.send().step, Step::Good);
    const Image after = calm.toy.registers;
    const std::size_t all = calm.toy.requests();
    int begun = 0;
    for (int round = 0; round < rounds(); ++round) {
        SCOPED_TRACE(round);
        std::mt19937 random(static_cast<unsigned>(round));
        Session_Bench bench;
        bench.changeMuch();
        bench.toy.takesAtPowerCut = random() % 2 == 0;
        bench.toy.strikeAt(random() % all, strikes.at(random() % strikes.size()));
        try {
            const Session_End end = bench.send();
            ASSERT_EQ(falselyVerified(end, bench.toy.registers), 0);
        } catch (const Killed&) {
        }
        bench.toy.restart();
        if (bench.runs.runs.empty()) { // struck before the run began
            ASSERT_EQ(bench.toy.registers, before);
            continue;
        }
        ++begun;
        ASSERT_LE(openIntents(bench), 1);
        if (random() % 2 == 0) {
            const Session_End resumed = bench.resume();
            ASSERT_EQ(resumed.step, Step::Good) << resumed.why;
            ASSERT_EQ(falselyVerified(resumed, bench.toy.registers), 0);
            ASSERT_EQ(bench.toy.registers, after);
        } else {
            const Session_End restored = bench.restore(bench.newestRun());
            ASSERT_EQ(restored.step, Step::Good) << restored.why;
            ASSERT_EQ(bench.toy.registers, before);
        }
    }
    EXPECT_GT(begun, rounds() / 4);
}

/// A thousand sends in which another controller takes the place of the right one at a random request: no
/// write goes out after the next question, and each earlier one is named.
TEST(Storm, AnExchangedControllerIsFoundAtTheNextQuestion) {
    Session_Bench calm;
    calm.changeMuch();
    ASSERT_EQ(calm.send().step, Step::Good);
    const std::size_t all = calm.toy.requests();
    int withWrites = 0;
    for (int round = 0; round < 1000; ++round) {
        SCOPED_TRACE(round);
        std::mt19937 random(static_cast<unsigned>(round));
        Session_Bench bench;
        bench.changeMuch();
        bench.toy.other = bench.toy.registers;
        bench.toy.other[30] = 99;
        bench.toy.strikeAt(random() % all, Strike::Exchange);
        const Session_End end = bench.send();
        ASSERT_EQ(end.step, Step::Wrong_Controller);
        ASSERT_EQ(end.report.counts.of(Value_State::Verified), 0U);
        int named = 0;
        for (const Sent_Row& row : end.report.rows)
            if (row.answer == "it may have gone to the other controller") ++named;
        ASSERT_GE(named, bench.toy.writesToOther);
        if (bench.toy.writesToOther > 0) ++withWrites;
    }
    EXPECT_GT(withWrites, 100);
}

TEST(Storm, AThousandRightControllersRaiseNoAlarm) {
    for (int round = 0; round < 1000; ++round) {
        std::mt19937 random(static_cast<unsigned>(round));
        Session_Bench bench;
        bench.set(1, 2, 2, std::to_string(random() % 90));
        bench.set(1, 9, 2, std::to_string(random() % 65536));
        bench.set(1, 5, 2, std::to_string(random() % 256));
        ASSERT_EQ(bench.send().step, Step::Good) << round;
    }
}

} // namespace
} // namespace zorvane::commission
