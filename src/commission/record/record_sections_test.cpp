// SPDX-License-Identifier: MIT
#include "commission/record/record_sections.h"
#include "commission/record/testing/sample_record.h"

#include <gmock/gmock.h>

#include <numeric>

namespace zorvane::commission {
namespace {

using doubles::sampleRecord;
using ::testing::Contains;
using ::testing::ElementsAre;
using Row = std::vector<std::string>;

Record_Section sectionOf(const Record& record, const std::string& title) {
    for (const Record_Section& section : sectionsOf(record))
        if (section.title == title) return section;
    ADD_FAILURE() << "no section " << title;
    return {};
}

std::vector<std::string> titlesOf(const Record& record) {
    std::vector<std::string> titles;
    for (const Record_Section& section : sectionsOf(record))
        titles.push_back(section.title);
    return titles;
}

TEST(RecordSections, BeginWithWhatIsNotVerified) {
    EXPECT_THAT(titlesOf(sampleRecord()),
                ElementsAre("Record of a change", "Result", "Not verified", "Controller",
                            "Evidence of the identity", "Line", "Times", "Files", "Values",
                            "Deviations from the factory values", "Link", "Check list", "Signatures"));
}

TEST(RecordSections, CountEachState) {
    const Record_Section result = sectionOf(sampleRecord(), "Result");
    EXPECT_EQ(result.columns[2].heading, "stored otherwise");
    EXPECT_THAT(result.rows, ElementsAre(Row{"1", "1", "1", "0", "0", "3"}));
}

TEST(RecordSections, NameEachValueThatIsNotVerified) {
    EXPECT_THAT(
        sectionOf(sampleRecord(), "Not verified").rows,
        ElementsAre(Row{"Regulation, Band, Value", "40002", "5", "7", "5", "refused: illegal data value"},
                    Row{"Regulation, Delay", "40003", "30", "33", "30", "stored otherwise"}));
    EXPECT_EQ(sectionOf(sampleRecord(), "Values").rows.size(), 3U);
}

TEST(RecordSections, SayThatAllIsVerifiedOnlyWhenAllIs) {
    Record record = sampleRecord();
    record.rows.resize(1);
    EXPECT_THAT(sectionOf(record, "Not verified").rows,
                ElementsAre(Row{"None: each value was read back after it was written, and was as sent."}));
    record.rows.clear();
    EXPECT_THAT(sectionOf(record, "Not verified").rows, ElementsAre(Row{"No value was to be written."}));
}

TEST(RecordSections, SayWhenSomebodyWentOnWithAnotherModel) {
    Record record = sampleRecord();
    record.controller.verdict = "isn't";
    record.controller.although = "KVRT207D";
    EXPECT_THAT(sectionOf(record, "Controller").rows,
                Contains(Row{"Identity", "isn't KVRT207D; sent although, by the name KVRT207D"}));
    record.controller.verdict = "can't tell";
    record.controller.although.clear();
    EXPECT_THAT(sectionOf(record, "Controller").rows,
                Contains(Row{"Identity", "can't be told: nothing that was read tells KVRT207D from others"}));
}

TEST(RecordSections, TellWhatElseIsToBeNotedBeforeTheRest) {
    Record record = sampleRecord();
    record.notes = {"Register 40001 changed since it was verified: 120, now 121."};
    EXPECT_EQ(titlesOf(record)[3], "To be noted");
    EXPECT_THAT(sectionOf(record, "To be noted").rows, ElementsAre(Row{record.notes[0]}));
}

TEST(RecordSections, WhatIsNotKnownIsSaidSo) {
    Record record = sampleRecord();
    record.controller.serial.clear();
    record.link = {5, 0, {}, {}, {}, {}};
    record.ended = {};
    EXPECT_THAT(sectionOf(record, "Controller").rows, Contains(Row{"Serial number", "not known"}));
    EXPECT_THAT(sectionOf(record, "Link").rows,
                Contains(Row{"Answer times", "median not known, 99 of 100 within not known"}));
    EXPECT_THAT(sectionOf(record, "Times").rows, Contains(Row{"Ended", "not known", "not known"}));
}

TEST(RecordSections, DeviationsAreNoneOnlyWhereTheyAreKnown) {
    Record record = sampleRecord();
    const std::string title = "Deviations from the factory values";
    EXPECT_THAT(sectionOf(record, title).rows,
                ElementsAre(Row{"Regulation", "Set point", "Value", "40001", "100", "120"}));
    record.deviations->clear();
    EXPECT_THAT(sectionOf(record, title).rows, ElementsAre(Row{"None."}));
    record.deviations.reset();
    EXPECT_THAT(sectionOf(record, title).rows,
                ElementsAre(Row{"Not known: the template isn't where it was, or was changed since."}));
}

TEST(RecordSections, AHashIsCalledNoSignature) {
    EXPECT_THAT(sectionOf(sampleRecord(), "Files").rows,
                ElementsAre(Row{"template", "/t/KVRT207D.ZTP"}, Row{"", "SHA-256 aa"},
                            Row{"journal", "SHA-256 bb"},
                            Row{"", "A hash tells whether two files are the same. It is no signature."}));
}

TEST(RecordSections, EachHasATextForEachColumnAndTheWholeWidth) {
    for (const Record_Section& section : sectionsOf(sampleRecord())) {
        const double width =
            std::accumulate(section.columns.begin(), section.columns.end(), 0.0,
                            [](double sum, const Record_Column& column) { return sum + column.percent; });
        EXPECT_EQ(width, 100) << section.title;
        for (const Row& row : section.rows)
            EXPECT_EQ(row.size(), section.columns.size()) << section.title;
    }
}

TEST(RecordChecks, AreTheLinesOfATextThatAreNotBlank) {
    EXPECT_THAT(checksOf("Busbar isolated\r\n\n  Relay 2 \xC3\xA4\n"),
                ElementsAre("Busbar isolated", "Relay 2 \xE4"));
    EXPECT_THAT(checksOf("\xEF\xBB\xBFT\xC3\xBCr zu\r\n"), ElementsAre("T\xFCr zu"))
        << "with its mark in front";
    EXPECT_THAT(checksOf("T\xFCr zu\n"), ElementsAre("T\xFCr zu")) << "in Windows-1252";
    EXPECT_TRUE(checksOf("").empty());
}

} // namespace
} // namespace zorvane::commission
