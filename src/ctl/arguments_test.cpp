// SPDX-License-Identifier: MIT
// The command line: calls, options before and after arguments, exit codes.

#include "ctl/testing/ctl_bench.h"
#include "ctl/testing/small_model.h"

#include <gmock/gmock.h>

namespace zorvane::ctl {
namespace {

using doubles::Ctl_Bench;
using doubles::Ctl_Run;
using testing::HasSubstr;
using testing::StartsWith;

TEST(Arguments, WithoutACallTheUsageIsWrong) {
    const Ctl_Run run = Ctl_Bench().run({});
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "A subcommand is required\nRun with --help for more information.\n");
}

TEST(Arguments, AnUnknownCallIsWrong) { EXPECT_EQ(Ctl_Bench().run({"frobnicate"}).code, 2); }

TEST(Arguments, AnUnknownOptionIsWrong) { EXPECT_EQ(Ctl_Bench().run({"models", "--colour"}).code, 2); }

TEST(Arguments, AMissingArgumentIsWrong) {
    const Ctl_Run run = Ctl_Bench().run({"save", "A.ZTP", "b.A"});
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err, HasSubstr("OUT is required"));
}

TEST(Arguments, AnArgumentTooManyIsWrong) {
    EXPECT_EQ(Ctl_Bench().run({"dump", "A.ZTP", "b.A", "c"}).code, 2);
}

TEST(Arguments, TwoCallsAreWrong) { EXPECT_EQ(Ctl_Bench().run({"models", "models"}).code, 2); }

TEST(Arguments, HelpGoesToTheOutput) {
    const Ctl_Run run = Ctl_Bench().run({"--help"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, "");
    for (const char* call : {"models", "dump", "save", "update", "apply", "plan"})
        EXPECT_THAT(run.out, HasSubstr(call));
    EXPECT_EQ(Ctl_Bench().run({"dump", "--help"}).code, 0);
}

TEST(Arguments, TheVersionIsTold) {
    const Ctl_Run run = Ctl_Bench().run({"--version"});
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.out, StartsWith("zorvanectl "));
}

TEST(Arguments, OptionsStandBeforeOrAfterTheArguments) {
    Ctl_Bench bench;
    const std::string ztp = bench.file("ABC.ZTP", doubles::smallTemplate());
    const std::string before = bench.run({"dump", "--json", "--app-dir", "/a", ztp}).out;
    EXPECT_THAT(before, StartsWith("{\n"));
    EXPECT_EQ(bench.run({"dump", ztp, "--app-dir=/a", "--json"}).out, before);
}

TEST(Arguments, AFileMayBeNamedLikeACall) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run({"dump", "models"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "zorvanectl: models: there is no such template. Check the path.\n");
}

TEST(Arguments, ATemplateNamedAloneIsFoundBesideTheProgram) {
    Ctl_Bench bench;
    const std::string ztp = bench.file("ABC.ZTP", doubles::smallTemplate());
    EXPECT_EQ(bench.run({"dump", "ABC.ZTP", "--json"}).code, 1);
    const Ctl_Run run = bench.run({"dump", "ABC.ZTP", "--json", "--app-dir", bench.path("")});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, bench.run({"dump", ztp, "--json"}).out);
}

TEST(Arguments, ATemplateWithAFolderIsLookedForNowhereElse) {
    Ctl_Bench bench;
    bench.file("ABC.ZTP", doubles::smallTemplate());
    EXPECT_EQ(bench.run({"dump", "./ABC.ZTP", "--app-dir", bench.path("")}).err,
              "zorvanectl: ./ABC.ZTP: there is no such template. Check the path.\n");
}

TEST(Arguments, AMalformedSelectionIsWrong) {
    for (const char* text : {"1,2", "1,2,3,4", "0,1,1", "1,-1,1", "a,b,c", "", "1,2,3 "})
        EXPECT_EQ(Ctl_Bench().run({"plan", "A.ZTP", "b.A", "r.json", "--selection", text}).code, 2) << text;
    EXPECT_THAT(Ctl_Bench().run({"plan", "A.ZTP", "b.A", "r.json", "--selection", "1,2"}).err,
                HasSubstr("\"1,2\" is not FIELD,GRIDROW,GRIDCOLUMN, as in 1,4,2"));
}

} // namespace
} // namespace zorvane::ctl
