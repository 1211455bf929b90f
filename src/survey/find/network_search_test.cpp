// SPDX-License-Identifier: MIT
// Searching over a network: what is tried there, and how it ends.
#include "survey/find/testing/search_run.h"

#include <gtest/gtest.h>

namespace zorvane::survey {
namespace {

using namespace survey::testing;
using zorvane::testing::Hand_Clock;
using zorvane::testing::withCrc;

/// A line that a server on a network hands out.
struct Network_Rig {
    explicit Network_Rig(const char* port, int lastUnit = 20) {
        line.network = 3 * ms;
        plan = planFor(likelyLines({}, {}), lastUnit);
        plan.port.port = port;
        if (!takesLineSettings(plan.port.port)) plan.lines = {{plan.lines.front().line, false}};
    }

    Hand_Clock clock;
    Simulated_Line line{clock, {9600, 'N', 8, 1}};
    Search_Plan plan;
};

std::vector<int> unitsOf(const Search_Report& report) {
    std::vector<int> units;
    for (const Found_Unit& found : report.found)
        units.push_back(found.unit);
    return units;
}

TEST(NetworkSearch, FindsTheUnitsOfAModbusTcpServer) {
    Network_Rig rig("tcp:gate:502");
    rig.line.controllers = {{.unit = 3}, {.unit = 17, .registers = {}}};
    const Search_Run run(rig.clock, rig.line, rig.plan);
    EXPECT_EQ(run.report.end, Search_End::Searched);
    EXPECT_EQ(unitsOf(run.report), (std::vector<int>{3, 17}));
    EXPECT_FALSE(run.report.linesCount);
    EXPECT_EQ(run.report.found[0].times.median(), 8 * ms); // there, and back over the network
    EXPECT_EQ(run.report.requests, 18 + 2 * 10U);
    EXPECT_FALSE(run.report.gateway);
    EXPECT_EQ(rig.line.opened, 1);
}

/// A gateway says of each unit that it isn't there.
TEST(NetworkSearch, TakesNoGatewaysExceptionForAUnit) {
    for (const std::uint8_t code : {std::uint8_t{10}, std::uint8_t{11}}) {
        Network_Rig rig("tcp:gate:502", 5);
        rig.line.controllers = {{.unit = 4}};
        rig.line.gateway = code;
        const Search_Run run(rig.clock, rig.line, rig.plan);
        EXPECT_EQ(unitsOf(run.report), (std::vector<int>{4}));
        EXPECT_EQ(run.report.requests, 4 + 10U);
        EXPECT_TRUE(run.report.gateway);
    }
}

/// It asks its own line for each first, and lets the requests wait meanwhile.
TEST(NetworkSearch, WaitsForAGatewayThatTakesItsTime) {
    Network_Rig rig("tcp:gate:502", 60);
    rig.line.controllers = {{.unit = 2}, {.unit = 9}, {.unit = 50}};
    rig.line.gateway = 11;
    rig.line.gatewayDelay = 1000 * ms;
    const Search_Run run(rig.clock, rig.line, rig.plan);
    std::vector<int> units = unitsOf(run.report);
    std::sort(units.begin(), units.end());
    EXPECT_EQ(units, (std::vector<int>{2, 9, 50}));
    EXPECT_LE(run.report.requests, 60 + 3 * 10U + 4);
    EXPECT_LE(run.report.duration, 65 * microsPerSecond);
}

TEST(NetworkSearch, FindsASlowUnitByItsLateAnswer) {
    Network_Rig rig("tcp:gate:502", 5);
    rig.line.controllers = {{.unit = 2, .shortestDelay = 800 * ms, .longestDelay = 810 * ms}};
    const Search_Run run(rig.clock, rig.line, rig.plan);
    EXPECT_EQ(unitsOf(run.report), (std::vector<int>{2}));
}

TEST(NetworkSearch, FindsUnitsByTheFramesOfASerialLine) {
    Network_Rig rig("rtu+tcp:gate:4001");
    rig.plan.lines = {{{9600, 'N', 8, 1}, false}};
    rig.line.controllers = {{.unit = 3}};
    const Search_Run run(rig.clock, rig.line, rig.plan);
    EXPECT_EQ(unitsOf(run.report), (std::vector<int>{3}));
    EXPECT_FALSE(run.report.linesCount);
    EXPECT_TRUE(onlyReads(rig.line.written));
}

TEST(NetworkSearch, HearsAnotherMasterBehindAServer) {
    Network_Rig rig("rtu+tcp:gate:4001");
    rig.plan.lines = {{{9600, 'N', 8, 1}, false}};
    rig.line.masters = {{.firstAt = 100 * ms, .request = withCrc({7, 3, 0, 0, 0, 10})}};
    const Search_Run run(rig.clock, rig.line, rig.plan);
    EXPECT_EQ(run.report.end, Search_End::ForeignMaster);
    EXPECT_TRUE(rig.line.written.empty());
}

/// One connection serves for all settings.
TEST(NetworkSearch, FindsTheSettingsByRfc2217) {
    Network_Rig rig("rfc2217:gate:2217");
    rig.line.controllers = {{.unit = 3}};
    const Search_Run run(rig.clock, rig.line, rig.plan);
    EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"3 at 9600,n,8,1"}));
    EXPECT_TRUE(run.report.linesCount);
    EXPECT_EQ(rig.line.opened, 1);
}

TEST(NetworkSearch, PassesOverSettingsThatTheServerDoesNotTake) {
    Network_Rig rig("rfc2217:gate:2217");
    rig.line.controllers = {{.unit = 3}};
    rig.line.refusedBaud = 19200;
    const Search_Run run(rig.clock, rig.line, rig.plan);
    EXPECT_EQ(foundTexts(run.report), (std::vector<std::string>{"3 at 9600,n,8,1"}));
}

TEST(NetworkSearch, EndsAtAServerThatCannotBeReached) {
    for (const char* port : {"tcp:gate:502", "rfc2217:gate:2217"}) {
        Network_Rig rig(port);
        rig.line.opens = false;
        const Search_Run run(rig.clock, rig.line, rig.plan);
        EXPECT_EQ(run.report.end, Search_End::PortFailed);
        EXPECT_EQ(run.report.reason, "Refused.");
        EXPECT_EQ(run.report.duration, 3 * ms); // asked once
    }
}

TEST(NetworkSearch, IsStoppedWhileItConnects) {
    Network_Rig rig("tcp:gate:502");
    Line_Search search(rig.line, rig.clock, rig.plan);
    std::vector<Search_Report> reports;
    search.start([&reports](const Search_Report& report) { reports.push_back(report); });
    rig.clock.runFor(1 * ms);
    search.stop();
    rig.clock.runFor(microsPerSecond);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].end, Search_End::Stopped);
    EXPECT_FALSE(rig.line.isOpen());
}

} // namespace
} // namespace zorvane::survey
