// SPDX-License-Identifier: MIT
// zorvanectl report: the built program.

#include "ctl/testing/ctl_bench.h"
#include "ctl/testing/small_model.h"
#include "ctl/testing/spawned_program_linux.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace zorvane::ctl {
namespace {

using doubles::Ctl_Bench;
using doubles::Ctl_Run;
using doubles::lines;
using doubles::Spawned_Program;
using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct Report_Program : ::testing::Test {
    Ctl_Run run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {ZORVANECTL, "report", ztp, config});
        Spawned_Program program(arguments);
        const int code = program.finish();
        return {code, program.out(), program.err()};
    }

    Ctl_Bench bench;
    std::string ztp = bench.file("ABC.ZTP", doubles::smallTemplate());
    std::string config = bench.file("site.ABC", doubles::smallConfiguration());
};

TEST_F(Report_Program, PrintsTheTextsOfAFieldsTable) {
    const Ctl_Run report = run({"1", "--json"});
    EXPECT_EQ(report.code, 0);
    EXPECT_EQ(report.err, "");
    EXPECT_EQ(report.out, "{\n  \"rows\": [[\"10\",\"On\"],[\"-5\",\"7\"]],\n  \"failure\": null\n}\n");
}

TEST_F(Report_Program, AListCellWithoutAValueShowsTheTextBefore) {
    config = bench.file("site.ABC", lines({"[Field_1_Default]", "ROW_1=10"}));
    EXPECT_EQ(json::parse(run({"1", "--json"}).out)["rows"][0], json::parse(R"(["10","10"])"));
}

TEST_F(Report_Program, AFieldThatIsNotThereIsAFailure) {
    const Ctl_Run report = run({"101", "--json"});
    EXPECT_EQ(report.code, 1);
    EXPECT_THAT(report.err, StartsWith("zorvanectl: The field could not be printed whole: Subscript out of "
                                       "range (failure 9). "));
    EXPECT_EQ(json::parse(report.out)["failure"],
              json::parse(R"({"number":9,"description":"Subscript out of range"})"));
    EXPECT_EQ(json::parse(report.out)["rows"], json::array());
}

TEST_F(Report_Program, AFieldThatTheTemplateDoesNotHaveWritesNothing) {
    const std::string advice =
        "zorvanectl: The template has no field 2. Its fields are 1 to 1; dump lists them.\n";
    const Ctl_Run file = run({"2", "--format", "txt", "--out", bench.path("r.txt"), "--json"});
    EXPECT_EQ(file.code, 1);
    EXPECT_EQ(file.err, advice);
    EXPECT_EQ(json::parse(file.out)["failure"]["number"], 9);
    EXPECT_FALSE(bench.exists("r.txt"));
    const Ctl_Run rows = run({"2", "--json"});
    EXPECT_EQ(rows.code, 1);
    EXPECT_THAT(rows.err, ::testing::EndsWith(advice));
    EXPECT_EQ(json::parse(rows.out)["failure"]["number"], 9);
}

TEST_F(Report_Program, WritesEachFormat) {
    const std::vector<std::pair<std::string, std::string>> beginnings = {
        {"xls", "\xD0\xCF\x11\xE0"}, {"pdf", "%PDF-"}, {"rtf", "{\\rtf1"},
        {"txt", "Zorvane\r\n"},      {"tif", "II*"},   {"html", "<!DOCTYPE html>"}};
    for (const auto& [format, beginning] : beginnings) {
        const std::string name = "report." + format;
        const Ctl_Run report = run({"--format", format, "--out", bench.path(name)});
        EXPECT_EQ(report.code, 0) << report.err;
        EXPECT_EQ(report.out, "Written: " + bench.path(name) + "\n");
        EXPECT_EQ(report.err, "");
        EXPECT_THAT(bench.bytes(name), StartsWith(beginning));
    }
}

TEST_F(Report_Program, ATerminalShowsHowManyPagesAreDone) {
    const std::string command = std::string(ZORVANECTL) + " report " + ztp + " " + config + " --out " +
                                bench.path("r.out") + " --format ";
    for (const char* format : {"tif", "pdf"}) {
        // `script` gives the program a pseudo-terminal.
        Spawned_Program program({"/usr/bin/script", "-qec", command + format, "/dev/null"});
        EXPECT_EQ(program.finish(), 0) << program.out();
        EXPECT_THAT(program.out(), HasSubstr("[------------------------------] 0 %")) << format;
        EXPECT_THAT(program.out(), HasSubstr("Written: " + bench.path("r.out")));
    }
}

TEST_F(Report_Program, AColumnOfWidth0IsHiddenButFetched) {
    config = bench.file("site.ABC", lines({"[Field_1_Default]", "ROW_1=10,On", "[Default_1_Columns]",
                                           "COL_1_WIDTH=0", "COL_2_WIDTH=800"}));
    for (const char* format : {"txt", "html", "rtf"}) {
        EXPECT_EQ(run({"--format", format, "--out", bench.path("r.out")}).code, 0);
        EXPECT_THAT(bench.bytes("r.out"), ::testing::Not(HasSubstr("Level"))) << format;
        EXPECT_THAT(bench.bytes("r.out"), HasSubstr("State")) << format;
    }
    EXPECT_EQ(json::parse(run({"1", "--json"}).out)["rows"][0], json::parse(R"(["10","On"])"));
}

