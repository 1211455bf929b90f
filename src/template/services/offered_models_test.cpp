// SPDX-License-Identifier: MIT
#include "template/services/offered_models.h"
#include "template/testing/memory_files.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

TEST(OfferedModels, AreTheTemplatesOfTheFolder) {
    doubles::Memory_Files files;
    for (const char* name : {"/app/KVRT.ZTP", "/app/kvrt100.ztp", "/app/SITE7.KVRT", "/app/ZTP", "/app/.ZTP",
                             "/app/NOTES.ZTP.TXT", "/app/notes.txt"})
        files.put(name, "");
    const std::vector<Offered_Model> models = offeredModels(files, "/app");
    ASSERT_EQ(models.size(), 2U);
    EXPECT_EQ(models[0].file, "KVRT.ZTP");
    EXPECT_EQ(models[0].stem, "KVRT");
    EXPECT_EQ(models[0].filter, "KVRT Configuration (*.KVRT)|*.KVRT|");
    EXPECT_EQ(models[1].file, "kvrt100.ztp");
    EXPECT_EQ(models[1].filter, "kvrt100 Configuration (*.kvrt100)|*.kvrt100|");
}

} // namespace
} // namespace zorvane
