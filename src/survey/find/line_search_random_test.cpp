// SPDX-License-Identifier: MIT
// 200 random lines with and 200 without a known template: what is found, by what requests, and how soon.
#include "survey/find/testing/search_run.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace zorvane::survey {
namespace {

using namespace survey::testing;
using zorvane::testing::Hand_Clock;

struct Random_Line {
    Line_Settings line;
    std::vector<Line_Controller> controllers;
    bool twins = false; ///< two controllers of one number
    bool echoes = false;
    double noise = 0;
};

/// As lines are met: half of them have one of the four settings that makers ship most, and the template's is
/// right in seven of ten.
Line_Settings randomSettings(std::mt19937_64& dice, const Line_Settings& ofTemplate, bool templateKnown) {
    const auto chance = [&dice](int percent) {
        return std::uniform_int_distribution<int>(1, 100)(dice) <= percent;
    };
    const auto pick = [&dice](std::size_t from, std::size_t to) {
        return likelyLines({}, {})[std::uniform_int_distribution<std::size_t>(from, to)(dice)].line;
    };
    if (templateKnown && chance(70)) return ofTemplate;
    Line_Settings line = chance(50) ? pick(0, 3) : pick(4, 23);
    if (chance(15)) line.stopBits = 2;
    return line;
}

Random_Line randomLine(std::mt19937_64& dice, const Line_Settings& ofTemplate, bool templateKnown) {
    const auto chance = [&dice](int percent) {
        return std::uniform_int_distribution<int>(1, 100)(dice) <= percent;
    };
    const auto upTo = [&dice](int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(dice);
    };
    Random_Line random;
    random.line = randomSettings(dice, ofTemplate, templateKnown);
    random.echoes = chance(10);
    random.noise = chance(10) ? 0.5 : 0;
    std::set<int> units;
    for (int i = upTo(1, 3); i > 0; --i)
        units.insert(chance(80) ? upTo(1, 20) : upTo(21, 247));
    for (const int unit : units) {
        Line_Controller controller{.unit = static_cast<std::uint8_t>(unit)};
        controller.shortestDelay = upTo(1, 44) * ms;
        controller.longestDelay = controller.shortestDelay + 5 * ms;
        if (chance(30)) controller.registers.clear();
        controller.registers[100] = static_cast<std::uint16_t>(upTo(0, 65535));
        if (chance(20)) controller.damaged = 0.1;
        random.controllers.push_back(controller);
    }
    if (!chance(10)) return random;
    random.twins = true;
    Line_Controller twin = random.controllers.front();
    twin.registers[100] = static_cast<std::uint16_t>(upTo(0, 65535));
    twin.shortestDelay = upTo(1, 44) * ms;
    twin.longestDelay = twin.shortestDelay + 5 * ms;
    random.controllers.push_back(twin);
    return random;
}

std::vector<std::string> expectedTexts(const Random_Line& random) {
    std::set<std::string> texts;
    for (const Line_Controller& controller : random.controllers)
        texts.insert(std::to_string(controller.unit) + " at " + formatLineSettings(random.line));
    return {texts.begin(), texts.end()};
}

/// Two controllers of one number may spoil each other's answers every time. Such a number can't be found, and
/// is named all the same.
bool allNamed(const Random_Line& random, const Search_Report& report) {
    std::set<std::uint8_t> named;
    for (const Found_Unit& unit : report.found)
        named.insert(unit.unit);
    for (const Doubtful_Unit& unit : report.doubtful)
        named.insert(unit.unit);
    std::set<std::uint8_t> there;
    for (const Line_Controller& controller : random.controllers)
        there.insert(controller.unit);
    return named == there;
}

/// Searches 200 random lines; the times to the first find, in order.
std::vector<Micros> searchRandomLines(bool templateKnown) {
    std::mt19937_64 dice(templateKnown ? 11 : 12);
    const Line_Settings ofTemplate{9600, 'N', 8, 1};
    std::vector<Micros> times;
    for (std::uint64_t number = 0; number < 200; ++number) {
        const Random_Line random = randomLine(dice, ofTemplate, templateKnown);
        Hand_Clock clock;
        Simulated_Line line(clock, random.line, number);
        line.controllers = random.controllers;
        line.echoes = random.echoes;
        line.noise = random.noise;
        const std::vector<Line_Settings> known(templateKnown ? 1 : 0, ofTemplate);
        Search_Plan plan = planFor(likelyLines({}, known));
        plan.addresses = {100};
        const Search_Run run(clock, line, plan);
        EXPECT_EQ(run.report.end, Search_End::Searched) << number << ": " << run.report.foreignMaster;
        EXPECT_TRUE(allNamed(random, run.report)) << number;
        if (!random.twins) {
            EXPECT_EQ(foundTexts(run.report), expectedTexts(random)) << number;
        }
        EXPECT_TRUE(onlyReads(line.written)) << number;
        EXPECT_EQ(run.report.requests, line.written.size()) << number;
        times.push_back(run.firstFoundAfter == 0 ? run.report.duration : run.firstFoundAfter);
    }
    std::sort(times.begin(), times.end());
    return times;
}

TEST(LineSearch, FindsAllControllersOf200LinesWithTheirTemplateIn5Seconds) {
    EXPECT_LE(searchRandomLines(true)[100], 5 * microsPerSecond);
}

TEST(LineSearch, FindsAllControllersOf200LinesWithoutATemplateIn30Seconds) {
    EXPECT_LE(searchRandomLines(false)[100], 30 * microsPerSecond);
}

/// A master that asks at least once while the search listens is heard whatever its settings, and not
/// disturbed.
TEST(LineSearch, HearsTheOtherMasterOf200LinesAndSendsNothing) {
    std::mt19937_64 dice(13);
    for (std::uint64_t number = 0; number < 200; ++number) {
        const Random_Line random = randomLine(dice, {9600, 'N', 8, 1}, number % 2 == 0);
        Hand_Clock clock;
        Simulated_Line line(clock, random.line, number);
        line.controllers = random.controllers;
        const auto period = std::uniform_int_distribution<Micros>(200, 1300)(dice) * ms;
        line.masters = {
            {.firstAt = period / 2,
             .period = period,
             .request = zorvane::testing::withCrc({random.controllers[0].unit, 3, 0, 9, 0, 2}),
             .answer = zorvane::testing::withCrc({random.controllers[0].unit, 3, 4, 1, 2, 3, 4})}};
        const Search_Run run(clock, line, planFor(likelyLines({}, {})));
        EXPECT_EQ(run.report.end, Search_End::ForeignMaster)
            << number << ' ' << formatLineSettings(random.line);
        EXPECT_TRUE(line.written.empty()) << number << ' ' << formatLineSettings(random.line);
    }
}

} // namespace
} // namespace zorvane::survey
