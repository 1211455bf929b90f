// SPDX-License-Identifier: MIT
// zorvanectl check: what it prints, and how it ends.

#include "ctl/testing/ctl_bench.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace zorvane::ctl {
namespace {

using doubles::Ctl_Bench;
using doubles::Ctl_Run;
using doubles::lines;
using nlohmann::json;
using testing::HasSubstr;
using testing::StartsWith;

/// A template in which nothing is found, with one line more in front.
std::string templateWith(const std::string& line) {
    return lines(
        {"[HARDWARE]", line, "CONTROLLER=ABC", "[PORT_CONFIGURATION]", "HOLDINGREGISTERSBLOCK_1=1-9"});
}

TEST(Check, PrintsFindingsAsACompilerDoes) {
    Ctl_Bench bench;
    const std::string ztp = bench.file("ABC.ZTP", templateWith("CONTROLER=\xC4"));
    const Ctl_Run run = bench.run({"check", ztp});
    EXPECT_EQ(run.out, ztp + ":2: warning: unknown key \"CONTROLER\" in [HARDWARE] [key-unknown]\n"
                             "    | CONTROLER=\xC3\x84\n"
                             "    The line has no effect.\n"
                             "    Write CONTROLLER.\n"
                             "0 errors, 1 warning\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.code, 0) << "warnings only";
}

TEST(Check, AnErrorEndsWith1) {
    Ctl_Bench bench;
    const std::string ztp =
        bench.file("ABC.ZTP", templateWith("[") + lines({"[CONFIGURATION_COLUMNS]", "COL_1_WIDTH=1"}));
    const Ctl_Run run = bench.run({"check", ztp});
    EXPECT_THAT(
        run.out,
        HasSubstr(ztp + ":2: error: a section header without a name: reading stops here [header-end]\n"));
    EXPECT_THAT(run.out, HasSubstr(ztp + ":7: error: the upper grid has no columns yet [before-count]\n"));
    EXPECT_EQ(run.code, 1);
}

TEST(Check, AGoodTemplateEndsWith0) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run({"check", bench.file("ABC.ZTP", templateWith("; nothing"))});
    EXPECT_EQ(run.out, "0 errors, 0 warnings\n");
    EXPECT_EQ(run.code, 0);
}

TEST(Check, JsonIsOneListForAllFiles) {
    Ctl_Bench bench;
    const std::string abc = bench.file("ABC.ZTP", templateWith("NAME=\xC4"));
    const std::string start =
        bench.file("kvrt.ZTP", templateWith("DOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=1-9"));
    const Ctl_Run run = bench.run({"check", abc, start, "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(json::parse(run.out), json::parse(R"([
        {"file":")" + abc + R"(","line":2,"severity":"warning","code":"key-unknown",
         "text":"unknown key \"NAME\" in [HARDWARE]. The line has no effect. The known ones are CONTROLLER, DOWNLOAD_#_MULTIPLEREGISTERBLOCKNUMERIC, DOWNLOAD_#_MULTIPLEREGISTERBLOCKMESSAGELIST or DOWNLOAD_#_MULTIPLEREGISTERBLOCKASCII."},
        {"file":")" + start + R"(","line":2,"severity":"warning","code":"controller-order",
         "text":"a DOWNLOAD line in front of CONTROLLER. The block is kept without the controller's name. Write CONTROLLER as the first line of [HARDWARE]."},
        {"file":")" + start + R"(","line":2,"severity":"error","code":"default-download",
         "text":"a DOWNLOAD line in the template that the window starts with. The window reads this file at its start with no room for such blocks, and ends. Put the controller into a template of another name."}
    ])"));
}

TEST(Check, NothingFoundIsAnEmptyList) {
    Ctl_Bench bench;
    EXPECT_EQ(bench.run({"check", "--json", bench.file("ABC.ZTP", templateWith(""))}).out, "[]\n");
}

TEST(Check, AMissingFileIsToldAndTheOthersAreChecked) {
    Ctl_Bench bench;
    const std::string ztp = bench.file("ABC.ZTP", templateWith("NAME=x"));
    const Ctl_Run run = bench.run({"check", bench.path("GONE.ZTP"), ztp});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err,
              "zorvanectl: " + bench.path("GONE.ZTP") + ": File not found (failure 53). Check the path.\n");
    EXPECT_THAT(run.out, StartsWith(ztp + ":2: warning: unknown key \"NAME\""));
    EXPECT_THAT(run.out, testing::EndsWith("1 error, 1 warning\n"));
}

TEST(Check, AFileThatCannotBeReadIsInTheJsonToo) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run({"check", bench.path(""), "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, StartsWith("zorvanectl: " + bench.path("")));
    const json found = json::parse(run.out);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0]["code"], "unreadable");
    EXPECT_EQ(found[0]["line"], 0);
    EXPECT_EQ(found[0]["severity"], "error");
}

TEST(Check, ListsTheCodes) {
    Ctl_Bench bench;
    const Ctl_Run run = bench.run({"check", "--list"});
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.out, testing::StartsWith("Code                Severity  Meaning\n"));
    EXPECT_THAT(
        run.out,
        HasSubstr(
            "\nkey-blank           warning   a blank in front of a key, or between it and the \"=\"\n"));
    const json codes = json::parse(bench.run({"check", "--list", "--json"}).out);
    EXPECT_EQ(codes[0], json::parse(R"({"code":"byte-order-mark","severity":"error",
                                        "text":"a byte order mark at the beginning of the file"})"));
}

