// SPDX-License-Identifier: MIT
#include "template/sections/section_readers.h"
#include "template/testing/recording_link_notice.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::failureNumber;

TEST(Interpreter, AFieldThatAskedForIsTouched) {
    Declara_Zorvane document;
    doubles::Recording_Link_Notice link;
    document.Fields.redim(highestField);
    const Interpreter interpreter{document, link};
    interpreter.field(100).Description = "last";
    EXPECT_TRUE(document.Fields(100).Touched);
    EXPECT_FALSE(document.Fields(1).Touched);
    EXPECT_EQ(failureNumber([&] { (void)interpreter.field(101); }), 9);
    EXPECT_EQ(failureNumber([&] { (void)interpreter.field(-1); }), 9);
}

} // namespace
} // namespace zorvane
