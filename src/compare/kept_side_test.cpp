// SPDX-License-Identifier: MIT
#include "compare/kept_side.h"
#include "compare/testing/pump.h"
#include "template/testing/reading_bench.h"

#include <gtest/gtest.h>

namespace zorvane::compare {
namespace {

struct Kept_Side_Of_A_Pump : testing::Test, zorvane::doubles::Reading_Bench {
    Kept_Side_Of_A_Pump() { readTemplate(doubles::pumpTemplate); }
    /// The sign of page 1's value in a row, the document on the left.
    [[nodiscard]] Sign sign(const Side& right, std::int32_t row) const {
        const Document_Side left(document);
        const auto found = comparedCell({document, section, left, right}, {1, row, 2});
        return found ? found->sign : Sign::Left_Out;
    }
    Identity_Section section;
};

TEST_F(Kept_Side_Of_A_Pump, StaysAsItWasWhileTheDocumentChanges) {
    const Kept_Side kept(document, Document_Side(document));
    EXPECT_EQ(sign(kept, 2), Sign::Equal);
    document.Fields(1).Cells(2, 2).Value = "7";
    EXPECT_EQ(sign(kept, 2), Sign::Differs);
    EXPECT_EQ(kept.at({1, 2, 2}).shown, "-5");
    document.Fields(1).Cells(2, 2).Value = "";
    EXPECT_EQ(sign(kept, 2), Sign::One_Side);
    document.Fields(1).Cells(2, 2).Value = "-5";
    EXPECT_EQ(sign(kept, 2), Sign::Equal);
    EXPECT_FALSE(kept.isController());
}

TEST_F(Kept_Side_Of_A_Pump, OutlivesWhatAControllerHeld) {
    const Kept_Side kept = [&] {
        Controller_Registers::Values values = doubles::pumpRegisters();
        values.erase(12);
        const Controller_Registers registers(values);
        return Kept_Side(document, Controller_Side(document, section, registers));
    }();
    EXPECT_TRUE(kept.isController());
    EXPECT_EQ(sign(kept, 2), Sign::Equal);
    EXPECT_EQ(sign(kept, 3), Sign::Not_Read);
    document.Fields(1).Cells(2, 2).Value = "7";
    EXPECT_EQ(sign(kept, 2), Sign::Differs);
}

TEST_F(Kept_Side_Of_A_Pump, ACellWithoutARegisterIsNoRowBesideAController) {
    const Controller_Registers registers(doubles::pumpRegisters());
    const Controller_Side controller(document, section, registers);
    const Document_Side left(document);
    EXPECT_EQ(comparedCell({document, section, left, controller}, {1, 2, 3}), std::nullopt);
    EXPECT_EQ(comparedCell({document, section, left, left}, {1, 2, 3})->sign, Sign::Equal);
}

} // namespace
} // namespace zorvane::compare
