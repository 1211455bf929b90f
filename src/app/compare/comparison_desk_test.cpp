// SPDX-License-Identifier: MIT
// The sides of a comparison in the program, what they are called, and what the document takes over.

#include "app/compare/comparison_desk.h"
#include "app/edit/history_commands.h"
#include "app/testing/app_bench.h"
#include "commission/folder/testing/memory_runs.h"
#include "compare/comparison_words.h"
#include "compare/testing/pump.h"
#include "compare/testing/scripted_reader.h"
#include "template/pro_leer_archivo.h"
#include "template/services/file_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace zorvane::app {
namespace {

using commission::doubles::Memory_Runs;
using compare::doubles::pumpRegisters;
using compare::doubles::pumpTemplate;
using compare::doubles::Scripted_Reader;
using doubles::App_Bench;
using ::testing::HasSubstr;

class ComparisonDesk : public ::testing::Test, protected App_Bench {
  protected:
    ComparisonDesk() {
        files.put("/app/PUMP.ZTP", pumpTemplate);
        files.put("/home/other.pump", "[Field_1_Default]\r\nROW_2=Level,7,in %\r\n");
        PRO_Leer_INIFIle(document, app.reading(), "/app/PUMP.ZTP");
        takeName(document, "/home/site.pump");
        state.documentType = "PUMP";
        form.Document_Open = true;
    }
    void addRun(const std::string& name, const std::string& model, std::int64_t sequence) {
        commission::Run_Head head;
        head.sequence = sequence;
        head.model = model;
        head.startedLocal = "2026-11-22 10:0" + std::to_string(sequence);
        runs.runs[name]["run.json"] = commission::headText(head);
        runs.runs[name]["plan.json"] = paperJson(commission::Plan_Paper()).dump();
        files.put("/state/runs/" + name + "/controller.PUMP", "[Field_1_Default]\r\nROW_2=Level,9,in %\r\n");
    }
    /// The counts with these sides, or why there are none.
    std::string compared(Comparison_Desk& desk, Side_Choice right, Side_Choice left = {}) {
        desk.choose(Place_Of_Side::Left, std::move(left));
        desk.choose(Place_Of_Side::Right, std::move(right));
        const Desk_Comparison result = desk.compare();
        return result.comparison ? compare::countsText(result.comparison->counts) : result.why;
    }
    void read(Comparison_Desk& desk, Scripted_Reader& reader) {
        desk.takeLook({lookAt(desk.question(reader, 3)), "controller on ttyS9, unit 3", "10:00:00"});
    }

    /// What the document would take of the right side's differences.
    compare::Taking differencesFrom(const Comparison_Desk& desk) {
        const compare::Comparison comparison = *desk.compare().comparison;
        std::vector<const compare::Row*> rows;
        for (const compare::Row& row : comparison.rows)
            if (row.sign == compare::Sign::Differs) rows.push_back(&row);
        compare::Taking taking = judgedTaking(document, rows, compare::Taken_Side::Right);
        EXPECT_TRUE(taking.leftOut.empty());
        return taking;
    }

