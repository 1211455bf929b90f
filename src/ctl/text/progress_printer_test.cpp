// SPDX-License-Identifier: MIT
// The progress of a transfer as people see it.

#include "ctl/text/progress_printer.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zorvane::ctl {
namespace {

TEST(ProgressPrinter, WritesALineAtEachTenthWithoutATerminal) {
    std::ostringstream out;
    Progress_Printer printer(out, false);
    printer.label("Uploading");
    for (int value = 0; value <= 30; ++value)
        printer.progress(value, 30);
    printer.line("one failed");
    printer.end();
    EXPECT_EQ(out.str(), "Uploading\n"
                         "10 % (3 of 30)\n20 % (6 of 30)\n30 % (9 of 30)\n40 % (12 of 30)\n50 % (15 of 30)\n"
                         "60 % (18 of 30)\n70 % (21 of 30)\n80 % (24 of 30)\n90 % (27 of 30)\n"
                         "100 % (30 of 30)\none failed\n");
}

TEST(ProgressPrinter, DrawsABarOverItselfOnATerminal) {
    std::ostringstream out;
    Progress_Printer printer(out, true);
    printer.progress(0, 2);
    printer.progress(1, 2);
    const std::string none = "[------------------------------] 0 %";
    const std::string half = "[###############---------------] 50 %";
    EXPECT_EQ(out.str(), none + "\r" + std::string(none.size(), ' ') + "\r" + half);
}

TEST(ProgressPrinter, KeepsTheBarBelowALineAndTakesItAwayAtTheEnd) {
    std::ostringstream out;
    Progress_Printer printer(out, true);
    printer.progress(2, 2);
    out.str("");
    printer.line("one failed");
    printer.end();
    const std::string full = "[##############################] 100 %";
    const std::string wiped = "\r" + std::string(full.size(), ' ') + "\r";
    EXPECT_EQ(out.str(), wiped + "one failed\n" + full + wiped);
}

TEST(ProgressPrinter, ATransferOfNothingStandsAtZero) {
    std::ostringstream out;
    Progress_Printer printer(out, true);
    printer.progress(0, 0);
    EXPECT_EQ(out.str(), "[------------------------------] 0 %");
}

} // namespace
} // namespace zorvane::ctl