TEST_F(Report_Program, PrintsOneFieldOrAll) {
    ztp = bench.file("ABC.ZTP", doubles::smallTemplate() + lines({"[CONFIGURATION_FIELDS]",
                                                                  "FIELD_2_DESC=Inputs", "FIELD_2_RC=1,1"}));
    const auto text = [&](const std::vector<std::string>& field) {
        std::vector<std::string> arguments = field;
        for (const std::string& more :
             {std::string("--format"), std::string("txt"), std::string("--out"), bench.path("r.txt")})
            arguments.push_back(more);
        EXPECT_EQ(run(arguments).code, 0);
        return bench.bytes("r.txt");
    };
    EXPECT_THAT(text({}), ::testing::AllOf(HasSubstr("Outputs"), HasSubstr("Inputs")));
    EXPECT_THAT(text({"2"}), ::testing::AllOf(::testing::Not(HasSubstr("Outputs")), HasSubstr("Inputs")));
}

TEST_F(Report_Program, TellsAFileThatCanNotBeWritten) {
    const std::string path = bench.path("missing/r.txt");
    const Ctl_Run report = run({"--format", "txt", "--out", path, "--json"});
    EXPECT_EQ(report.code, 1);
    EXPECT_EQ(json::parse(report.out),
              json::parse(R"({"output":")" + path +
                          R"(","failure":{"number":76,"description":"Path not found"}})"));
    EXPECT_THAT(report.err, HasSubstr("could not be written: Path not found (failure 76)"));
}

/// The shell counts the limit in blocks of 512 bytes.
TEST_F(Report_Program, AFullDiskLeavesTheOldFileAndNoTorso) {
    for (const char* format : {"tif", "xls", "pdf"}) {
        bench.file("r.out", "old");
        Spawned_Program program({"/bin/sh", "-c", R"(ulimit -f 4 && exec "$@")", "sh", ZORVANECTL, "report",
                                 ztp, config, "--format", format, "--out", bench.path("r.out")});
        EXPECT_EQ(program.finish(), 1) << format;
        EXPECT_EQ(bench.bytes("r.out"), "old") << format;
        EXPECT_THAT(program.err(), HasSubstr("could not be written: Path/File access error (failure 75)"));
        EXPECT_EQ(program.out(), "");
    }
    EXPECT_EQ(bench.names(), (std::vector<std::string>{"ABC.ZTP", "r.out", "site.ABC"}));
}

TEST_F(Report_Program, WhatALinkLeadsToIsReplacedWithItsPermissions) {
    const std::filesystem::path shelved = bench.file("shelved.txt", "old");
    std::filesystem::permissions(shelved, std::filesystem::perms::owner_all);
    std::filesystem::create_symlink("shelved.txt", bench.path("r.txt"));
    EXPECT_EQ(run({"--format", "txt", "--out", bench.path("r.txt")}).code, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(bench.path("r.txt")));
    EXPECT_THAT(bench.bytes("shelved.txt"), StartsWith("Zorvane"));
    EXPECT_EQ(std::filesystem::status(shelved).permissions(), std::filesystem::perms::owner_all);
}

TEST_F(Report_Program, TellsAMissingDocument) {
    config = bench.path("none.ABC");
    const Ctl_Run report = run({"--format", "txt", "--out", bench.path("r.txt")});
    EXPECT_EQ(report.code, 1);
    EXPECT_FALSE(bench.exists("r.txt"));
}

TEST_F(Report_Program, SaysOneThingOfAMissingDocument) {
    config = bench.path("none.ABC");
    const std::string once =
        "zorvanectl: " + config + ": there is no such configuration file. Check the path.\n";
    EXPECT_EQ(run({"--format", "txt", "--out", bench.path("r.txt")}).err, once);
    EXPECT_EQ(run({"9", "--format", "txt", "--out", bench.path("r.txt")}).err, once);
    const Ctl_Run rows = run({"1", "--json"});
    EXPECT_EQ(rows.err, once);
    EXPECT_EQ(json::parse(rows.out),
              json::parse(R"({"rows":[],"failure":{"number":53,"description":"File not found"}})"));
}

TEST_F(Report_Program, NeedsAFormatAndAFileOrAFieldAsJson) {
    EXPECT_EQ(run({}).code, 2);
    EXPECT_EQ(run({}).err, "zorvanectl: Name a file with --format and --out, or a FIELD with --json.\n");
    EXPECT_EQ(run({"--json"}).code, 2);
    EXPECT_EQ(run({"1"}).code, 2);
    EXPECT_EQ(run({"--out", bench.path("r.txt")}).code, 2);
    EXPECT_EQ(run({"--format", "doc", "--out", bench.path("r.doc")}).code, 2);
    EXPECT_EQ(run({"0", "--json"}).code, 2);
    EXPECT_EQ(run({"--format", "txt", "--out", bench.path("r.txt"), "--font-size", "1000"}).code, 2);
}

} // namespace
} // namespace zorvane::ctl
