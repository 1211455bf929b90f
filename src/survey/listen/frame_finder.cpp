// SPDX-License-Identifier: MIT
#include "survey/listen/frame_finder.h"

#include "survey/listen/frame_shape.h"

#include <algorithm>
#include <utility>

namespace zorvane::survey {

namespace {

bool wholeAt(Byte_View rest, std::size_t length) {
    return length != 0 && length <= rest.size() && crcHolds(rest.first(length));
}

/// The shorter of two lengths of which 0 is none. Zeros after a frame leave its check sum good, so the
/// shorter frame is the true one.
std::size_t shorter(std::size_t one, std::size_t other) {
    if (one == 0 || other == 0) return std::max(one, other);
    return std::min(one, other);
}

void keepLast(Byte_Array& bytes, std::size_t count) {
    if (bytes.size() > count) bytes.erase(bytes.begin(), bytes.end() - static_cast<std::ptrdiff_t>(count));
}

} // namespace

void Frame_Finder::take(Byte_View bytes, Micros at) {
    if (bytes.empty()) return;
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
    taken_ += bytes.size();
    parcels_.push_back({taken_, at});
    search(false);
}

void Frame_Finder::flush() { search(true); }

void Frame_Finder::search(bool toTheEnd) {
    while (at_ < buffer_.size()) {
        Heard_Frame frame;
        const Look seen = look(Byte_View(buffer_).subspan(at_), frame);
        if (seen == Look::Unfinished && !toTheEnd) break;
        if (seen == Look::Frame)
            tell(frame);
        else
            passOneByte();
    }
    forget();
}

Frame_Finder::Look Frame_Finder::look(Byte_View rest, Heard_Frame& frame) const {
    const std::size_t asking = requestLength(rest);
    const std::size_t answering = answerLength(rest);
    const std::size_t asks = wholeAt(rest, asking) ? asking : 0;
    const std::size_t answers = wholeAt(rest, answering) ? answering : 0;
    const std::size_t length = shorter(asks, answers);
    if (length == 0)
        return asking > rest.size() || answering > rest.size() ? Look::Unfinished : Look::Nothing;
    frame.bytes.assign(rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(length));
    frame.mayAsk = asks == length;
    frame.mayAnswer = answers == length;
    return Look::Frame;
}

void Frame_Finder::tell(Heard_Frame& frame) {
    frame.position = begin_ + at_;
    frame.firstAt = timeOf(frame.position);
    frame.lastAt = timeOf(frame.position + frame.bytes.size() - 1);
    frame.noise = std::exchange(noise_, {});
    keepLast(frame.noise, keptNoise);
    frame.noiseCount = std::exchange(noiseCount_, 0);
    at_ += frame.bytes.size();
    found_(frame);
}

void Frame_Finder::passOneByte() {
    ++noiseBytes_;
    ++noiseCount_;
    noise_.push_back(buffer_[at_++]);
    if (noise_.size() >= 2 * keptNoise) keepLast(noise_, keptNoise);
}

Micros Frame_Finder::timeOf(std::uint64_t position) const {
    const auto parcel =
        std::upper_bound(parcels_.begin(), parcels_.end(), position,
                         [](std::uint64_t wanted, const Parcel& each) { return wanted < each.end; });
    return parcel == parcels_.end() ? 0 : parcel->at;
}

/// Drops what was searched, now and then rather than at each frame.
void Frame_Finder::forget() {
    constexpr std::size_t worthIt = 4096;
    if (at_ < worthIt && at_ < buffer_.size()) return;
    buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(at_));
    begin_ += at_;
    at_ = 0;
    while (!parcels_.empty() && parcels_.front().end <= begin_)
        parcels_.pop_front();
}

} // namespace zorvane::survey
