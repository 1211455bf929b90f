// SPDX-License-Identifier: MIT
// zorvanectl apply and plan: transfers rehearsed on a register image.

#include "comm/main_form/testing/comm_bench.h"
#include "ctl/document/rehearsal.h"
#include "ctl/testing/ctl_bench.h"
#include "ctl/testing/small_model.h"

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

class Rehearsal : public testing::Test {
  protected:
    Ctl_Run run(std::vector<std::string> arguments, const std::string& registers) {
        std::vector<std::string> all = {arguments.front(), ztp, config, bench.file("r.json", registers)};
        all.insert(all.end(), arguments.begin() + 1, arguments.end());
        return bench.run(all);
    }
    json values(const Ctl_Run& run) {
        json found = json::array();
        const json model = json::parse(run.out);
        for (const json& row : model["Fields"]["1"]["Cells"])
            for (const json& cell : row)
                found.push_back(cell.value("Value", ""));
        return found;
    }

    Ctl_Bench bench;
    std::string ztp = bench.file("ABC.ZTP", doubles::smallTemplate());
    std::string config = bench.file("site.ABC", doubles::smallConfiguration());
};

TEST_F(Rehearsal, ApplyFillsEveryCellAndAMissingRegisterReadsZero) {
    const Ctl_Run applied = run({"apply", "--json"}, R"({"100": 65535, "102": 1})");
    EXPECT_EQ(applied.code, 0);
    EXPECT_THAT(applied.out, StartsWith("{\n  \"failure\": null,\n  \"template\": {"));
    EXPECT_EQ(values(applied), json({"Level", "State", "-1", "1", "0", "0"}));
}

TEST_F(Rehearsal, ApplySavesTheFilledDocument) {
    const Ctl_Run applied = run({"apply", "--save", bench.path("out.ABC")}, R"({"100": 3, "102": 1})");
    EXPECT_EQ(applied.code, 0);
    EXPECT_THAT(bench.bytes("out.ABC"), HasSubstr("ROW_1=3,On\r\nROW_2=0,0\r\n"));
    EXPECT_EQ(bench.bytes("site.ABC"), doubles::smallConfiguration());
}

TEST_F(Rehearsal, AFailureOfApplyIsKeptAndNothingIsSaved) {
    ztp = bench.file("ABC.ZTP", doubles::smallTemplate() +
                                    lines({"[FIELD_1_CONFIGURATION]", "ROWADDRESS_1=99999999999"}));
    const Ctl_Run applied = run({"apply", "--json", "--save", bench.path("out.ABC")}, "{}");
    EXPECT_EQ(applied.code, 1);
    EXPECT_EQ(json::parse(applied.out)["failure"], json::parse(R"({"number":6,"description":"Overflow"})"));
    EXPECT_EQ(json::parse(applied.out)["template"]["failure"], nullptr);
    EXPECT_EQ(applied.err,
              "zorvanectl: The registers could not all be applied: Overflow (failure 6). Look for a "
              "number that is too large for its place.\n"
              "zorvanectl: The document was not written.\n");
    EXPECT_FALSE(bench.exists("out.ABC"));
}

TEST_F(Rehearsal, PlanListsEveryWriteAndEveryTextOfPanel4) {
    const Ctl_Run planned = run({"plan", "--json"}, "{}");
    EXPECT_EQ(planned.code, 0);
    EXPECT_EQ(planned.err, "");
    EXPECT_EQ(json::parse(planned.out), json::parse(R"({"writes":[{"function":6,"address":100,"values":[10]},
                                        {"function":6,"address":101,"values":[65531]},
                                        {"function":6,"address":102,"values":[1]}],
                              "panel4":["Transferring data to controller...",
                                        "Write: 10 @100 ...Completed",
                                        "Write: -5 @101 ...Completed",
                                        "Write: 1 @102 ...Completed",
                                        "103 ...No Download",
                                        "Ready"],
                              "failure":null})"));
    EXPECT_THAT(planned.out, StartsWith("{\n  \"writes\": ["));
}

