// SPDX-License-Identifier: MIT
#include "survey/find/search_plan.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane::survey {
namespace {

using Units = std::vector<std::uint8_t>;

TEST(SearchPlan, TriesWhatWorkedLastThenTheTemplatesThenTheUsual) {
    const std::vector<Line_Settings> ofTemplates{{4800, 'E', 8, 1}, {9600, 'N', 8, 2}};
    const std::vector<Line_Candidate> lines = likelyLines(Line_Settings{38400, 'O', 8, 1}, ofTemplates);
    ASSERT_EQ(lines.size(), 24U);
    std::vector<std::string> first;
    for (std::size_t i = 0; i < 5; ++i)
        first.push_back(formatLineSettings(lines[i].line));
    EXPECT_EQ(first, (std::vector<std::string>{"38400,o,8,1", "4800,e,8,1", "9600,n,8,2", "19200,e,8,1",
                                               "9600,e,8,1"}));
}

TEST(SearchPlan, TriesTheStandardsOwnTwoAndThenWhatIsShippedMost) {
    std::string all;
    for (const Line_Candidate& each : likelyLines({}, {})) {
        EXPECT_TRUE(each.eitherStopBits);
        all += std::to_string(each.line.baud) + each.line.parity + " ";
    }
    EXPECT_EQ(all,
              "19200E 9600N 9600E 19200N 38400N 115200N 4800N 38400E 57600N 2400N 4800E 115200E 57600E 9600O "
              "19200O 2400E 1200N 1200E 38400O 4800O 57600O 115200O 2400O 1200O ");
}

TEST(SearchPlan, ProbesWithTwoStopBitsWhatWasntNamed) {
    EXPECT_EQ(formatLineSettings(likelyLines({}, {})[0].probed()), "19200,e,8,2");
    const std::vector<Line_Settings> named{{9600, 'N', 8, 1}, {9600, 'N', 8, 2}, {9600, 'N', 8, 1}};
    const std::vector<Line_Candidate> lines = namedLines(named);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(formatLineSettings(lines[0].probed()), "9600,n,8,1");
    EXPECT_EQ(formatLineSettings(lines[1].probed()), "9600,n,8,2");
}

TEST(SearchPlan, ReadsUnitNumbers) {
    EXPECT_EQ(parseUnits("5"), (Units{5}));
    EXPECT_EQ(parseUnits("1-4"), (Units{1, 2, 3, 4}));
    EXPECT_EQ(parseUnits("40,1-3,2"), (Units{40, 1, 2, 3}));
    EXPECT_EQ(parseUnits("1-247")->size(), 247U);
    for (const char* wrong : {"", "0", "248", "5-", "-5", "5-4", "1,,2", "1-2-3", "one", "1 - 2", "+5", "1,"})
        EXPECT_FALSE(parseUnits(wrong)) << wrong;
}

Search_Plan smallPlan() {
    Search_Plan plan;
    plan.lines = namedLines(std::vector<Line_Settings>{{9600, 'N', 8, 1}, {19200, 'E', 8, 1}});
    for (std::uint8_t unit = 1; unit <= 21; ++unit)
        plan.units.push_back(unit);
    plan.addresses = {100};
    return plan;
}

TEST(SearchOrder, TriesTheLikelyUnitsWithEverySettingFirst) {
    const Search_Plan plan = smallPlan();
    Search_Order order(plan);
    EXPECT_EQ(order.left(), 42U);
    std::vector<Probe_Point> points;
    while (const auto point = order.next())
        points.push_back(*point);
    ASSERT_EQ(points.size(), 42U);
    EXPECT_EQ(points[0], (Probe_Point{0, 1, 100}));
    EXPECT_EQ(points[19], (Probe_Point{0, 20, 100}));
    EXPECT_EQ(points[20], (Probe_Point{1, 1, 100}));
    EXPECT_EQ(points[40], (Probe_Point{0, 21, 100}));
    EXPECT_EQ(points[41], (Probe_Point{1, 21, 100}));
    EXPECT_EQ(order.given(), 42U);
}

TEST(SearchOrder, KeepsALineAndLeavesOutUnits) {
    const Search_Plan plan = smallPlan();
    Search_Order order(plan);
    EXPECT_EQ(order.next(), (Probe_Point{0, 1, 100}));
    order.keep(0);
    order.leaveOutUnit(2);
    EXPECT_EQ(order.next(), (Probe_Point{0, 3, 100}));
    EXPECT_EQ(order.left(), 18U);
    order.leaveOutLine(0);
    EXPECT_EQ(order.next(), std::nullopt);
}

} // namespace
} // namespace zorvane::survey