/// A template of one page with a number from 800 to 1400 and a remark.
std::string templateOfRegulation() {
    return lines({"[HARDWARE]",
                  "CONTROLLER=ABC",
                  "[PORT_CONFIGURATION]",
                  "HOLDINGREGISTERSBLOCK_1=1-9",
                  "[CONFIGURATION_COLUMNS]",
                  "CONFIGURATION_NC=1",
                  "COL_1_WIDTH=9",
                  "[CONFIGURATION_FIELDS]",
                  "FIELD_1_DESC=Regulation",
                  "FIELD_1_RC=2,3",
                  "[FIELD_1_COLUMNS]",
                  "COL_1_DESC=Setting",
                  "COL_1_WIDTH=9",
                  "COL_2_DESC=Value",
                  "COL_2_WIDTH=9",
                  "COL_2_TYPE=NUMERIC",
                  "COL_2_MODIFIABLE=YES",
                  "COL_3_DESC=Remark",
                  "COL_3_WIDTH=9",
                  "COL_3_TYPE=TEXT",
                  "COL_3_MODIFIABLE=YES",
                  "[FIELD_1_CONFIGURATION]",
                  "ROWADDRESS_1=,1,",
                  "ROWADDRESS_2=,2,",
                  "ROWADDRESSNUMERICMINVALUE_1=,800",
                  "ROWADDRESSNUMERICMAXVALUE_1=,1400",
                  "[CONFIGURATION_DEFAULT]",
                  "FIELD_1=Regulation",
                  "[FIELD_1_DEFAULT]",
                  "ROW_1=Set point,1125,",
                  "ROW_2=Drop,5,"});
}