TEST_F(Rehearsal, PlanPrintsATableForPeople) {
    EXPECT_EQ(run({"plan"}, "{}").out, "Function  Register  Values\n"
                                       "6         100       10\n"
                                       "6         101       65531\n"
                                       "6         102       1\n"
                                       "3 writes\n");
}

/// Minutes of a shared register: the seconds come from the register of the current cell, wherever the walk
/// is.
class Selection : public Rehearsal {
  protected:
    void SetUp() override {
        ztp = bench.file(
            "ABC.ZTP", lines({"[PORT_CONFIGURATION]", "HOLDINGREGISTERSBLOCK_1=100-103",
                              "[CONFIGURATION_FIELDS]", "FIELD_1_DESC=Times", "FIELD_1_RC=2,2",
                              "[FIELD_1_COLUMNS]", "COL_1_MODIFIABLE=YES", "[FIELD_1_CONFIGURATION]",
                              "ROWADDRESS_1=100,101", "ROWADDRESS_2=102,103", "ROWADDRESSFORMAT_1=TIMEMM"}));
        config = bench.file("site.ABC", lines({"[FIELD_1_DEFAULT]", "ROW_1=2,0", "ROW_2=0,0"}));
    }
    json minutes(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"plan", "--json"});
        return json::parse(run(arguments, R"({"101": 7, "103": 59})").out)["writes"][0]["values"][0];
    }
};

TEST_F(Selection, StandsOnTheLastCellAfterAFill) { EXPECT_EQ(minutes({}), 120 + 59); }

TEST_F(Selection, CanBeChosen) { EXPECT_EQ(minutes({"--selection", "1,1,1"}), 120 + 7); }

TEST_F(Selection, OutsideTheTableTheDownloadWouldStop) {
    const Ctl_Run planned = run({"plan", "--json", "--selection", "1,9,9"}, "{}");
    EXPECT_EQ(planned.code, 1);
    EXPECT_EQ(json::parse(planned.out)["failure"]["number"], 9);
    EXPECT_THAT(planned.err, StartsWith("zorvanectl: The download would stop: Subscript out of range"));
}

TEST_F(Rehearsal, AMalformedRegisterFileFails) {
    const std::string file = "zorvanectl: " + bench.path("r.json") + ": ";
    EXPECT_EQ(run({"plan"}, "[1]").err,
              file + "not a JSON object of the form {\"address\": value, ...}. Correct the register file.\n");
    EXPECT_EQ(run({"plan"}, "{").code, 1);
    EXPECT_EQ(run({"plan"}, R"({"x1": 1})").err,
              file + "\"x1\" is not the number of a register. Correct the register file.\n");
    for (const char* value : {"65536", "-1", "1.5", "\"1\"", "null"})
        EXPECT_EQ(run({"apply"}, std::string(R"({"1": )") + value + "}").err,
                  file + "register 1 needs a whole number from 0 to 65535. Correct the register file.\n");
}

TEST_F(Rehearsal, AMissingRegisterFileFails) {
    const Ctl_Run planned = bench.run({"plan", ztp, config, bench.path("gone.json"), "--json"});
    EXPECT_EQ(planned.code, 1);
    EXPECT_EQ(planned.out, "");
    EXPECT_EQ(planned.err,
              "zorvanectl: " + bench.path("gone.json") + ": File not found (failure 53). Check the path.\n");
}

TEST(Plan_Of_A_Download, TellsWhichRegistersItsWritesAreBuiltFrom) {
    doubles::Comm_Bench bench;
    Cell_Table& cells = bench.addField(4, 2).Cells;
    cells(1, 2).Address = "100";
    cells(2, 2).Address = "4660/HI";
    cells(3, 2).Address = "300";
    cells(3, 2).Format = "TIMEMM";
    cells(3, 2).Value = "5";
    cells(4, 2).Address = "302";
    EXPECT_EQ(planDownload(bench.document, {}, {1, 4, 1}).asked, (std::set<std::int32_t>{302, 4660}));
}

} // namespace
} // namespace zorvane::ctl
