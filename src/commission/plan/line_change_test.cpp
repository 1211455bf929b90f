// SPDX-License-Identifier: MIT
#include "commission/plan/line_change.h"
#include "template/testing/reading_bench.h"

#include <gtest/gtest.h>

namespace zorvane::commission {
namespace {

/// A unit number (19), a baud rate from a list (20), and both again in a block (30-31).
const std::string lineTemplate = "[CONFIGURATION_FIELDS]\nFIELD_1_DESC=Line\nFIELD_1_RC=4,1\n"
                                 "[FIELD_1_COLUMNS]\nCOL_1_DESC=Value\nCOL_1_MODIFIABLE=YES\n"
                                 "[FIELD_1_CONFIGURATION]\nROWADDRESS_1=19\nROWADDRESS_2=20\n"
                                 "ROWADDRESS_3=30\nROWADDRESS_4=31\n"
                                 "[FIELD_1_MESSAGES]\nADDRESS_20=(0)4800,(1)9600 baud\n";

/// "write 0: unit 7" for each change of the line.
std::vector<std::string> changesOf(const std::vector<Plan_Write>& writes, const Identity_Section& section) {
    doubles::Reading_Bench bench;
    bench.readTemplate(lineTemplate);
    std::vector<std::string> texts;
    for (const Line_Change& change : lineChanges(bench.document, section, writes))
        texts.push_back("write " + std::to_string(change.write) + ":" +
                        (change.unit ? " unit " + std::to_string(*change.unit) : "") +
                        (change.baud ? " baud " + std::to_string(*change.baud) : ""));
    return texts;
}

Plan_Write single(std::int32_t address, std::uint16_t value, std::int32_t row) {
    return {Function_Code::PresetSingleRegister, address, {value}, {Part::Whole}, {{1, row, 1}}};
}

Identity_Section linked() {
    Identity_Section section;
    section.link = {{"unit", 19}, {"baud", 20}};
    return section;
}

using Texts = std::vector<std::string>;

TEST(LineChanges, AreThoseOfTheRegistersThatTheTemplateNames) {
    EXPECT_EQ(changesOf({single(30, 5, 3), single(19, 7, 1)}, linked()), Texts{"write 1: unit 7"});
}

TEST(LineChanges, AListsCodeMeansTheNumberOfItsText) {
    EXPECT_EQ(changesOf({single(20, 1, 2)}, linked()), Texts{"write 0: baud 9600"});
    EXPECT_EQ(changesOf({single(20, 0, 2)}, linked()), Texts{"write 0: baud 4800"});
}

TEST(LineChanges, AUnitGoesFrom1To247AndABaudRateFrom300) {
    EXPECT_EQ(changesOf({single(19, 1, 1), single(19, 247, 1)}, linked()),
              (Texts{"write 0: unit 1", "write 1: unit 247"}));
    EXPECT_EQ(changesOf({single(19, 0, 1), single(19, 248, 1)}, linked()), (Texts{"write 0:", "write 1:"}))
        << "it changes, and nobody knows to what";
    Identity_Section section;
    section.link = {{"baud", 30}};
    EXPECT_EQ(changesOf({single(30, 300, 3), single(30, 299, 3)}, section),
              (Texts{"write 0: baud 300", "write 1:"}));
}

TEST(LineChanges, OneWriteMayChangeUnitAndBaudRate) {
    Identity_Section section;
    section.link = {{"unit", 30}, {"baud", 31}};
    const Plan_Write block{Function_Code::PresetMultipleRegisters,
                           30,
                           {7, 9600},
                           {Part::Whole, Part::Whole},
                           {{1, 3, 1}, {1, 4, 1}}};
    EXPECT_EQ(changesOf({block}, section), (Texts{"write 0: unit 7", "write 0: baud 9600"}));
}

} // namespace
} // namespace zorvane::commission
