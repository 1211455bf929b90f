// SPDX-License-Identifier: MIT
#include "values/run_time_failure.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zorvane {
namespace {

TEST(RunTimeFailure, EachKindHasItsNumberAndWording) {
    const auto told = [](Failure kind) {
        const Run_Time_Failure failure(kind);
        return std::to_string(failure.number()) + " " + failure.description();
    };
    EXPECT_EQ(told(Failure::InvalidCall), "5 Invalid procedure call or argument");
    EXPECT_EQ(told(Failure::Overflow), "6 Overflow");
    EXPECT_EQ(told(Failure::Subscript), "9 Subscript out of range");
    EXPECT_EQ(told(Failure::TypeMismatch), "13 Type mismatch");
    EXPECT_EQ(told(Failure::FileNotFound), "53 File not found");
    EXPECT_EQ(told(Failure::DiskFull), "61 Disk full");
    EXPECT_EQ(told(Failure::PermissionDenied), "70 Permission denied");
    EXPECT_EQ(told(Failure::PathFileAccess), "75 Path/File access error");
    EXPECT_EQ(told(Failure::PathNotFound), "76 Path not found");
}

TEST(RunTimeFailure, MayCarryANumberAndTextOfItsOwn) {
    const Run_Time_Failure failure(1000, "no room");
    EXPECT_EQ(failure.number(), 1000);
    EXPECT_STREQ(failure.description(), "no room");
}

TEST(IgnoringFailure, DropsARunTimeFailureOfItsStatement) {
    int reached = 0;
    EXPECT_TRUE(ignoringFailure([&] { ++reached; }));
    EXPECT_FALSE(ignoringFailure([&] {
        ++reached;
        throw Run_Time_Failure(Failure::Subscript);
    }));
    EXPECT_EQ(reached, 2);
}

TEST(IgnoringFailure, LetsOtherExceptionsPass) {
    EXPECT_THROW(ignoringFailure([] { throw std::logic_error("ours"); }), std::logic_error);
}

} // namespace
} // namespace zorvane
