// SPDX-License-Identifier: MIT
// When a search goes on, and what it remembers meanwhile.
#include "survey/find/testing/search_run.h"

#include <gtest/gtest.h>

namespace zorvane::survey {
namespace {

using namespace survey::testing;
using zorvane::testing::bytesOf;
using zorvane::testing::Hand_Clock;
using zorvane::testing::withCrc;

/// The gateway says of the second unit after 3506 ms that it isn't there: 3 ms for the connection, 1500 ms of
/// listening, twice a second on its own line, and 3 ms back. What comes outside a read is handed on 20 ms
/// later, and nothing is owed any more then.
TEST(LineSearchWaits, NoLongerThanForAGatewaysLastWord) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.network = 3 * ms;
    line.gateway = 11;
    line.gatewayDelay = 1000 * ms;
    Search_Plan plan = oneLine(2);
    plan.port.port = "tcp:gate:502";
    const Search_Run run(clock, line, plan);
    EXPECT_EQ(run.report.end, Search_End::Searched);
    EXPECT_EQ(run.report.requests, 2U);
    EXPECT_EQ(run.report.duration, 3526 * ms);
}

/// The answer comes 316 ms after its request, and ten more reads take as long: all that ends after 5.0 s. Who
/// waited for the end of the second first would need 5.7 s.
TEST(LineSearchWaits, NotWhenTheLastUnitAnsweredLate) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.controllers = {{.unit = 1, .shortestDelay = 300 * ms, .longestDelay = 300 * ms}};
    const Search_Run run(clock, line, oneLine(1));
    EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"1 at 9600,n,8,1"}));
    EXPECT_EQ(run.report.requests, 11U);
    EXPECT_LT(run.report.duration, 5100 * ms);
}

/// At 1200 baud an answer takes 58 ms, so that some begin in time and end too late.
TEST(LineSearchWaits, ForAnAnswerThatBeginsInTimeAndEndsLate) {
    for (Micros delay = 20 * ms; delay <= 200 * ms; delay += 5 * ms) {
        Hand_Clock clock;
        Simulated_Line line(clock, {1200, 'N', 8, 1});
        line.controllers = {{.unit = 1, .shortestDelay = delay, .longestDelay = delay}};
        Search_Plan plan = oneLine(2);
        plan.lines = namedLines(std::vector<Line_Settings>{{1200, 'N', 8, 1}});
        const Search_Run run(clock, line, plan);
        EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"1 at 1200,n,8,1"})) << delay / ms;
    }
}

/// Bytes that were heard with the first settings tell nothing of the second.
TEST(LineSearchWaits, AndListensOnlyAsLongAsSomethingIsHeard) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.masters = {{.firstAt = 100 * ms, .period = hour, .request = {0x55}}};
    const Search_Run run(clock, line, planFor(likelyLines({}, {}), 1));
    EXPECT_TRUE(run.report.noisy);
    const std::vector<std::string> first(run.seen.begin(), run.seen.begin() + 3);
    EXPECT_EQ(first, (std::vector<std::string>{"19200,e,8,2: 0", "9600,n,8,2: 0", "19200,e,8,2: 1"}));
}

/// A request of another master whose last bytes come so long after its first two. With a time-out of 20 ms
/// each read takes 28 ms, so that one hears nothing in between.
Search_End endWithARequestInTwoParcels(Micros later) {
    Hand_Clock clock;
    Simulated_Line line(clock, {9600, 'N', 8, 1});
    const Byte_Array whole = withCrc(bytesOf("07 03 00 00 00 0A"));
    const Byte_Array first(whole.begin(), whole.begin() + 2);
    const Byte_Array rest(whole.begin() + 2, whole.end());
    line.masters = {{.firstAt = 1515 * ms, .period = hour, .request = first},
                    {.firstAt = 1515 * ms + later, .period = hour, .request = rest}};
    Search_Plan plan = oneLine(5);
    plan.timeOut = 20 * ms;
    return Search_Run(clock, line, plan).report.end;
}

TEST(LineSearchWaits, FiftyMsForTheRestOfAFrame) {
    EXPECT_EQ(endWithARequestInTwoParcels(45 * ms), Search_End::ForeignMaster);
    EXPECT_EQ(endWithARequestInTwoParcels(85 * ms), Search_End::Searched);
}

} // namespace
} // namespace zorvane::survey
