// SPDX-License-Identifier: MIT
#include "reports/bands/active_report.h"
#include "reports/testing/even_metrics.h"
#include "reports/testing/page_text.h"
#include "values/testing/failure_number.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using doubles::Even_Metrics;
using doubles::failureNumber;
using testing::ElementsAre;

/// A report of as many passes as it is told, which notes its events.
class Noting_Report : public ActiveReport {
  public:
    Noting_Report(const Text_Metrics& metrics, int passes) : ActiveReport(metrics), passes_(passes) {
        PageHeader.Height = 500;
        PageFooter.Height = 500;
        Detail.Height = 8000; // one has room on a page
        Detail.Controls.Add(labelClass).Caption = "x";
    }
    std::vector<std::string> events;

  protected:
    void ActiveReport_ReportStart() override { events.emplace_back("start"); }
    void ActiveReport_DataInitialize() override { events.emplace_back("data"); }
    void ActiveReport_FetchData(bool& EOF_) override {
        events.emplace_back("fetch");
        if (fetched_++ < passes_) EOF_ = false;
    }
    void Detail_Format() override { events.emplace_back("detail"); }
    void PageHeader_Format() override { events.push_back("header " + std::to_string(PageNumber())); }
    void PageFooter_Format() override { events.push_back("footer " + std::to_string(PageNumber())); }
    void ActiveReport_ReportEnd() override { events.emplace_back("end"); }

  private:
    int passes_;
    int fetched_ = 0;
};

TEST(ActiveReport, RaisesItsEventsInOrder) {
    const Even_Metrics metrics;
    Noting_Report report(metrics, 2);
    report.Run();
    EXPECT_THAT(report.events, ElementsAre("start", "data", "fetch", "detail", "fetch", "detail", "fetch",
                                           "header 1", "footer 1", "header 2", "footer 2", "end"));
    EXPECT_EQ(report.Pages.Count(), 2);
}

TEST(ActiveReport, WithoutDataItMakesOnePassOfItsOwn) {
    const Even_Metrics metrics;
    Noting_Report report(metrics, 0);
    report.Run();
    EXPECT_THAT(report.events,
                ElementsAre("start", "data", "fetch", "detail", "header 1", "footer 1", "end"));
}

TEST(ActiveReport, WithoutDataAndControlsItHasNoPages) {
    const Even_Metrics metrics;
    Noting_Report report(metrics, 0);
    report.Detail.Controls.Clear();
    report.Run();
    EXPECT_THAT(report.events, ElementsAre("start", "data", "fetch", "end"));
    EXPECT_EQ(report.Pages.Count(), 0);
}

TEST(ActiveReport, AFieldGrowsWithItsFontAndTheBandWithIt) {
    const Even_Metrics metrics;
    ActiveReport report(metrics);
    report.Detail.Height = 30;
    Report_Control& field = report.Detail.Controls.Add(fieldClass);
    field.Caption = "tall";
    field.Font.Size = 20; // a line of 480 twips
    Printed_Report printed = report.runWithoutPages();
    EXPECT_EQ(printed.bands.at(0).height, 480);
    field.CanGrow = false;
    printed = report.runWithoutPages();
    EXPECT_EQ(printed.bands.at(0).height, 288);
}

TEST(ActiveReport, ASubReportPrintsInPlaceOfItsControl) {
    const Even_Metrics metrics;
    auto inner = std::make_shared<ActiveReport>(metrics);
    inner->Detail.Controls.Add(labelClass).Caption = "inner";
    ActiveReport report(metrics);
    Report_Control& control = report.Detail.Controls.Add(subreportClass);
    control.Left = 100;
    control.object = inner;
    const Printed_Report printed = report.runWithoutPages();
    ASSERT_EQ(printed.bands.size(), 1U);
    EXPECT_EQ(printed.bands[0].texts.at(0).text, "inner");
    EXPECT_EQ(printed.bands[0].texts.at(0).left, 100);
    control.Visible = false;
    EXPECT_EQ(report.runWithoutPages().bands.at(0).texts.size(), 0U);
}

TEST(ActiveReport, ControlsAreFoundByPlaceAndName) {
    Report_Controls controls;
    controls.Add("DDActiveReports2.Subreport").Name = "first";
    EXPECT_EQ(controls("first").kind, Control_Kind::Subreport);
    EXPECT_EQ(controls.Add("DDActiveReports2.Field").kind, Control_Kind::Field);
    EXPECT_EQ(&controls(0), &controls("first"));
    EXPECT_EQ(failureNumber([&] { static_cast<void>(controls("second")); }), 9);
    EXPECT_EQ(failureNumber([&] { static_cast<void>(controls(2)); }), 9);
    EXPECT_EQ(failureNumber([&] { controls.Add("DDActiveReports2.Chart"); }), 5);
    controls.Clear();
    EXPECT_EQ(controls.Count(), 0);
}

TEST(ActiveReport, BoundFieldsAreFoundByName) {
    Report_Fields fields;
    fields.Add("Field1").Value = "text";
    EXPECT_EQ(fields.Item("Field1").Value, "text");
    EXPECT_EQ(failureNumber([&] { static_cast<void>(fields.Item("Field2")); }), 9);
    fields.Clear();
    EXPECT_TRUE(fields.empty());
}

TEST(ActiveReport, ToolsArePutWhereTheyAreWanted) {
    Report_Tools tools;
    tools.Insert(1, "b");
    tools.Insert(1, "a");
    EXPECT_EQ(tools.Item(1).Caption, "a");
    EXPECT_EQ(tools.Item(2).Caption, "b");
    EXPECT_EQ(failureNumber([&] { static_cast<void>(tools.Item(3)); }), 9);
    EXPECT_EQ(failureNumber([&] { tools.Insert(4, "d"); }), 9);
}

} // namespace
} // namespace zorvane