TEST(Check, ANameBehindATemplateIsADocumentOfIt) {
    Ctl_Bench bench;
    const std::string ztp = bench.file("ABC.ZTP", templateOfRegulation());
    const std::string good = bench.file("good.ABC", lines({"[Field_1_Default]", "ROW_1=Set point,1400,x"}));
    const std::string bad = bench.file("bad.ABC", lines({"[Field_1_Default]", "ROW_1=Set point,1401,x"}));
    const Ctl_Run run = bench.run({"check", ztp, good, bad});
    EXPECT_EQ(run.out,
              bad + ":2: error: \"1401\" is outside the limits 800 to 1400 (Regulation/Set point/Value) "
                    "[value-limits]\n"
                    "    | ROW_1=Set point,1401,x\n"
                    "    It is read all the same, and a download writes it; at the window nobody could "
                    "enter it.\n"
                    "    Write a value from 800 to 1400.\n"
                    "1 error, 0 warnings\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(bench.run({"check", ztp, good}).out, "0 errors, 0 warnings\n");
}

TEST(Check, TheJsonOfADocumentIsThatOfATemplate) {
    Ctl_Bench bench;
    const std::string ztp = bench.file("abc.ztp", templateOfRegulation());
    const std::string bad =
        bench.file("bad.ABC", lines({"[Field_1_Default]", "ROW_1=Set point,1125,112,5 V"}));
    const Ctl_Run run = bench.run({"check", ztp, bad, "--json"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(json::parse(run.out), json::parse(R"([
        {"file":")" + bad + R"(","line":2,"severity":"error","code":"text-comma",
         "text":"4 values, where Regulation has 3 columns: the text \"112,5 V\" has a comma in it. A comma ends a value. Reading stops in this line: its other values and all lines after it aren't read. Write another sign in place of the comma: a file can't hold one."}
    ])"));
}

TEST(Check, EachDocumentBelongsToTheTemplateInFrontOfIt) {
    Ctl_Bench bench;
    const std::string abc = bench.file("ABC.ZTP", templateOfRegulation());
    const std::string small = bench.file("SMALL.ZTP", templateWith("; nothing"));
    const std::string document =
        bench.file("site.ABC", lines({"[Field_1_Default]", "ROW_1=Set point,1125,"}));
    EXPECT_EQ(bench.run({"check", small, abc, document}).code, 0);
    EXPECT_THAT(bench.run({"check", abc, small, document}).out,
                StartsWith(document + ":2: error: page 1, which the template doesn't have [page-unknown]\n"));
}

TEST(Check, ATemplateWithoutAFolderIsTheOneBesideTheProgram) {
    Ctl_Bench bench;
    bench.file("BESIDE_THE_PROGRAM.ZTP", templateOfRegulation());
    const std::string bad = bench.file("bad.ABC", lines({"[Field_1_Default]", "ROW_1=Set point,1401,x"}));
    const Ctl_Run run = bench.run({"check", "BESIDE_THE_PROGRAM.ZTP", bad, "--app-dir", bench.path("")});
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, StartsWith(bad + ":2: error: \"1401\" is outside the limits 800 to 1400"));
    EXPECT_THAT(run.out, testing::EndsWith("1 error, 0 warnings\n"));
}

TEST(Check, ADocumentOnWhichReadingStopsEndsWith1) {
    Ctl_Bench bench;
    const std::string ztp = bench.file("ABC.ZTP", templateOfRegulation());
    const std::string bad = bench.file("bad.ABC", lines({"[Default_1_Columns]", "COL_4_WIDTH=5"}));
    const Ctl_Run run = bench.run({"check", ztp, bad});
    EXPECT_EQ(run.out,
              bad + ":2: error: reading stops here: Subscript out of range (failure 9) [reading-stops]\n"
                    "    | COL_4_WIDTH=5\n"
                    "    The rest of the file isn't read.\n"
                    "    Look for a number that is too large, or for one of a field, row or column that "
                    "isn't there.\n"
                    "1 error, 0 warnings\n");
    EXPECT_EQ(run.code, 1);
}

TEST(Check, AMissingDocumentIsTold) {
    Ctl_Bench bench;
    const std::string ztp = bench.file("ABC.ZTP", templateOfRegulation());
    const Ctl_Run run = bench.run({"check", ztp, bench.path("gone.ABC")});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err,
              "zorvanectl: " + bench.path("gone.ABC") + ": File not found (failure 53). Check the path.\n");
}

TEST(Check, WithoutATemplateOrWithTooMuchIsWrongUsage) {
    Ctl_Bench bench;
    EXPECT_EQ(bench.run({"check"}).code, 2);
    EXPECT_EQ(bench.run({"check", "--list", "ABC.ZTP"}).code, 2);
    EXPECT_EQ(bench.run({"check", "ABC.ZTP", "--lines"}).code, 2);
}

} // namespace
} // namespace zorvane::ctl
