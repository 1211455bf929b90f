// SPDX-License-Identifier: MIT
#include "app/edit/history_commands.h"
#include "app/edit/testing/edit_bench.h"
#include "app/edit/value_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Value_Files : testing::Test, doubles::Edit_Bench {
    void import(const std::string& text, bool answer = true) {
        files.put("/home/values.csv", text);
        importValues(app, "/home/values.csv", [&](const Fit_Question& question) {
            asked = question;
            return answer;
        });
    }

    Fit_Question asked;
};

TEST_F(Value_Files, WhatIsExportedComesBackWithoutADifference) {
    for (int type = 1; type <= 4; ++type) {
        exportValues(app, "/home/values.csv", exportStyle(type));
        EXPECT_EQ(told(), "The values were written to /home/values.csv.");
        const std::string text = files.text("/home/values.csv").value();
        EXPECT_EQ(text, edit::exportedValues(document, exportStyle(type)));
        import(text);
        EXPECT_EQ(asked.summary, "values.csv: 2 of 2 fit, 0 of them change");
        EXPECT_FALSE(form.Dirty);
    }
}

TEST_F(Value_Files, AFileThatCannotBeWrittenIsTold) {
    files.failAfter(10);
    exportValues(app, "/home/values.csv", exportStyle(1));
    EXPECT_EQ(told(), "/home/values.csv could not be written: Disk full.");
}

TEST_F(Value_Files, AnImportIsShownBeforeAndIsOneStep) {
    import("field;row;column;value\r\n1;1;2;11\r\n1;2;2;21\r\n");
    EXPECT_EQ(asked.title, "Import values");
    EXPECT_EQ(asked.summary, "values.csv: 2 of 2 fit, 2 of them change");
    EXPECT_EQ(asked.details, "Columns separated by semicolons; decimal sign: not needed.");
    EXPECT_THAT(asked.changes,
                ElementsAre("Inputs/low/Value: 10 becomes 11", "Inputs/high/Value: 20 becomes 21"));
    EXPECT_THAT(asked.leftOut, IsEmpty());
    EXPECT_EQ(values(), "11 21");
    EXPECT_EQ(undoEntry(app).caption, "Undo import of 2 values");
    MNU_Undo_Click(app);
    EXPECT_EQ(values(), "10 20");
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Value_Files, WhatDoesntFitIsListedByItsLine) {
    import("field,row,column,value\r\n1,1,2,11\r\n1,9,2,21\r\n", false);
    EXPECT_EQ(asked.summary, "values.csv: 1 of 2 fit, 1 of them changes");
    EXPECT_EQ(asked.details, "Columns separated by commas; decimal sign: not needed.");
    ASSERT_EQ(asked.leftOut.size(), 1U);
    EXPECT_EQ(asked.leftOut.front().substr(0, 8), "Line 3: ");
    EXPECT_EQ(values(), "10 20") << "nothing";
}

TEST_F(Value_Files, AFileOfSomethingElseIsTold) {
    import("a,b,c\r\n1,2,3\r\n");
    EXPECT_EQ(told().substr(0, 12), "values.csv: ");
    EXPECT_EQ(asked.title, "") << "nobody was asked";
    importValues(app, "/home/none.csv", [](const Fit_Question&) { return true; });
    EXPECT_EQ(told(), "/home/none.csv could not be read.");
}

TEST_F(Value_Files, OnlineNothingIsImported) {
    form.Online = true;
    import("field,row,column,value\r\n1,1,2,11\r\n");
    EXPECT_EQ(told(), "Nothing was imported. The window is online: disconnect first.");
    EXPECT_EQ(values(), "10 20");
}

} // namespace
} // namespace zorvane::app
