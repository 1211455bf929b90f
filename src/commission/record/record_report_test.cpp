// SPDX-License-Identifier: MIT
#include "commission/record/record_report.h"
#include "commission/record/testing/sample_record.h"
#include "reports/bands/report_content.h"
#include "reports/testing/even_metrics.h"
#include "reports/testing/page_text.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace zorvane::commission {
namespace {

using doubles::sampleRecord;
using ::testing::AllOf;
using ::testing::Contains;
using zorvane::doubles::textsOf;

struct Record_Pages : ::testing::Test {
    void print(const Record& record) {
        report = std::make_unique<Record_Report>(metrics, record, "3f2a9c1b7d40");
        report->Run();
    }
    [[nodiscard]] std::vector<std::string> page(std::size_t number) const {
        return textsOf(report->Pages.document, number - 1);
    }

    zorvane::doubles::Even_Metrics metrics;
    std::unique_ptr<Record_Report> report;
};

TEST_F(Record_Pages, EachHasItsNumberAndTheShortHash) {
    Record record = sampleRecord();
    record.rows.resize(200, record.rows[0]);
    print(record);
    const std::int32_t count = report->Pages.Count();
    ASSERT_GT(count, 2);
    for (std::int32_t number = 1; number <= count; ++number)
        EXPECT_THAT(page(static_cast<std::size_t>(number)),
                    AllOf(Contains("Page " + std::to_string(number) + " of "),
                          Contains(std::to_string(count)), Contains("Record 3f2a9c1b7d40"),
                          Contains("20261122-084005-KVRT207D-1-1"),
                          Contains("Record of a change: KVRT207D, unit 1")));
}

TEST_F(Record_Pages, WhatIsNotVerifiedStandsOnTheFirstPage) {
    Record record = sampleRecord();
    record.rows.resize(500, record.rows[0]);
    print(record);
    EXPECT_THAT(page(1), AllOf(Contains("Not verified"), Contains("40002"), Contains("40003"),
                               Contains("stored otherwise"), Contains("Tested by"), Contains("Ann")));
}

TEST_F(Record_Pages, ALongTextGoesOnInTheNextLineOfItsColumn) {
    Record record = sampleRecord();
    record.rows[1].answer = "the controller refused it because of a limit that another register holds";
    print(record);
    std::string text;
    for (const std::string& part : page(1))
        text += part + "|";
    EXPECT_NE(text.find("refused: the "), std::string::npos) << text;
    EXPECT_EQ(text.find(record.rows[1].answer), std::string::npos);
}

TEST_F(Record_Pages, ATableThatGoesOnHasItsHeadingsAgain) {
    Record record = sampleRecord();
    record.rows.resize(200, record.rows[0]);
    print(record);
    EXPECT_THAT(page(3), AllOf(Contains("Before"), Contains("Read back"), Contains("40001")));
}

TEST_F(Record_Pages, TheExportsKnowWhatItIsOf) {
    Record_Report bare(metrics, sampleRecord(), "3f2a9c1b7d40");
    const Report_Content content = contentOf(bare);
    EXPECT_EQ(content.title, "Record of a change: KVRT207D, unit 1");
    EXPECT_EQ(content.date, "Record 3f2a9c1b7d40");
    EXPECT_EQ(content.route, "20261122-084005-KVRT207D-1-1");
    EXPECT_EQ(content.paper.PaperWidth, 11906);
}

} // namespace
} // namespace zorvane::commission
