// SPDX-License-Identifier: MIT
#include "comm/modbus_control/scan/scan.h"

#include <algorithm>

namespace zorvane {

void Scan::restart(Micros now) {
    place_ = 0;
    offset_ = 0;
    phase_ = Phase::Reading;
    watched_ = false;
    seenInPass_ = false;
    blockTried_ = false;
    failedAt_.reset();
    show(numberAt(0), now);
}

void Scan::indexSeen() {
    seen_ = true;
    watched_ = true;
    seenInPass_ = true;
}

std::int32_t Scan::numberAt(std::size_t place) const {
    const auto& numbers = plan_.numbers();
    return place < numbers.size() ? numbers[place] : 0;
}

void Scan::show(std::int32_t index, Micros now) {
    index_ = index;
    shownAt_ = now;
    seen_ = false;
}

bool Scan::mayMoveOn(Micros now) const { return !watched_ || seen_ || now >= shownAt_ + indexTime; }

void Scan::advance(Micros now) {
    if (failedAt_ && now >= *failedAt_ + failureTime) failedAt_.reset();
    if (phase_ == Phase::Done && mayMoveOn(now)) leaveIndex(now);
    if (phase_ == Phase::Between && mayMoveOn(now)) {
        show(numberAt(0), now);
        beginPass();
    }
    if (phase_ == Phase::PassStart && mayMoveOn(now)) phase_ = Phase::Reading;
}

void Scan::leaveIndex(Micros now) {
    const std::size_t count = plan_.numbers().size();
    offset_ = 0;
    blockTried_ = false;
    place_ = place_ + 1 < count ? place_ + 1 : 0;
    if (count <= 1) {
        // One block would show no change, and no block has no index at all: 0 stands between two passes.
        const std::int32_t other = count == 1 || index_ != 0 ? 0 : 1;
        show(other, now);
        phase_ = Phase::Between;
        return;
    }
    show(numberAt(place_), now);
    phase_ = Phase::Reading;
    if (place_ == 0) beginPass();
}

void Scan::beginPass() {
    watched_ = seenInPass_;
    seenInPass_ = false;
    phase_ = watched_ ? Phase::PassStart : Phase::Reading;
}

std::optional<Scan_Frame> Scan::frame() const {
    if (phase_ != Phase::Reading || failedAt_ || place_ >= plan_.numbers().size()) return std::nullopt;
    const Scan_Block& block = plan_.block(numberAt(place_));
    const std::int64_t left = std::clamp<std::int64_t>(block.size() - offset_, 0, largestRead);
    return Scan_Frame{block.slave, static_cast<std::int32_t>(block.first + offset_),
                      static_cast<std::uint16_t>(left)};
}

std::optional<Micros> Scan::waitsUntil() const {
    if (phase_ != Phase::Reading) return shownAt_ + indexTime;
    if (failedAt_) return *failedAt_ + failureTime;
    return std::nullopt;
}

void Scan::frameAnswered(bool well, Micros now) {
    if (!well) failedAt_ = now;
    const Scan_Block& block = plan_.block(numberAt(place_));
    offset_ += largestRead;
    if (offset_ < block.size()) return;
    phase_ = Phase::Done;
    advance(now);
}

bool Scan::partRead(std::uint16_t count, Micros now) {
    if (blockTried_) failedAt_ = now;
    offset_ += count;
    if (offset_ < plan_.block(numberAt(place_)).size()) return false;
    phase_ = Phase::Done;
    advance(now);
    return true;
}

void Scan::blockAgain(Micros now) {
    tryFailed(now);
    offset_ = 0;
}

void Scan::blockGivenUp(Micros now) {
    failedAt_ = now;
    phase_ = Phase::Done;
    advance(now);
}

} // namespace zorvane
