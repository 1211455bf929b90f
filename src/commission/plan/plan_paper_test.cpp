// SPDX-License-Identifier: MIT
#include "commission/plan/plan_paper.h"

#include <gtest/gtest.h>

namespace zorvane::commission {
namespace {

const char* const pumpPaper = R"j({
  "version": 1,
  "template": {"path": "/t/PUMP.ZTP", "sha256": "aa"},
  "document": {"path": "/d/SITE.PUMP", "sha256": "bb"},
  "identity": {"verdict": "is"},
  "line": {"port": "/dev/ttyUSB0", "unit": 7, "settings": "9600,n,8,1"},
  "counts": {"differs": 2, "rows": 2},
  "rows": [{"register": "11"}, {"register": "13-15"}],
  "writes": [{"function": 6, "address": 11, "values": [50], "cells": [[1, 2, 2]]},
             {"function": 16, "address": 13, "values": [17985, 20000, 12832], "cells": [[1, 4, 2]]}],
  "before": {"11": 65531, "13": 20565, "14": 19792, "15": 8224},
  "run": null})j";

/// The paper with one of its members changed; the path is a JSON pointer.
std::string changed(const char* path, const char* value) {
    Json json = Json::parse(pumpPaper);
    json[Json::json_pointer(path)] = Json::parse(value);
    return json.dump();
}

TEST(PlanPaper, HoldsWhatThePlanWasMadeFromAndWhatItWouldWrite) {
    const Plan_Paper paper = parsePaper(pumpPaper).value();
    EXPECT_EQ(paper.templateFile, (Named_File{"/t/PUMP.ZTP", "aa"}));
    EXPECT_EQ(paper.document, (Named_File{"/d/SITE.PUMP", "bb"}));
    EXPECT_EQ(paper.port, "/dev/ttyUSB0");
    EXPECT_EQ(paper.unit, 7);
    EXPECT_EQ(paper.settings, "9600,n,8,1");
    ASSERT_EQ(paper.writes.size(), 2U);
    EXPECT_EQ(paper.writes[0].function, Function_Code::PresetSingleRegister);
    EXPECT_EQ(paper.writes[1].function, Function_Code::PresetMultipleRegisters);
    EXPECT_EQ(paper.writes[1].address, 13);
    EXPECT_EQ(paper.writes[1].values, (std::vector<std::uint16_t>{17985, 20000, 12832}));
    EXPECT_EQ(paper.writes[1].cells, (std::vector<Cell_Place>{{1, 4, 2}}));
    EXPECT_EQ(paper.before,
              (std::map<std::int32_t, std::uint16_t>{{11, 65531}, {13, 20565}, {14, 19792}, {15, 8224}}));
    EXPECT_EQ(paper.run, std::nullopt);
}

TEST(PlanPaper, IsReadAndWrittenTheSame) {
    EXPECT_EQ(paperJson(parsePaper(pumpPaper).value()), Json::parse(pumpPaper));
    const std::string restoring = changed("/run", R"("20261122-084005-PUMP-1-1")");
    EXPECT_EQ(paperJson(parsePaper(restoring).value()), Json::parse(restoring));
}

TEST(PlanPaper, ABlockHasAtMost123Registers) {
    EXPECT_TRUE(parsePaper(changed("/writes/1/values", Json(std::vector<int>(123, 0)).dump().c_str())));
    EXPECT_FALSE(parsePaper(changed("/writes/1/values", Json(std::vector<int>(124, 0)).dump().c_str())));
}

TEST(PlanPaper, TheHighestRegisterIsTheHighestNumber) {
    EXPECT_TRUE(parsePaper(changed("/writes/0/address", "2147483646")));
    EXPECT_FALSE(parsePaper(changed("/writes/0/address", "2147483647")));
}

TEST(PlanPaper, AnythingElseIsNoPlan) {
    const std::pair<const char*, const char*> changes[] = {
        {"/version", "2"},
        {"/template", "null"},
        {"/document", R"({"path": "/d"})"},
        {"/line/unit", R"("7")"},
        {"/line/port", "1"},
        {"/writes", R"([{"function": 6}])"},
        {"/writes/0/function", "3"},
        {"/writes/0/function", "262"},
        {"/writes/0/values", "[]"},
        {"/writes/0/values", "[50, 51]"},
        {"/writes/0/values", "[65536]"},
        {"/writes/0/values", "[-1]"},
        {"/writes/0/cells", "[[1, 2]]"},
        {"/writes/1/values", "[]"},
        {"/before", "[]"},
        {"/before", R"({"11x": 5})"},
        {"/before", R"({"": 5})"},
        {"/before", R"({"11": 65536})"},
        {"/before", R"({"11": null})"},
        {"/run", "5"},
    };
    for (const auto& [path, value] : changes)
        EXPECT_FALSE(parsePaper(changed(path, value))) << path << " " << value;
    EXPECT_FALSE(parsePaper("[]"));
    EXPECT_FALSE(parsePaper("{"));
    EXPECT_FALSE(parsePaper(""));
}

} // namespace
} // namespace zorvane::commission
