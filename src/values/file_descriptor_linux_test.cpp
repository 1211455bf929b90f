// SPDX-License-Identifier: MIT
#include "values/file_descriptor.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <thread>
#include <unistd.h>
#include <utility>

namespace zorvane {
namespace {

struct Pipe {
    Pipe() { EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0); }

    std::array<int, 2> ends{};
};

bool isOpenHere(int number) { return ::fcntl(number, F_GETFD) != -1; }

TEST(File_Descriptor, ClosesWhatItHas) {
    const Pipe pipe;
    { const File_Descriptor reader(pipe.ends[0]), writer(pipe.ends[1]); }
    EXPECT_FALSE(isOpenHere(pipe.ends[0]));
    EXPECT_FALSE(isOpenHere(pipe.ends[1]));
}

TEST(File_Descriptor, HandsItsFileOn) {
    const Pipe pipe;
    File_Descriptor first(pipe.ends[0]);
    File_Descriptor second(pipe.ends[1]);
    second = std::move(first);
    EXPECT_EQ(second.number(), pipe.ends[0]);
    EXPECT_TRUE(isOpenHere(pipe.ends[0]));
    EXPECT_FALSE(isOpenHere(pipe.ends[1])) << "what it had before is closed";
    second.close();
    EXPECT_FALSE(second.isOpen());
    EXPECT_FALSE(isOpenHere(pipe.ends[0]));
}

TEST(File_Descriptor, IsNoneUntilItIsGivenOne) { EXPECT_FALSE(File_Descriptor().isOpen()); }

TEST(WriteAll, WritesMoreThanThePipeTakesAtOnce) {
    const Pipe pipe;
    const File_Descriptor reader(pipe.ends[0]);
    const std::string bytes(300'000, 'x');
    std::thread writing([&pipe, &bytes] {
        const File_Descriptor writer(pipe.ends[1]);
        EXPECT_TRUE(writeAll(writer, bytes));
    });
    std::size_t got = 0;
    std::array<char, 4096> part{};
    for (ssize_t count; (count = ::read(reader.number(), part.data(), part.size())) > 0;)
        got += static_cast<std::size_t>(count);
    writing.join();
    EXPECT_EQ(got, bytes.size());
}

TEST(WriteAll, TellsByErrnoWhyItCouldNot) {
    EXPECT_FALSE(writeAll(File_Descriptor(), "x"));
    EXPECT_EQ(errno, EBADF);
}

} // namespace
} // namespace zorvane
