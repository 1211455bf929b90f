// SPDX-License-Identifier: MIT
#include "app/print_log_command.h"
#include "app/testing/recording_print_form.h"
#include "reports/testing/even_metrics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using testing::ElementsAre;

struct PrintLog : testing::Test {
    doubles::Journal journal;
    doubles::Recording_Print_Form mainForm{journal};
    doubles::Even_Metrics metrics;
    Print_Log_Command command{mainForm, metrics, [] { return Report_Time{"11/21/2026", 9, 5}; }};
};

TEST_F(PrintLog, GoesToThePrinterDialogAtOnce) {
    command.btnPrint_Click({"Transfer Method: Upload to PC\r\n", {"MS Sans Serif", 8.5, false}, 0}, "a.log");
    EXPECT_THAT(journal.lines(), ElementsAre("log of 1 pages printed after a choice"));
    EXPECT_EQ(command.report()->LogFileName, "a.log");
}

TEST_F(PrintLog, ASecondPressReplacesTheReportAndKeepsItsWindowsPlace) {
    command.btnPrint_Click({"one", {}, 0}, "a.log");
    command.report()->Window = {1, 2, 3, 4};
    int unloaded = 0;
    const auto unload = command.report()->UnloadMe;
    command.report()->UnloadMe = [&unloaded, unload] {
        ++unloaded;
        unload();
    };
    command.btnPrint_Click({"two", {}, 0}, "b.log");
    EXPECT_EQ(unloaded, 1);
    ASSERT_NE(command.report(), nullptr);
    EXPECT_EQ(command.report()->Window, (Twips_Rect{.left = 1, .top = 2, .width = 3, .height = 4}));
    EXPECT_EQ(command.report()->LogFileName, "b.log");
}

TEST_F(PrintLog, AReportThatWasClosedIsGone) {
    command.btnPrint_Click({"one", {}, 0}, "a.log");
    command.report()->ActiveReport_Terminate();
    EXPECT_EQ(command.report(), nullptr);
    command.btnPrint_Click({"two", {}, 0}, "b.log");
    EXPECT_EQ(command.report()->Window, Twips_Rect{});
}

} // namespace
} // namespace zorvane::app