    Memory_Runs runs;
};

TEST_F(ComparisonDesk, BeginsWithTheDocumentAndAControllerThatNobodyRead) {
    Comparison_Desk desk(app, runs);
    EXPECT_EQ(desk.nameOf(Place_Of_Side::Left), "site.pump");
    EXPECT_EQ(desk.nameOf(Place_Of_Side::Right), "controller");
    EXPECT_TRUE(desk.wantsController());
    EXPECT_EQ(desk.compare().why, "The controller hasn't been read yet. Nothing is written by reading it.");
    EXPECT_EQ(desk.identityText(), "");
}

TEST_F(ComparisonDesk, ComparesWithTheFactoryValues) {
    Comparison_Desk desk(app, runs);
    EXPECT_EQ(compared(desk, {Side_Kind::Factory}), "24 values: 24 equal");
    EXPECT_EQ(desk.nameOf(Place_Of_Side::Right), "factory values");
    document.Fields(1).Cells(2, 2).Value = "7";
    EXPECT_EQ(compared(desk, {Side_Kind::Factory}), "24 values: 1 differs, 23 equal");
}

TEST_F(ComparisonDesk, ComparesWithAnotherFile) {
    Comparison_Desk desk(app, runs);
    EXPECT_EQ(compared(desk, {Side_Kind::File}), "Choose a file.");
    EXPECT_EQ(compared(desk, {Side_Kind::File, "/home/other.pump"}), "24 values: 1 differs, 23 equal");
    EXPECT_EQ(desk.nameOf(Place_Of_Side::Right), "/home/other.pump");
    EXPECT_EQ(compared(desk, {Side_Kind::File, "/home/none.pump"}),
              "/home/none.pump isn't there. Choose another file.");
    files.put("/home/wide.pump", "[Field_1_Default]\r\nROW_2=Level,7,in %,too,many\r\n");
    EXPECT_EQ(compared(desk, {Side_Kind::File, "/home/wide.pump"}),
              "/home/wide.pump was not read from line 2 on. It was written for another template, or is "
              "damaged. Choose another file.");
    EXPECT_EQ(compared(desk, {Side_Kind::File, "/home/x.tank"}),
              "/app/TANK.ZTP isn't there. Choose another file.");
}

TEST_F(ComparisonDesk, AFileOfAnotherVersionIsMatchedByRegisterAndFormat) {
    std::string next = pumpTemplate;
    next.replace(next.find("FIELD_1_DESC=Settings"), 21, "FIELD_1_DESC=Values");
    files.put("/app/PUMP2.ZTP", next);
    files.put("/home/site.pump2", "[Field_1_Default]\r\nROW_2=Level,7,in %\r\n");
    Comparison_Desk desk(app, runs);
    const std::string counts = compared(desk, {Side_Kind::File, "/home/site.pump2"});
    EXPECT_THAT(counts, HasSubstr("1 differs"));
    EXPECT_THAT(counts, HasSubstr("on one side only")) << "names of a page that isn't there";
}

TEST_F(ComparisonDesk, ComparesWithRegisters) {
    files.put("/home/image.json", R"({"10": 2, "11": 7, "30": 21})");
    files.put("/home/bad.json", "[]");
    Comparison_Desk desk(app, runs);
    EXPECT_EQ(compared(desk, {Side_Kind::Registers}), "Choose a file of registers.");
    EXPECT_EQ(compared(desk, {Side_Kind::Registers, "/home/image.json"}),
              "12 values: 1 differs, 9 not read, 2 equal");
    EXPECT_THAT(compared(desk, {Side_Kind::Registers, "/home/bad.json"}), HasSubstr("/home/bad.json: "));
    EXPECT_EQ(compared(desk, {Side_Kind::Registers, "/home/none.json"}),
              "/home/none.json can't be read. Choose another file.");
}

TEST_F(ComparisonDesk, ComparesWithWhatAControllerHadWhenItWasRead) {
    Comparison_Desk desk(app, runs);
    Scripted_Reader reader;
    reader.registers = pumpRegisters();
    reader.registers[11] = 7;
    read(desk, reader);
    EXPECT_EQ(compared(desk, {Side_Kind::Controller}), "12 values: 1 differs, 11 equal");
    EXPECT_EQ(desk.nameOf(Place_Of_Side::Right), "controller on ttyS9, unit 3, read at 10:00:00");
    EXPECT_THAT(desk.identityText(), HasSubstr("unit 3"));
    EXPECT_EQ(compared(desk, {Side_Kind::Factory}, {Side_Kind::Controller}),
              "12 values: 1 differs, 11 equal");
    (void)compared(desk, {Side_Kind::Factory});
    EXPECT_EQ(desk.identityText(), "") << "no controller among the sides";
}

TEST_F(ComparisonDesk, ComparesWithWhatWasThereBeforeASend) {
    addRun("one", "PUMP", 1);
    addRun("two", "PUMP", 2);
    addRun("three", "TANK", 3);
    Comparison_Desk desk(app, runs);
    ASSERT_EQ(desk.runs().size(), 2U);
    EXPECT_EQ(desk.runs()[0].name, "two") << "the newest first, of this model only";
    EXPECT_EQ(compared(desk, {Side_Kind::Run, "one"}), "24 values: 1 differs, 23 equal");
    EXPECT_EQ(desk.nameOf(Place_Of_Side::Right), "before the send of 2026-11-22 10:01");
    EXPECT_EQ(compared(desk, {Side_Kind::Run, "gone"}), "Choose a send.");
}

TEST_F(ComparisonDesk, TheDocumentTakesFromTheOtherSide) {
    Comparison_Desk desk(app, runs);
    EXPECT_EQ(desk.takenSide(), compare::Taken_Side::Right);
    EXPECT_EQ(desk.whyNotTake(), "");
    (void)compared(desk, {}, {Side_Kind::Factory});
    EXPECT_EQ(desk.takenSide(), compare::Taken_Side::Left);
    (void)compared(desk, {}, {});
    EXPECT_EQ(desk.takenSide(), std::nullopt);
    EXPECT_THAT(desk.whyNotTake(), HasSubstr("One of the sides"));
    (void)compared(desk, {Side_Kind::Controller}, {Side_Kind::Factory});
    EXPECT_EQ(desk.takenSide(), std::nullopt);
    EXPECT_THAT(desk.whyNotSend(), HasSubstr("One of the sides"));
}

TEST_F(ComparisonDesk, AReadOnlyDocumentTakesNothingAndMaySend) {
    Comparison_Desk desk(app, runs);
    document.Read_Only = true;
    EXPECT_EQ(desk.whyNotTake(), "The document is read-only.");
    EXPECT_EQ(desk.whyNotSend(), "");
}

TEST_F(ComparisonDesk, NothingIsTakenWhileOnlineOrInATransfer) {
    Comparison_Desk desk(app, runs);
    form.Online = true;
    EXPECT_EQ(desk.whyNotTake(), "The window is online: disconnect first.");
    form.Online = false;
    form.Upload_Active = true;
    EXPECT_EQ(desk.whyNotTake(), "A transfer is going on.");
}

TEST_F(ComparisonDesk, TakingIsOneStepWithTheTitleAndTheSaveRule) {
    files.put("/home/two.pump", "[Field_1_Default]\r\nROW_2=Level,7,in %\r\nROW_5=Upper,9,\r\n");
    Comparison_Desk desk(app, runs);
    EXPECT_EQ(compared(desk, {Side_Kind::File, "/home/two.pump"}), "24 values: 2 differ, 22 equal");
    upper.setRows(3);
    upper.setRow(1);
    lower.setRows(11);
    lower.setCols(3);
    EXPECT_FALSE(undoEntry(app).enabled);
    takeIntoDocument(app, differencesFrom(desk));
    EXPECT_EQ(value(2), "7");
    EXPECT_EQ(lower.TextMatrix(2, 1), "7") << "the page shows it";
    EXPECT_TRUE(form.Dirty);
    EXPECT_TRUE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
    EXPECT_EQ(compared(desk, {Side_Kind::File, "/home/two.pump"}), "24 values: 24 equal");
    EXPECT_EQ(undoEntry(app).caption, "Undo take of 2 values");
    MNU_Undo_Click(app);
    EXPECT_EQ(compared(desk, {Side_Kind::File, "/home/two.pump"}), "24 values: 2 differ, 22 equal");
    EXPECT_FALSE(form.Dirty) << "as the file says";
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Save));
    EXPECT_EQ(redoEntry(app).caption, "Redo take of 2 values");
    MNU_Redo_Click(app);
    EXPECT_EQ(compared(desk, {Side_Kind::File, "/home/two.pump"}), "24 values: 24 equal");
}

