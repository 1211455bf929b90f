// SPDX-License-Identifier: MIT
// "identify" and "compare", on files and on a controller without a line.

#include "compare/testing/pump.h"
#include "compare/testing/scripted_reader.h"
#include "ctl/compare/compare_subcommand.h"
#include "ctl/compare/identify_subcommand.h"
#include "ctl/program.h"
#include "ctl/testing/ctl_bench.h"
#include "ctl/text/json_text.h"
#include "template/services/native_files.h"
#include "template/testing/recording_link_notice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace zorvane::ctl {
namespace {

using compare::doubles::pumpRegisters;
using compare::doubles::pumpTemplate;
using compare::doubles::Scripted_Reader;
using doubles::Ctl_Bench;
using doubles::Ctl_Run;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

/// What the calls of the running test see of a line.
struct Scripted_World {
    Scripted_Reader reader;
    doubles::Recording_Link_Notice notices;
    std::string refusal; ///< of the port
};

Scripted_World* world = nullptr;

class Scripted_Line : public Controller_Line {
  public:
    [[nodiscard]] Link_Notice& notices() override { return world->notices; }
    [[nodiscard]] std::string open() override { return world->refusal; }
    [[nodiscard]] Unit_Reader& reader() override { return world->reader; }
};

std::unique_ptr<Controller_Line> makeLine(const Port_Settings& /*settings*/) {
    return std::make_unique<Scripted_Line>();
}

class CompareCalls : public ::testing::Test {
  protected:
    CompareCalls() {
        world = &here;
        here.reader.registers = pumpRegisters();
        ztp = bench.file("PUMP.ZTP", pumpTemplate);
        config = bench.file("site.PUMP", "");
    }
    ~CompareCalls() override { world = nullptr; }

    [[nodiscard]] static Ctl_Run run(const std::vector<std::string>& arguments) {
        Native_Files files;
        std::ostringstream out;
        std::ostringstream err;
        const std::vector<Subcommand_Entry> calls = {
            {"identify", "", [] { return makeIdentifySubcommand(makeLine); }},
            {"compare", "", [] { return makeCompareSubcommand(makeLine); }}};
        const int code = runProgram(calls, arguments, {files, out, err, "/opt/zorvane", false, nullptr});
        return {code, out.str(), err.str()};
    }
    [[nodiscard]] Ctl_Run compare(std::vector<std::string> options) const {
        options.insert(options.begin(), {"compare", ztp, config});
        return run(options);
    }
    [[nodiscard]] Json compareJson(std::vector<std::string> options, int code) const {
        options.emplace_back("--json");
        const Ctl_Run result = compare(options);
        EXPECT_EQ(result.code, code) << result.err;
        return Json::parse(result.out);
    }

