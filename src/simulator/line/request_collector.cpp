// SPDX-License-Identifier: MIT
#include "simulator/line/request_collector.h"

#include "simulator/wire/request.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace zorvane::simulator {

namespace {

/// A client's writes may be torn apart by its own scheduling; shorter gaps don't end a request.
constexpr std::chrono::milliseconds shortestPatience{20};

/// More than any client sends in one go: noise without an end is given up in pieces.
constexpr std::size_t longestNoise = 4096;

} // namespace

Request_Collector::Request_Collector(Line_Pace pace, Check checkSumRight)
    : pace_(pace), checkSumRight_(std::move(checkSumRight)) {}

void Request_Collector::feed(Bytes_View bytes, Instant now) {
    const Instant begin = std::max(now, lineFree_);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        passed_.push_back(begin + pace_.wireTime(i + 1));
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    if (!passed_.empty()) lineFree_ = passed_.back();
}

std::optional<Arrival> Request_Collector::next(Instant now) {
    if (bytes_.empty()) return std::nullopt;
    if (const auto length = wholeRequest()) return take(*length, "");
    if (now >= *deadline() || bytes_.size() > longestNoise) return take(bytes_.size(), whatIsWrong());
    return std::nullopt;
}

std::optional<Instant> Request_Collector::deadline() const {
    if (bytes_.empty()) return std::nullopt;
    return passed_.back() + std::max<std::chrono::nanoseconds>(pace_.silence(), shortestPatience);
}

void Request_Collector::clear() {
    bytes_.clear();
    passed_.clear();
}

std::optional<std::size_t> Request_Collector::wholeRequest() const {
    // A request of unknown length is whole when its check sum is right: nothing else tells where it ends.
    const bool lengthUnknown = bytes_.size() >= shortestFrame && !requestLength(bytes_) &&
                               bytes_[1] != functionWriteRegisters && bytes_[1] != 15;
    const std::size_t length =
        lengthUnknown ? bytes_.size() : requestLength(bytes_).value_or(longestFrame + 1);
    if (length > longestFrame || length > bytes_.size()) return std::nullopt;
    if (!checkSumRight_(Bytes_View(bytes_).first(length))) return std::nullopt;
    return length;
}

const char* Request_Collector::whatIsWrong() const {
    if (bytes_.size() < shortestFrame) return "noise";
    const auto length = requestLength(bytes_);
    return length && bytes_.size() < *length ? "truncated" : "bad CRC";
}

Arrival Request_Collector::take(std::size_t length, std::string broken) {
    const auto count = static_cast<std::ptrdiff_t>(length);
    Arrival arrival;
    arrival.frame.assign(bytes_.begin(), bytes_.begin() + count);
    arrival.wireBegin = passed_.front() - pace_.wireTime(1);
    arrival.wireEnd = passed_[length - 1];
    arrival.broken = std::move(broken);
    arrival.passed = arrival.frame;
    bytes_.erase(bytes_.begin(), bytes_.begin() + count);
    passed_.erase(passed_.begin(), passed_.begin() + count);
    return arrival;
}

} // namespace zorvane::simulator
