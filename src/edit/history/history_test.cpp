// SPDX-License-Identifier: MIT
#include "edit/history/history.h"
#include "edit/testing/relay.h"

#include <gtest/gtest.h>

namespace zorvane::edit {
namespace {

constexpr Cell_Place setPoint{1, 1, 2}, drop{1, 2, 2}, output{1, 4, 2};

struct Steps : testing::Test, doubles::Relay {
    Steps() {
        history.clear();
        history.noteWritten();
    }
    std::string& value(const Cell_Place& place) {
        return document.Fields(place.field).Cells(place.row, place.column).Value;
    }
    /// The user puts a value into a cell.
    void put(const Cell_Place& place, const std::string& text, const std::string& name = "change") {
        const std::string before = value(place);
        value(place) = text;
        history.changed(name, {{place, before, text}});
    }
    Step_Result undo() { return history.undo(document).value(); }
    Step_Result redo() { return history.redo(document).value(); }

    History history;
};

TEST_F(Steps, ComeBackInTurnByTheirNames) {
    put(setPoint, "1200", "change of Regulation, Set point");
    put(drop, "5", "change of Regulation, Drop X");
    EXPECT_EQ(history.undoName(), "change of Regulation, Drop X");
    EXPECT_EQ(history.redoName(), std::nullopt);

    const Step_Result first = undo();
    EXPECT_EQ(first.name, "change of Regulation, Drop X");
    EXPECT_EQ(first.changed, std::vector{drop});
    EXPECT_FALSE(first.asWritten);
    EXPECT_EQ(value(drop), "-12");
    EXPECT_EQ(value(setPoint), "1200");
    EXPECT_EQ(history.redoName(), "change of Regulation, Drop X");

    EXPECT_TRUE(undo().asWritten);
    EXPECT_EQ(value(setPoint), "1125");
    EXPECT_EQ(history.undo(document).has_value(), false);

    EXPECT_FALSE(redo().asWritten);
    (void)redo();
    EXPECT_EQ(value(setPoint) + " " + value(drop), "1200 5");
}

TEST_F(Steps, ANewOneEndsWhatWasUndone) {
    put(setPoint, "1200");
    (void)undo();
    put(drop, "5");
    EXPECT_EQ(history.redoName(), std::nullopt);
    EXPECT_EQ(history.steps(), 1U);
}

TEST_F(Steps, WhatChangesNothingIsNone) {
    put(setPoint, "1125");
    history.changed("paste of 0 values", {});
    EXPECT_EQ(history.undoName(), std::nullopt);
}

TEST_F(Steps, ACellThatWasChangedTwiceInOneGoesBackToTheFirst) {
    value(setPoint) = "1300";
    history.changed("import", {{setPoint, "1125", "1200"}, {drop, "-12", "-12"}, {setPoint, "1200", "1300"}});
    EXPECT_EQ(undo().changed, std::vector{setPoint});
    EXPECT_EQ(value(setPoint), "1125");
}

TEST_F(Steps, ASaveKeepsThemAndIsTheStateToComeBackTo) {
    put(setPoint, "1200");
    history.noteWritten();
    put(drop, "5");
    EXPECT_TRUE(undo().asWritten);
    EXPECT_FALSE(undo().asWritten) << "the file has 1200 now";
    EXPECT_TRUE(redo().asWritten);
}

TEST_F(Steps, AStateThatWasLeftForAnotherStepIsNeverReachedAgain) {
    put(setPoint, "1200");
    history.noteWritten();
    (void)undo();
    put(setPoint, "1200");
    EXPECT_FALSE(undo().asWritten);
}

TEST_F(Steps, AnotherChangeOfTheDocumentIsNoWayBackToTheFile) {
    put(setPoint, "1200");
    history.changedForGood();
    EXPECT_FALSE(undo().asWritten);
    history.noteWritten();
    EXPECT_FALSE(redo().asWritten);
    EXPECT_TRUE(undo().asWritten);
}

TEST_F(Steps, ACellThatHoldsSomethingElseKeepsIt) {
    history.changed("upload of 2 values", {{setPoint, "1125", "1200"}, {drop, "-12", "5"}});
    value(setPoint) = "1200";
    value(drop) = "77"; // by polling
    const Step_Result result = undo();
    EXPECT_EQ(result.changed, std::vector{setPoint});
    EXPECT_EQ(result.leftOut, std::vector{drop});
    EXPECT_FALSE(result.asWritten);
    EXPECT_EQ(value(setPoint) + " " + value(drop), "1125 77");
    EXPECT_EQ(redo().changed, std::vector{setPoint}) << "the other cell isn't the step's any more";
    EXPECT_EQ(value(setPoint) + " " + value(drop), "1200 77");
}

TEST_F(Steps, OneWithoutACellIsDropped) {
    put(setPoint, "1200", "first");
    put(drop, "5", "second");
    value(drop) = "77";
    const Step_Result result = undo();
    EXPECT_TRUE(result.changed.empty());
    EXPECT_EQ(result.leftOut, std::vector{drop});
    EXPECT_EQ(history.redoName(), std::nullopt);
    EXPECT_EQ(history.undoName(), "first");
    EXPECT_FALSE(undo().asWritten) << "the document still holds 77";
}

TEST_F(Steps, StaleOnesGoWithoutBeingAskedFor) {
    put(setPoint, "1200", "first");
    put(drop, "5", "second");
    value(drop) = "77";
    history.dropStale(document);
    EXPECT_EQ(history.undoName(), "first");
    EXPECT_FALSE(undo().asWritten);
}

TEST_F(Steps, ACellThatIsGoneLosesItsPart) {
    history.changed("import", {{{9, 1, 1}, "1", "2"}});
    EXPECT_EQ(undo().leftOut, (std::vector<Cell_Place>{{9, 1, 1}}));
}

TEST_F(Steps, TheFillingOfAPageIsNoOtherValue) {
    // A half register's value is brought to a plain number when its page is shown.
    history.changed("import", {{output, "1", "07"}});
    value(output) = "7";
    EXPECT_EQ(undo().changed, std::vector{output});
    EXPECT_EQ(value(output), "1");
}

TEST_F(Steps, OnlySoManyAreKept) {
    History few({.steps = 3, .bytes = 1'000'000});
    for (const char* text : {"801", "802", "803", "804"}) {
        few.changed(text, {{setPoint, value(setPoint), text}});
        value(setPoint) = text;
    }
    EXPECT_EQ(few.steps(), 3U);
    while (few.undoName())
        (void)few.undo(document);
    EXPECT_EQ(value(setPoint), "801");
}

TEST_F(Steps, OnlySoManyBytesAreKept) {
    History small({.steps = 1000, .bytes = 2000});
    const std::string remark(900, 'x');
    for (int i = 0; i < 3; ++i)
        small.changed("change " + std::to_string(i), {{setPoint, "", remark + std::to_string(i)}});
    EXPECT_EQ(small.steps(), 1U);
    EXPECT_EQ(small.undoName(), "change 2");
    EXPECT_LE(small.bytes(), 2000U);
    small.changed("too large", {{setPoint, "", std::string(3000, 'x')}});
    EXPECT_EQ(small.steps(), 0U);
    EXPECT_EQ(small.bytes(), 0U);
}

TEST_F(Steps, TheLimitsAreAThousandStepsAnd64MB) {
    for (int i = 0; i < 1001; ++i)
        history.changed("change", {{setPoint, std::to_string(i), std::to_string(i + 1)}});
    EXPECT_EQ(history.steps(), 1000U);
    EXPECT_EQ(History_Limits{}.bytes, 67'108'864U);
}

TEST_F(Steps, AnotherDocumentHasNone) {
    put(setPoint, "1200");
    put(drop, "5");
    (void)undo();
    history.clear();
    EXPECT_EQ(history.undoName(), std::nullopt);
    EXPECT_EQ(history.redoName(), std::nullopt);
    EXPECT_EQ(history.bytes(), 0U);
}

TEST_F(Steps, AreNamedByWhatWasDone) {
    EXPECT_EQ(stepName("upload", 312), "upload of 312 values");
    EXPECT_EQ(stepName("paste", 1), "paste of 1 value");
}

} // namespace
} // namespace zorvane::edit