    Ctl_Bench bench;
    Scripted_World here;
    std::string ztp;
    std::string config;
};

TEST_F(CompareCalls, AFileWithoutValuesIsSaidToBeTheTemplates) {
    config = bench.file("site.PUMP", "[Field_1_Default]\r\nROW_1=Set point,50\r\n");
    const std::string other = bench.file("other.PUMP", "no document\r\n");
    const std::string note =
        "zorvanectl: " + other + " holds no values: all values are the template's own.\n";
    EXPECT_EQ(compare({"--with", other}).err, note);
    EXPECT_EQ(compare({"--factory"}).err, "");
    config = other;
    EXPECT_EQ(compare({"--factory"}).err, note);
}

/// A script's variable that isn't set.
TEST_F(CompareCalls, AnEmptyNameOfTheDocumentIsNoDocument) {
    config = "";
    const Ctl_Run result = compare({"--factory", "--json"});
    EXPECT_EQ(result.code, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.err, HasSubstr("CONFIG: the value is empty"));
}

TEST_F(CompareCalls, ADocumentEqualsTheFactoryValuesThatItHas) {
    const Ctl_Run result = compare({"--factory"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out, "Left:  " + config + "\nRight: factory values\n24 values: 24 equal\n");
}

TEST_F(CompareCalls, ADifferenceIsListedAndEndsWith3) {
    const std::string other = bench.file("other.PUMP", "[Field_1_Default]\r\nROW_2=Level,7,\r\n");
    const Ctl_Run result = compare({"--with", other});
    EXPECT_EQ(result.code, 3);
    EXPECT_EQ(result.out, "Left:  " + config + "\nRight: " + other +
                              "\n"
                              "   Page      Name   Column  Register  Left  Right\n"
                              "\xE2\x89\xA0  Settings  Level  Value   11        -5    7\n"
                              "!  Settings  Level  Remark            in %  -\n"
                              "24 values: 1 differs, 1 on one side only, 22 equal\n");
}

TEST_F(CompareCalls, TheJsonHasEachRowWithItsPlaceTextsAndRegisters) {
    const std::string other = bench.file("other.PUMP", "[Field_1_Default]\r\nROW_4=Name,PIPE,\r\n");
    const Json json = compareJson({"--with", other}, 3);
    EXPECT_EQ(json["left"], config);
    EXPECT_EQ(json["right"], other);
    EXPECT_EQ(json["counts"].dump(), R"({"equal":23,"differs":1,"one_side":0,"read_only":0,"changing":0,)"
                                     R"("not_read":0,"left_out":0,"rows":24})");
    ASSERT_EQ(json["rows"].size(), 1U);
    EXPECT_EQ(json["rows"][0].dump(),
              R"({"field":1,"row":4,"column":2,"page":"Settings","name":"Name","heading":"Value",)"
              R"("register":"13-15","left":"PUMP","right":"PIPE","left_raw":[20565,19792,8224],)"
              R"("right_raw":[20553,20549,8224],"sign":"differs"})");
}

TEST_F(CompareCalls, ARegisterFileIsAController) {
    const std::string registers = bench.file("image.json", R"({"10": 2, "11": 7, "30": 22})");
    const Json json = compareJson({"--registers", registers, "--all"}, 3);
    EXPECT_EQ(json["counts"].dump(), R"({"equal":1,"differs":1,"one_side":0,"read_only":1,"changing":0,)"
                                     R"("not_read":9,"left_out":0,"rows":12})");
    EXPECT_EQ(json["rows"][1].dump(),
              R"({"field":1,"row":2,"column":2,"page":"Settings","name":"Level","heading":"Value",)"
              R"("register":"11","left":"-5","right":"7","left_raw":65531,"right_raw":7,"sign":"differs"})");
    EXPECT_EQ(json["rows"][2]["right"], nullptr);
    EXPECT_EQ(json["rows"][2]["right_raw"], nullptr);
    EXPECT_EQ(json["rows"][2]["sign"], "not_read");
}

TEST_F(CompareCalls, WhatWasNotReadEndsWith7WhenNothingDiffers) {
    const std::string registers = bench.file("image.json", R"({"10": 2, "30": 22})");
    EXPECT_EQ(compare({"--registers", registers}).code, 7);
}

TEST_F(CompareCalls, FilterAndAllOnlyChooseWhatIsListed) {
    const std::string registers = bench.file("image.json", R"({"10": 2, "11": 7, "30": 22})");
    const std::vector<std::vector<std::string>> ways = {
        {}, {"--all"}, {"--filter", "reg:10"}, {"--filter", "page:readings is:readonly"}};
    const std::vector<std::size_t> listed = {11, 12, 0, 1};
    for (std::size_t i = 0; i < ways.size(); ++i) {
        std::vector<std::string> options = {"--registers", registers};
        options.insert(options.end(), ways[i].begin(), ways[i].end());
        const Json json = compareJson(options, 3);
        EXPECT_EQ(json["counts"]["rows"], 12);
        EXPECT_EQ(json["rows"].size(), listed[i]);
    }
    EXPECT_EQ(compareJson({"--registers", registers, "--filter", "is:equal"}, 3)["rows"].size(), 1U);
}

TEST_F(CompareCalls, AControllerIsReadTwiceAndNothingIsWritten) {
    here.reader.before = [this] { ++here.reader.registers[30]; };
    const Json json = compareJson({"--port", "ttyS9"}, 0);
    EXPECT_THAT(here.reader.requests,
                ElementsAre("1: 10-20", "1: 30-30", "pause 1800 ms", "1: 10-20", "1: 30-30"));
    EXPECT_EQ(json["right"], "controller on ttyS9, unit 1");
    EXPECT_EQ(json["counts"].dump(), R"({"equal":11,"differs":0,"one_side":0,"read_only":0,"changing":1,)"
                                     R"("not_read":0,"left_out":0,"rows":12})");
    EXPECT_EQ(json["rows"][0]["sign"], "changing");
}

TEST_F(CompareCalls, WhoTheControllerIsIsANote) {
    ztp = bench.file("PUMP.ZTP", pumpTemplate + "[IDENTITY]\nREGISTER_1=19\nVALUE_1=1\n");
    EXPECT_EQ(compare({"--port", "ttyS9"}).err, "zorvanectl: The controller at unit 1 is a PUMP.\n");
    here.reader.registers[19] = 2;
    const Ctl_Run wrong = compare({"--port", "ttyS9", "--slave", "7"});
    EXPECT_EQ(wrong.err, "zorvanectl: The controller at unit 7 isn't a PUMP.\n");
    EXPECT_EQ(wrong.code, 0) << "the unit number is read only";
    EXPECT_EQ(here.reader.requests.back(), "7: 30-30");
}

TEST_F(CompareCalls, ASilentControllerEndsWith7) {
    here.reader.ends = {{10, Unit_End::Silent}, {30, Unit_End::Silent}};
    const Json json = compareJson({"--port", "ttyS9"}, 7);
    EXPECT_EQ(json["counts"]["not_read"], 12);
}

TEST_F(CompareCalls, ANoteSaysThatNobodyAnswers) {
    const std::string note =
        "zorvanectl: Nobody answers. Check the cable, the port, its settings and the slave number.\n";
    here.reader.ends = {{10, Unit_End::Silent}, {30, Unit_End::Silent}};
    EXPECT_THAT(compare({"--port", "ttyS9"}).err, HasSubstr(note));
    const Ctl_Run silent = run({"identify", ztp, "--port", "ttyS9"});
    EXPECT_EQ(silent.code, 7);
    EXPECT_EQ(silent.err, note);
    here.reader.ends = {{10, Unit_End::Silent}};
    EXPECT_THAT(compare({"--port", "ttyS9"}).err, Not(HasSubstr(note)));
    EXPECT_EQ(run({"identify", ztp, "--port", "ttyS9"}).err, "");
}

TEST_F(CompareCalls, WhatStopsAComparisonEndsWith1AndStillPrintsAnObject) {
    here.refusal = "The serial port ttyS9 can't be opened. No such port.";
    Json json = compareJson({"--port", "ttyS9"}, 1);
    EXPECT_EQ(json["failure"], here.refusal);
    EXPECT_EQ(json["counts"]["rows"], 0);

    here.refusal.clear();
    here.reader.ends = {{10, Unit_End::PortLost}};
    EXPECT_THAT(compareJson({"--port", "ttyS9"}, 1)["failure"], HasSubstr("The port was lost: told so."));
    here.reader.ends = {{10, Unit_End::Cancelled}};
    EXPECT_THAT(compareJson({"--port", "ttyS9"}, 1)["failure"], HasSubstr("Nothing was written."));
    EXPECT_THAT(compareJson({"--with", bench.path("none.PUMP")}, 1)["failure"], HasSubstr("none.PUMP"));
    EXPECT_THAT(compareJson({"--registers", bench.path("none.json")}, 1)["failure"], HasSubstr("none.json"));
    ztp = bench.path("none.ZTP");
    EXPECT_THAT(compareJson({"--factory"}, 1)["failure"], HasSubstr("none.ZTP"));
}

TEST_F(CompareCalls, WhatIsMissingIsSaidOnce) {
    const std::string none = bench.path("none.PUMP");
    EXPECT_EQ(compare({"--with", none}).err,
              "zorvanectl: " + none + ": there is no such configuration file. Check the path.\n");
    const std::string json = bench.path("none.json");
    EXPECT_EQ(compare({"--registers", json}).err,
              "zorvanectl: " + json + ": File not found (failure 53). Check the path.\n");
    EXPECT_EQ(compareJson({"--registers", json}, 1)["failure"],
              json + ": File not found (failure 53). Check the path.");
    const std::string wide = bench.file("wide.PUMP", "[Field_1_Default]\r\nROW_2=Level,7,in %,too,many\r\n");
    EXPECT_EQ(compare({"--with", wide}).err,
              "zorvanectl: " + wide +
                  ", line 2: more values than the template has columns. The file was "
                  "written for another template; this line's other values and the lines "
                  "after it were not read. Choose the template that fits, or try "
                  "zorvanectl update.\n");
    ztp = bench.path("none.ZTP");
    const std::string missing = "zorvanectl: " + ztp + ": there is no such template. Check the path.\n";
    EXPECT_EQ(compare({"--factory"}).err, missing);
    EXPECT_EQ(compare({"--port", "ttyS9"}).err, missing);
    EXPECT_EQ(run({"identify", ztp, "--port", "ttyS9"}).err, missing);
}

TEST_F(CompareCalls, AnythingElseThanOneOtherSideEndsWith2) {
    EXPECT_EQ(compare({}).code, 2);
    EXPECT_EQ(compare({"--factory", "--port", "ttyS9"}).code, 2);
    EXPECT_EQ(compare({"--factory", "--filter", "is:wrong"}).code, 2);
    EXPECT_EQ(compare({"--port", "ttyS9", "--slave", "300"}).code, 2);
    EXPECT_EQ(compare({}).out, "");
}

// identify

TEST_F(CompareCalls, IdentifyAsksForTheMarksAndEndsWith0WhereTheyFit) {
    ztp = bench.file("PUMP.ZTP", pumpTemplate + "[IDENTITY]\nTEXTAT_1=13-15\nIS_1=PUMP\nWHAT_1=Name\n"
                                                "SERIAL=18\nFIRMWARE=19\n");
    const Ctl_Run result = run({"identify", ztp, "--port", "ttyS9", "--json"});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(Json::parse(result.out).dump(),
              R"({"verdict":"is","model":"PUMP","unit":1,"serial":"40000","firmware":"1","evidence":[)"
              R"({"register":"13-15","what":"Name","expected":"PUMP","found":"PUMP","result":"fits"}]})");
    EXPECT_THAT(here.reader.requests, ElementsAre("1: 13-19"));
    EXPECT_EQ(run({"identify", ztp, "--port", "ttyS9"}).out, "The controller at unit 1 is a PUMP.\n"
                                                             "Serial number: 40000\n"
                                                             "Firmware: 1\n"
                                                             "Register  What  Expected  Found\n"
                                                             "13-15     Name  PUMP      PUMP   fits\n");
}

TEST_F(CompareCalls, IdentifyEndsWith5ForAnotherController) {
    ztp = bench.file("PUMP.ZTP", pumpTemplate + "[IDENTITY]\nREGISTER_1=19\nVALUE_1=207\n");
    const Ctl_Run result = run({"identify", ztp, "--port", "ttyS9", "--slave", "3", "--json"});
    EXPECT_EQ(result.code, 5);
    EXPECT_EQ(Json::parse(result.out).dump(),
              R"({"verdict":"isn't","model":"PUMP","unit":3,"serial":null,"firmware":null,"evidence":[)"
              R"({"register":"19","what":"","expected":"207","found":"1","result":"doesn't fit"}]})");
}

TEST_F(CompareCalls, IdentifyEndsWith7WhereItCantTell) {
    ztp = bench.file("PUMP.ZTP", pumpTemplate + "[IDENTITY]\nREGISTER_1=99\nVALUE_1=207\n");
    const Ctl_Run result = run({"identify", ztp, "--port", "ttyS9", "--json"});
    EXPECT_EQ(result.code, 7);
    const Json json = Json::parse(result.out);
    EXPECT_EQ(json["verdict"], "can't tell");
    EXPECT_EQ(json["evidence"].dump(),
              R"([{"register":"99","what":"","expected":"207","found":null,"result":"not read"}])");
    EXPECT_EQ(run({"identify", ztp, "--port", "ttyS9"}).out,
              "It can't be told whether the controller at unit 1 is a PUMP.\n"
              "Register  What  Expected  Found\n"
              "99              207       Illegal data address (exception 2)  not read\n");
}

TEST_F(CompareCalls, IdentifyJudgesATemplateWithoutTheSectionByItsCells) {
    EXPECT_EQ(run({"identify", ztp, "--port", "ttyS9"}).code, 7);
    here.reader.registers[10] = 9;
    here.reader.registers[11] = 91;
    here.reader.registers[12] = 40000;
    EXPECT_EQ(run({"identify", ztp, "--port", "ttyS9"}).code, 5);
}

TEST_F(CompareCalls, IdentifyEndsWith1WhereItCantAsk) {
    here.refusal = "The serial port ttyS9 can't be opened. No such port.";
    const Ctl_Run result = run({"identify", ztp, "--port", "ttyS9", "--json"});
    EXPECT_EQ(result.code, 1);
    const Json json = Json::parse(result.out);
    EXPECT_EQ(json["verdict"], "can't tell");
    EXPECT_EQ(json["failure"], here.refusal);
    EXPECT_EQ(result.err, "zorvanectl: " + here.refusal + "\n");
    here.refusal.clear();
    EXPECT_EQ(run({"identify", bench.path("none.ZTP"), "--port", "ttyS9"}).code, 1);
    EXPECT_EQ(run({"identify", ztp}).code, 2);
    EXPECT_EQ(run({"identify", ztp, "--port", "ttyS9", "--slave", "0"}).code, 2);
}

} // namespace
} // namespace zorvane::ctl
