// SPDX-License-Identifier: MIT
#include "reports/export/byte_file.h"
#include "template/testing/temporary_folder.h"
#include "template/testing/unprivileged_linux.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace zorvane {
namespace {

using doubles::failureNumber;

TEST(ByteFile, WritesEveryByteOverWhatWasThere) {
    const doubles::Temporary_Folder folder;
    const std::string path = folder.path() + "/report";
    writeByteFile(path, "a longer text before");
    const std::string bytes("\0\r\n\xFF", 4);
    writeByteFile(path, bytes);
    std::ifstream file(path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), bytes);
}

TEST(ByteFile, TellsWhyAFileCanNotBeWritten) {
    const doubles::Temporary_Folder folder;
    EXPECT_EQ(failureNumber([&] { writeByteFile(folder.path() + "/none/report", "x"); }), 76);
    EXPECT_EQ(failureNumber([&] { writeByteFile(folder.path(), "x"); }), 75);
    EXPECT_EQ(failureNumber([] { writeByteFile("/dev/full", "x"); }), 61);
    const doubles::Unprivileged ordinary;
    EXPECT_EQ(failureNumber([&] { writeByteFile(folder.path() + "/report", "x"); }), 70);
}

} // namespace
} // namespace zorvane
