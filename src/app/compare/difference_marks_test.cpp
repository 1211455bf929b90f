// SPDX-License-Identifier: MIT
// The marks of the cells that differ from the side that the document was compared with.

#include "app/compare/comparison_desk.h"
#include "app/document/document_commands.h"
#include "app/testing/app_bench.h"
#include "commission/folder/testing/memory_runs.h"
#include "grids/fill/fill_settings.h"

#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

struct Difference_Marks_Test : testing::Test, doubles::App_Bench {
    Difference_Marks_Test() {
        files.put("/home/other.abc", doubles::smallDocument("10", "25"));
        openFile(app, "/home/site7.abc", false);
        upper.setRow(1);
        document.Selected_Field = 1;
        PRO_Llena_Settings(app.grids, 1, true);
    }
    void compareWith(Side_Choice right) {
        Comparison_Desk desk(app, runs);
        desk.choose(Place_Of_Side::Right, std::move(right));
        auto with = desk.comparedWith();
        ASSERT_TRUE(with);
        marks.holdAgainst(std::move(*with));
    }
    [[nodiscard]] std::string told() const {
        return mainForm.base.bar.lines().empty() ? "" : mainForm.base.bar.lines().front().text;
    }

    commission::doubles::Memory_Runs runs;
    Difference_Marks marks{app};
};

TEST_F(Difference_Marks_Test, AreOffAtFirstAndSayWhatTheyNeed) {
    compareWith({Side_Kind::File, "/home/other.abc"});
    EXPECT_FALSE(marks.on());
    EXPECT_EQ(marks.at(2, 1), std::nullopt);
    EXPECT_EQ(told(), "");
    Difference_Marks later(app);
    later.MNU_MarkDifferences_Click();
    EXPECT_EQ(told(), "No cell is marked yet: Communication > Compare... chooses what the document differs "
                      "from.");
    EXPECT_TRUE(Difference_Marks(app).on()) << "remembered";
    later.MNU_MarkDifferences_Click();
    EXPECT_EQ(told(), "");
}

TEST_F(Difference_Marks_Test, FollowTheDocument) {
    marks.MNU_MarkDifferences_Click();
    compareWith({Side_Kind::File, "/home/other.abc"});
    EXPECT_EQ(told(), "Cells that differ from /home/other.abc are marked.");
    EXPECT_EQ(marks.at(1, 1), std::nullopt);
    EXPECT_EQ(marks.at(2, 1), "/home/other.abc: 25");
    edit(2, "25");
    EXPECT_EQ(marks.at(2, 1), std::nullopt);
    edit(1, "11");
    EXPECT_EQ(marks.at(1, 1), "/home/other.abc: 10");
    upper.setRow(2);
    EXPECT_EQ(marks.at(1, 1), std::nullopt) << "another page";
}

TEST_F(Difference_Marks_Test, TheOtherSideStaysAsItWas) {
    marks.MNU_MarkDifferences_Click();
    compareWith({Side_Kind::Factory});
    files.put("/app/ABC.ZTP", "");
    EXPECT_EQ(marks.at(1, 1), "factory values: 1");
    EXPECT_EQ(marks.at(2, 1), "factory values: 2");
}

TEST_F(Difference_Marks_Test, WhileOnlineTheValuesAreTheControllersAndCarryNoMark) {
    marks.MNU_MarkDifferences_Click();
    compareWith({Side_Kind::Factory});
    form.Online = true;
    EXPECT_EQ(marks.at(1, 1), std::nullopt);
    form.Online = false;
    EXPECT_EQ(marks.at(1, 1), "factory values: 1");
}

TEST_F(Difference_Marks_Test, TheLineDoesNotSayOfMarksWhileOnline) {
    marks.refresh();
    EXPECT_EQ(told(), "") << "nobody asked";
    marks.MNU_MarkDifferences_Click();
    compareWith({Side_Kind::Factory});
    form.Online = true;
    marks.refresh();
    EXPECT_EQ(told(), "While online no cell is marked: the values are the controller's.");
    form.Online = false;
    marks.refresh();
    EXPECT_EQ(told(), "Cells that differ from factory values are marked.");
}

TEST_F(Difference_Marks_Test, AnotherDocumentHasNoneUntilItIsCompared) {
    marks.MNU_MarkDifferences_Click();
    compareWith({Side_Kind::Factory});
    openFile(app, "/home/other.abc", false);
    upper.setRow(1);
    EXPECT_EQ(marks.at(1, 1), std::nullopt);
    compareWith({Side_Kind::Factory});
    EXPECT_EQ(marks.at(1, 1), "factory values: 1");
    PRO_Limpia_Documento(app);
    EXPECT_EQ(marks.at(1, 1), std::nullopt);
    EXPECT_EQ(told(), "");
}

TEST_F(Difference_Marks_Test, TwoSidesWithoutTheDocumentMarkNothing) {
    Comparison_Desk desk(app, runs);
    desk.choose(Place_Of_Side::Left, {Side_Kind::Factory});
    EXPECT_FALSE(desk.comparedWith());
    desk.choose(Place_Of_Side::Left, {Side_Kind::Document});
    EXPECT_FALSE(desk.comparedWith()) << "the controller wasn't read";
}

} // namespace
} // namespace zorvane::app
