// SPDX-License-Identifier: MIT
#include "simulator/line/mbap_collector.h"

#include "simulator/wire/request.h"

namespace zorvane::simulator {

namespace {

constexpr std::size_t head = 6; ///< number, protocol, length
constexpr std::size_t checkSum = 2;
constexpr std::size_t shortestBody = 2;
constexpr std::size_t longestBody = 254;

std::size_t wordAt(Bytes_View bytes, std::size_t place) {
    return static_cast<std::size_t>(bytes[place] << 8U | bytes[place + 1]);
}

void addWord(Bytes& bytes, std::size_t word) {
    bytes.push_back(static_cast<std::uint8_t>(word >> 8U));
    bytes.push_back(static_cast<std::uint8_t>(word & 0xFFU));
}

bool mayBegin(Bytes_View bytes) {
    if (bytes.size() >= 4 && wordAt(bytes, 2) != 0) return false;
    if (bytes.size() < head) return true;
    const std::size_t length = wordAt(bytes, 4);
    return length >= shortestBody && length <= longestBody;
}

} // namespace

void Mbap_Collector::feed(Bytes_View bytes, Instant) {
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
}

std::optional<Arrival> Mbap_Collector::next(Instant now) {
    if (bytes_.empty()) return std::nullopt;
    if (!mayBegin(bytes_)) {
        Arrival noise = take(bytes_.size(), now);
        noise.broken = "noise";
        return noise;
    }
    if (bytes_.size() < head) return std::nullopt;
    const std::size_t length = head + wordAt(bytes_, 4);
    if (bytes_.size() < length) return std::nullopt;
    Arrival arrival = take(length, now);
    arrival.number = static_cast<std::uint16_t>(wordAt(arrival.passed, 0));
    arrival.frame = sealed_(Bytes_View(arrival.passed).subspan(head));
    const auto wanted = requestLength(arrival.frame);
    if (arrival.frame.size() < shortestFrame || (wanted && *wanted != arrival.frame.size()))
        arrival.broken = "wrong length";
    return arrival;
}

Arrival Mbap_Collector::take(std::size_t length, Instant now) {
    const auto end = bytes_.begin() + static_cast<std::ptrdiff_t>(length);
    Arrival arrival;
    arrival.passed.assign(bytes_.begin(), end);
    arrival.frame = arrival.passed;
    arrival.wireBegin = arrival.wireEnd = now;
    bytes_.erase(bytes_.begin(), end);
    return arrival;
}

Bytes Mbap_Collector::enveloped(Bytes_View frame, const Arrival& request) const {
    const Bytes_View body = frame.first(frame.size() - checkSum);
    Bytes bytes;
    addWord(bytes, request.number);
    addWord(bytes, 0);
    addWord(bytes, body.size());
    bytes.insert(bytes.end(), body.begin(), body.end());
    return bytes;
}

} // namespace zorvane::simulator
