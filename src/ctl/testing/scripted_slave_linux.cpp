// SPDX-License-Identifier: MIT
#include "ctl/testing/scripted_slave.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <termios.h>
#include <unistd.h>

namespace zorvane::doubles {

namespace {

/// How long the request is that begins the bytes; 0 while that can't be told.
std::size_t requestSize(const Byte_Array& bytes) {
    if (bytes.size() < 2) return 0;
    if (bytes[1] != 16) return 8;
    return bytes.size() < 7 ? 0 : std::size_t{9} + bytes[6];
}

} // namespace

Scripted_Slave::Scripted_Slave(Answer answer) : answer_(std::move(answer)) {
    far_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    std::array<char, 128> name{};
    if (far_ < 0 || ::grantpt(far_) != 0 || ::unlockpt(far_) != 0 ||
        ::ptsname_r(far_, name.data(), name.size()) != 0 || ::pipe2(end_, O_CLOEXEC) != 0)
        throw std::runtime_error("pseudo-terminal");
    port_ = name.data();
    near_ = ::open(port_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios raw{};
    ::tcgetattr(near_, &raw);
    ::cfmakeraw(&raw);
    ::tcsetattr(near_, TCSANOW, &raw);
    thread_ = std::thread([this] { serve(); });
}

Scripted_Slave::~Scripted_Slave() {
    ::close(end_[1]);
    thread_.join();
    for (const int fd : {end_[0], near_, far_})
        ::close(fd);
}

std::vector<Byte_Array> Scripted_Slave::requests(const std::vector<int>& functions) const {
    const std::lock_guard lock(mutex_);
    std::vector<Byte_Array> found;
    std::copy_if(requests_.begin(), requests_.end(), std::back_inserter(found), [&](const Byte_Array& each) {
        return std::find(functions.begin(), functions.end(), each[1]) != functions.end();
    });
    return found;
}

bool Scripted_Slave::awaitRequests(std::size_t count) {
    std::unique_lock lock(mutex_);
    return came_.wait_for(lock, std::chrono::seconds(30), [&] { return requests_.size() >= count; });
}

void Scripted_Slave::serve() {
    Byte_Array waiting;
    while (true) {
        std::array<pollfd, 2> ends{pollfd{far_, POLLIN, 0}, pollfd{end_[0], POLLIN, 0}};
        ::poll(ends.data(), ends.size(), -1);
        if (ends[1].revents != 0) return;
        std::array<std::uint8_t, 512> part{};
        const auto count = ::read(far_, part.data(), part.size());
        if (count <= 0) return;
        waiting.insert(waiting.end(), part.begin(), part.begin() + count);
        for (std::size_t size = requestSize(waiting); size > 0 && waiting.size() >= size;
             size = requestSize(waiting)) {
            const auto end = waiting.begin() + static_cast<std::ptrdiff_t>(size);
            take(Byte_Array(waiting.begin(), end));
            waiting.erase(waiting.begin(), end);
        }
    }
}

void Scripted_Slave::take(const Byte_Array& request) {
    {
        const std::lock_guard lock(mutex_);
        requests_.push_back(request);
    }
    came_.notify_all();
    const Byte_Array answer = answer_(request);
    [[maybe_unused]] const auto written = ::write(far_, answer.data(), answer.size());
}

} // namespace zorvane::doubles
