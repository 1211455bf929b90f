// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/files/document_place.h"
#include "app/testing/app_bench.h"

#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

struct DocumentPlace : testing::Test, doubles::App_Bench {};

TEST_F(DocumentPlace, IsSpeltAsItsFolderHasIt) {
    files.put("/home/Pump House.abc", doubles::smallDocument("10", "20"));
    openFile(app, "/home/PUMP HOUSE.ABC", false);
    EXPECT_EQ(documentPlace(app), "/home/Pump House.abc");
}

TEST_F(DocumentPlace, IsNoneWithoutADocument) { EXPECT_EQ(documentPlace(app), std::nullopt); }

TEST_F(DocumentPlace, IsNoneOfADocumentThatHasNoFile) {
    openFile(app, "/home/site7.abc", false);
    document.No_Place = true;
    EXPECT_EQ(documentPlace(app), std::nullopt);
}

TEST_F(DocumentPlace, IsNoneOnceTheFileIsGone) {
    openFile(app, "/home/site7.abc", false);
    files.remove("/home/site7.abc");
    EXPECT_EQ(documentPlace(app), std::nullopt);
}

} // namespace
} // namespace zorvane::app