TEST_F(ComparisonDesk, TakingWhatIsThereAlreadyIsNoStep) {
    Comparison_Desk desk(app, runs);
    (void)compared(desk, {Side_Kind::File, "/home/other.pump"});
    compare::Comparison comparison = *desk.compare().comparison;
    takeIntoDocument(app, differencesFrom(desk));
    form.Dirty = false;
    std::vector<const compare::Row*> rows;
    for (const compare::Row& row : comparison.rows)
        rows.push_back(&row);
    takeIntoDocument(app, judgedTaking(document, rows, compare::Taken_Side::Right));
    EXPECT_FALSE(form.Dirty);
    EXPECT_EQ(undoEntry(app).caption, "Undo take of 1 value") << "still the first one";
}

TEST_F(ComparisonDesk, TheDocumentMayStandInTheMiddleOfThreeSides) {
    Comparison_Desk desk(app, runs);
    Scripted_Reader reader;
    reader.registers = pumpRegisters();
    reader.registers[11] = 7;
    read(desk, reader);
    document.Fields(1).Cells(3, 2).Value = "2:00";
    desk.setMiddle(true);
    EXPECT_EQ(desk.nameOf(Place_Of_Side::Left), "factory values");
    EXPECT_EQ(desk.nameOf(Place_Of_Side::Right), "controller on ttyS9, unit 3, read at 10:00:00");
    const Desk_Comparison three = desk.compare();
    ASSERT_TRUE(three.left && three.comparison);
    EXPECT_EQ(compare::countsText(three.left->counts), "24 values: 1 differs, 23 equal");
    EXPECT_EQ(compare::countsText(three.comparison->counts), "12 values: 2 differ, 10 equal");
    EXPECT_EQ(desk.takenSide(), compare::Taken_Side::Right);
    EXPECT_EQ(desk.whyNotTake(), "");
    EXPECT_EQ(desk.whyNotSend(), "");
    EXPECT_EQ(desk.comparedWith()->name, "controller on ttyS9, unit 3, read at 10:00:00");
    EXPECT_EQ(compared(desk, {Side_Kind::Controller}, {Side_Kind::Document}),
              "The document stands in the middle. Choose something else to its left and right.");
    EXPECT_EQ(desk.takenSide(), std::nullopt);
    desk.choose(Place_Of_Side::Left, {Side_Kind::File, "/home/other.pump"});
    desk.setMiddle(false);
    EXPECT_EQ(desk.nameOf(Place_Of_Side::Left), "site.pump");
    EXPECT_FALSE(desk.compare().left);
}

TEST_F(ComparisonDesk, TheHeadOnPaperNamesTheSides) {
    Comparison_Desk desk(app, runs);
    (void)compared(desk, {Side_Kind::Factory});
    const compare::Comparison_Head head = desk.head("page:x");
    EXPECT_EQ(head.document, "site.pump");
    EXPECT_EQ(head.left, "site.pump");
    EXPECT_EQ(head.right, "factory values");
    EXPECT_EQ(head.filter, "page:x");
}

} // namespace
} // namespace zorvane::app
