// SPDX-License-Identifier: MIT
#include "commission/plan/comparison_json.h"
#include "compare/testing/pump.h"

#include <gtest/gtest.h>

namespace zorvane::commission {
namespace {

class Comparison_Json : public ::testing::Test {
  protected:
    Comparison_Json() { bench.readTemplate(compare::doubles::pumpTemplate); }

    [[nodiscard]] compare::Comparison withController(const compare::Controller_Registers::Values& values) {
        registers = compare::Controller_Registers(values);
        const compare::Document_Side left(bench.document);
        const compare::Controller_Side right(bench.document, identity, registers);
        return compare::comparisonOf({bench.document, identity, left, right});
    }

    zorvane::doubles::Reading_Bench bench;
    Identity_Section identity;
    compare::Controller_Registers registers;
};

TEST_F(Comparison_Json, ARowHasWhatBothSidesShowAndWhatTheirRegistersHold) {
    bench.cell(1, 1, 1).Value = "\xC4nderung"; // in Windows-1252
    auto values = compare::doubles::pumpRegisters();
    values[10] = 1;
    values[13] = 0x4C55;
    values.erase(11);
    const compare::Comparison comparison = withController(values);
    EXPECT_EQ(rowJson(comparison.rows.at(0)),
              Json::parse(R"j({"field": 1, "row": 1, "column": 2, "page": "Settings", "name": "Änderung",
                  "heading": "Value", "register": "10", "left": "Auto", "right": "On", "left_raw": 2,
                  "right_raw": 1, "sign": "differs"})j"));
    EXPECT_EQ(rowJson(comparison.rows.at(1)),
              Json::parse(R"j({"field": 1, "row": 2, "column": 2, "page": "Settings", "name": "Level",
                  "heading": "Value", "register": "11", "left": "-5", "right": null, "left_raw": 65531,
                  "right_raw": null, "sign": "not_read"})j"));
    EXPECT_EQ(rowJson(comparison.rows.at(3)),
              Json::parse(R"j({"field": 1, "row": 4, "column": 2, "page": "Settings", "name": "Name",
                  "heading": "Value", "register": "13-15", "left": "PUMP", "right": "LUMP  ",
                  "left_raw": [20565, 19792, 8224], "right_raw": [19541, 19792, 8224],
                  "sign": "differs"})j"));
}

TEST_F(Comparison_Json, TheCountsAreOfAllRows) {
    auto values = compare::doubles::pumpRegisters();
    values[10] = 1;
    values[19] = 17;
    values.erase(11);
    bench.cell(1, 3, 2).Value = "";
    EXPECT_EQ(countsJson(withController(values).counts),
              Json::parse(R"({"equal": 8, "differs": 1, "one_side": 1, "read_only": 1, "changing": 0,
                  "not_read": 1, "left_out": 0, "rows": 12})"));
}

} // namespace
} // namespace zorvane::commission
