// SPDX-License-Identifier: MIT
#include "commission/folder/digests.h"
#include "commission/record/record_deviations.h"
#include "compare/testing/pump.h"
#include "template/testing/memory_files.h"

#include <gmock/gmock.h>

namespace zorvane::commission {
namespace {

using ::testing::ElementsAre;

/// One page with a column of settings of registers 101 to 103.
Declara_Zorvane documentWith(const std::vector<std::string>& values) {
    Declara_Zorvane document;
    document.Field_Count = 1;
    document.Fields.redim(1);
    Field_Rec& field = document.Fields(1);
    field.Description = "Regulation";
    field.Rows = static_cast<std::int16_t>(values.size());
    field.Columns = 1;
    field.Cells.redim(field.Rows, 1);
    field.Cells(0, 1).Value = "Value";
    field.Cells(0, 1).Modifiable = true;
    for (std::int32_t row = 1; row <= field.Rows; ++row) {
        field.Cells(row, 1).Value = values[static_cast<std::size_t>(row - 1)];
        field.Cells(row, 1).Address = std::to_string(100 + row);
    }
    return document;
}

TEST(RecordDeviations, AreWhatTheControllerHadButForWhatWasVerified) {
    const Declara_Zorvane factory = documentWith({"1", "2", "3"});
    const Declara_Zorvane before = documentWith({"5", "2", "7"});
    const Record_Row back{1, 1, 1, "", "", "", "", "5", "1", "1", "verified", ""};
    const Record_Row further{1, 2, 1, "", "", "", "", "2", "9", "9", "verified", ""};
    const Record_Row refused{1, 3, 1, "", "", "", "", "7", "3", "register: 7", "refused", ""};
    EXPECT_THAT(deviationsFrom(factory, before, {}, {back, further, refused}),
                ElementsAre(Record_Deviation{"Regulation", "row 2", "Value", "102", "2", "9"},
                            Record_Deviation{"Regulation", "row 3", "Value", "103", "3", "7"}));
}

TEST(RecordDeviations, OfEqualDocumentsThereAreNone) {
    EXPECT_TRUE(deviationsFrom(documentWith({"1"}), documentWith({"1"}), {}, {}).empty());
}

TEST(RecordDeviations, AreReadFromTheTemplateAndTheDocumentThatWereUsed) {
    zorvane::doubles::Memory_Files files;
    files.put("/app/PUMP.ZTP", compare::doubles::pumpTemplate);
    files.put("/site/seven.pump", "[Field_1_Default]\nROW_2=Level,7,in %\n");
    Record record;
    record.files = {{"Template", "/app/PUMP.ZTP", sha256(compare::doubles::pumpTemplate)}};
    record.document = "/site/seven.pump";
    const auto deviations = deviationsOf(files, "/app", record, "/site/seven.pump");
    ASSERT_TRUE(deviations);
    EXPECT_THAT(*deviations, ElementsAre(Record_Deviation{"Settings", "Level", "Value", "11", "-5", "7"}));
    EXPECT_FALSE(deviationsOf(files, "/app", record, "/site/gone.pump"));
    files.put("/app/PUMP.ZTP", compare::doubles::pumpTemplate + "; changed\n");
    EXPECT_FALSE(deviationsOf(files, "/app", record, "/site/seven.pump")) << "another template";
}

} // namespace
} // namespace zorvane::commission
