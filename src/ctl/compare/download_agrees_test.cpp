// SPDX-License-Identifier: MIT
// What a comparison takes for equal is what a download leaves: of all models, factory values and examples.

#include "compare/comparison.h"
#include "ctl/document/rehearsal.h"
#include "template/services/native_files.h"
#include "values/numbers.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane::ctl {
namespace {

struct Shipped_Document {
    std::string ztp;
    std::string configuration;
};

void PrintTo(const Shipped_Document& shipped, std::ostream* out) { *out << shipped.configuration; }

class EachShippedDocument : public testing::TestWithParam<Shipped_Document> {
  protected:
    EachShippedDocument()
        : opened(openDocument(
              {files, folder, folder + "/" + GetParam().ztp, folder + "/" + GetParam().configuration})) {}

    /// A controller with these values in all registers of the template's blocks.
    [[nodiscard]] compare::Controller_Registers filled(std::uint16_t value) const {
        compare::Controller_Registers registers;
        const Declara_Zorvane& document = opened.document;
        for (std::int32_t i = 1; i <= document.Holding_Block_Count; ++i)
            for (std::int32_t at = document.Holding_Blocks(i).First_Address;
                 at <= document.Holding_Blocks(i).Last_Address; ++at)
                registers.take(at, {value});
        return registers;
    }

    static inline const std::string folder = ZORVANE_MODELS;
    Native_Files files;
    Opened_Document opened;
};

INSTANTIATE_TEST_SUITE_P(Models, EachShippedDocument,
                         testing::Values(Shipped_Document{"kvrt.ztp", "DEFAULT.KVRT"},
                                         Shipped_Document{"kvrt.ztp", "EXAMPLE.KVRT"},
                                         Shipped_Document{"KVRT100.ZTP", "DEFAULT.KVRT100"},
                                         Shipped_Document{"KVRT100.ZTP", "EXAMPLE.KVRT100"},
                                         Shipped_Document{"KVRT207D.ZTP", "DEFAULT.KVRT207D"},
                                         Shipped_Document{"KVRT207D.ZTP", "EXAMPLE.KVRT207D"},
                                         Shipped_Document{"R7702-16.ZTP", "DEFAULT.R7702-16"},
                                         Shipped_Document{"R7702-16.ZTP", "EXAMPLE.R7702-16"}),
                         [](const auto& shipped) {
                             std::string name;
                             for (const char c : shipped.param.configuration)
                                 if (c != '.' && c != '-') name += c;
                             return name;
                         });

TEST_P(EachShippedDocument, EqualsAControllerAfterItsDownload) {
    ASSERT_TRUE(opened.whole());
    for (const std::uint16_t before : {std::uint16_t{0}, std::uint16_t{0x0101}}) {
        compare::Controller_Registers registers = filled(before);
        const Download_Plan plan =
            planDownload(opened.document, registers.values(), freshSelection(opened.document));
        ASSERT_FALSE(plan.failure.has_value());
        for (const Planned_Write& write : plan.writes)
            registers.take(write.address, write.values);
        const Identity_Section none;
        const compare::Document_Side left(opened.document);
        const compare::Controller_Side right(opened.document, none, registers);
        const compare::Comparison comparison = compare::comparisonOf({opened.document, none, left, right});
        for (const compare::Row& row : comparison.rows)
            EXPECT_TRUE(row.sign == compare::Sign::Equal || row.sign == compare::Sign::Read_Only)
                << row.page << ", " << row.name << ", " << row.heading << ": " << row.left.shown << " and "
                << row.right.shown << " " << signWord(row.sign);
        EXPECT_GT(comparison.counts.of(compare::Sign::Equal), plan.writes.size() / 2);
    }
}

} // namespace
} // namespace zorvane::ctl
