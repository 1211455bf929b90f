// SPDX-License-Identifier: MIT
#include "compare/report/comparison_report.h"
#include "compare/testing/pump.h"
#include "reports/export/export_format.h"
#include "reports/testing/even_metrics.h"
#include "reports/testing/page_text.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace zorvane::compare {
namespace {

using doubles::pumpRegisters;
using doubles::pumpTemplate;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::HasSubstr;
using zorvane::doubles::Reading_Bench;
using zorvane::doubles::textsOf;

class Comparison_On_Paper : public ::testing::Test {
  protected:
    Comparison_On_Paper() {
        bench.readTemplate(pumpTemplate);
        auto values = pumpRegisters();
        values[11] = 7;
        values[30] = 22;
        registers = Controller_Registers(values);
        const Document_Side left(bench.document);
        const Controller_Side right(bench.document, identity, registers);
        rows = Row_List(comparisonOf({bench.document, identity, left, right}));
        rows.list(Filter(), false);
    }

    Reading_Bench bench;
    Identity_Section identity;
    Controller_Registers registers;
    Row_List rows;
    zorvane::doubles::Even_Metrics metrics;
    Comparison_Head head{"site.pump", "site.pump", "controller on ttyS9, unit 1", "", "", "2026-11-22 10:00"};
};

TEST_F(Comparison_On_Paper, HasItsSidesTheCountsOfAllRowsAndTheListedRows) {
    const std::vector<Table_Section> sections = sectionsOf(rows, head);
    ASSERT_EQ(sections.size(), 3U);
    EXPECT_EQ(sections[0].rows,
              (std::vector<std::vector<std::string>>{{"Document", "site.pump"},
                                                     {"Left", "site.pump"},
                                                     {"Right", "controller on ttyS9, unit 1"},
                                                     {"Time", "2026-11-22 10:00"}}));
    EXPECT_EQ(sections[1].rows,
              (std::vector<std::vector<std::string>>{{"10", "1", "0", "1", "0", "0", "0", "12"}}));
    EXPECT_EQ(sections[2].rows, (std::vector<std::vector<std::string>>{
                                    {"Settings", "Level, Value", "11", "-5", "7", "<> differs"},
                                    {"Readings", "Bearing, Now", "30", "21", "22", "R read only"}}));
}

TEST_F(Comparison_On_Paper, SaysWhatWasFilteredAndWhoWasFound) {
    head.filter = "page:readings";
    head.identity = "The controller at unit 1 is a PUMP.";
    rows.list(Filter(head.filter), false);
    const std::vector<Table_Section> sections = sectionsOf(rows, head);
    EXPECT_THAT(sections[0].rows, AllOf(Contains(std::vector<std::string>{"Listed", "page:readings"}),
                                        Contains(std::vector<std::string>{"Controller", head.identity})));
    EXPECT_EQ(sections[2].rows.size(), 1U);
    rows.list(Filter("nowhere"), false);
    EXPECT_EQ(sectionsOf(rows, head).size(), 2U) << "no table without rows";
}

TEST_F(Comparison_On_Paper, EachTableTakesTheWholeWidth) {
    Row_List three(rows.comparison(), rows.comparison());
    three.list(Filter(), false);
    for (const Row_List* list : {&rows, &three})
        for (const Table_Section& section : sectionsOf(*list, head)) {
            double width = 0;
            for (const Table_Column& column : section.columns)
                width += column.percent;
            EXPECT_EQ(width, 100) << section.title;
        }
}

TEST_F(Comparison_On_Paper, EachPageSaysWhatItIsOf) {
    Comparison_Report report(metrics, rows, head);
    report.Run();
    EXPECT_THAT(textsOf(report.Pages.document, 0),
                AllOf(Contains("Comparison: site.pump"), Contains("controller on ttyS9, unit 1"),
                      Contains("<> differs"), Contains("Page 1 of ")));
}

/// No painter: the formats that know no pages.
class No_Painter : public Page_Exporters {
  public:
    [[nodiscard]] std::string pdf(const Page_Document&, const std::string&) const override { return {}; }
    [[nodiscard]] std::string tiff(const Page_Document&) const override { return {}; }
};

TEST_F(Comparison_On_Paper, GoesThroughTheExports) {
    Comparison_Report report(metrics, rows, head);
    EXPECT_THAT(exportReport(report, Export_Format::Text, No_Painter()),
                AllOf(HasSubstr("Level, Value"), HasSubstr("differs"), HasSubstr("Bearing, Now")));
}

TEST_F(Comparison_On_Paper, OfThreeSidesTheDocumentStandsInTheMiddle) {
    Reading_Bench other;
    other.readTemplate(pumpTemplate);
    other.cell(1, 5, 2).Value = "9";
    const Document_Side document(bench.document);
    const Document_Side file(other.document);
    const Controller_Side controller(bench.document, identity, registers);
    Row_List three(comparisonOf({bench.document, identity, file, document}),
                   comparisonOf({bench.document, identity, document, controller}));
    three.list(Filter(), false);
    const std::vector<Table_Section> sections = sectionsOf(three, head);
    ASSERT_EQ(sections.size(), 4U);
    EXPECT_EQ(sections[1].title, "Counts, left and document");
    EXPECT_EQ(sections[1].rows[0].back(), "24");
    EXPECT_EQ(sections[2].title, "Counts, document and right");
    EXPECT_EQ(sections[2].rows[0].back(), "12");
    EXPECT_EQ(sections[3].rows,
              (std::vector<std::vector<std::string>>{
                  {"Settings", "Level, Value", "11", "-5", "= equal", "-5", "<> differs", "7"},
                  {"Settings", "Upper, Value", "16/HI", "9", "<> differs", "7", "= equal", "7"},
                  {"Readings", "Bearing, Now", "30", "21", "= equal", "21", "R read only", "22"}}));
}

} // namespace
} // namespace zorvane::compare
