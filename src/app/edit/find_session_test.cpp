// SPDX-License-Identifier: MIT
#include "app/edit/find_session.h"
#include "app/edit/testing/edit_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Find_Cells_Of_A_Document : testing::Test, doubles::Edit_Bench {
    Find_Cells_Of_A_Document() {
        lower.setRow(1);
        lower.setCol(0);
    }
    [[nodiscard]] std::vector<std::string> found(const std::string& text) {
        find.query.text = text;
        std::vector<std::string> lines;
        for (const Found_Row& row : find.rows())
            lines.push_back(row.name + " = " + row.value + (row.address.empty() ? "" : " at " + row.address));
        return lines;
    }
    [[nodiscard]] std::string here() const {
        return std::to_string(upper.Row()) + "," + std::to_string(lower.Row()) + "," +
               std::to_string(lower.Col() + 1);
    }

    Find_Session find{app};
};

TEST_F(Find_Cells_Of_A_Document, AreListedByNameValueAndRegister) {
    EXPECT_THAT(found("inputs"), ElementsAre("Inputs/low/Value = 10", "Inputs/high/Value = 20"));
    EXPECT_THAT(found("20"), ElementsAre("Inputs/high/Value = 20"));
    document.Fields(1).Cells(2, 2).Address = "7";
    document.Fields(2).Cells(1, 2).Address = "8";
    EXPECT_THAT(found("8"), ElementsAre("Outputs/all/Value = 3 at 8"));
    EXPECT_THAT(found("none"), IsEmpty());
}

TEST_F(Find_Cells_Of_A_Document, AreGoneToOneAfterTheOther) {
    document.Fields(2).Cells(1, 2).Address = "8";
    EXPECT_EQ(find.position(find.rows()), "3 found");
    find.next();
    EXPECT_EQ(here(), "1,1,2");
    EXPECT_EQ(find.position(find.rows()), "1 of 3");
    find.next();
    EXPECT_EQ(here(), "1,2,2");
    find.next();
    EXPECT_EQ(here(), "2,1,2");
    find.next();
    EXPECT_EQ(here(), "1,1,2");
    find.previous();
    EXPECT_EQ(here(), "2,1,2");
}

TEST_F(Find_Cells_Of_A_Document, ThatNothingWasFoundIsTold) {
    find.query.text = "none";
    find.next();
    EXPECT_EQ(told(), "\"none\": no cell was found on any page.");
    EXPECT_EQ(find.position(find.rows()), "nothing found");
    find.query = {"", true, false};
    find.previous();
    EXPECT_EQ(told(), "No cell was found on any page.");
    find.query = {};
    find.next();
    EXPECT_EQ(told(), "");
}

TEST_F(Find_Cells_Of_A_Document, ChangedOnesAndThoseThatDifferFromTheFactory) {
    edit(1, "11");
    find.query = {"", true, false};
    EXPECT_THAT(found(""), ElementsAre("Inputs/low/Value = 11"));
    find.query = {"", false, true};
    EXPECT_THAT(found(""), ElementsAre("Inputs/low/Value = 11", "Inputs/high/Value = 20"))
        << "the template has 1 and 2";
    document.Fields(1).Cells(2, 2).Value = "2";
    EXPECT_THAT(found(""), ElementsAre("Inputs/low/Value = 11"));
}

TEST_F(Find_Cells_Of_A_Document, ReadingTheFactoryValuesTellsTheLinkNothing) {
    journal.clear();
    find.query = {"", false, true};
    (void)find.rows();
    EXPECT_THAT(journal.lines(), ElementsAre("read /app/ABC.ZTP"));
    (void)find.rows();
    EXPECT_THAT(journal.lines(), ElementsAre("read /app/ABC.ZTP")) << "once for a document";
}

TEST_F(Find_Cells_Of_A_Document, WithoutADocumentThereAreNone) {
    MNU_Close_Click(app);
    EXPECT_THAT(found(""), IsEmpty());
    find.next();
    EXPECT_EQ(told(), "No cell was found on any page.");
}

} // namespace
} // namespace zorvane::app
