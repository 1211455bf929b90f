// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"
#include "comm/modbus_control/line/link_clock.h"

#include <deque>
#include <functional>

namespace zorvane::survey {

/// A whole frame that was heard on a line: its length fits its function, and its check sum holds.
struct Heard_Frame {
    Micros firstAt = 0;         ///< when its first byte was handed over
    Micros lastAt = 0;          ///< and its last
    std::uint64_t position = 0; ///< how many bytes came in before it
    Byte_Array bytes;
    bool mayAsk = false;    ///< by its form it may be a request
    bool mayAnswer = false; ///< by its form it may be an answer
    Byte_Array noise;       ///< the bytes between the frame before and this one, the last `keptNoise` of them
    std::size_t noiseCount = 0; ///< how many there were

    [[nodiscard]] std::uint8_t unit() const { return bytes.front(); }
    /// Without the bit of an exception.
    [[nodiscard]] std::uint8_t function() const { return bytes[1] & 0x7FU; }
    [[nodiscard]] bool isException() const { return (bytes[1] & exceptionBit) != 0; }
};

/// Finds the frames in a stream of bytes by the lengths of their functions and their check sums, wherever
/// they begin. Gaps between bytes play no part: adapters and drivers hand bytes over in parcels.
class Frame_Finder {
  public:
    using Found = std::function<void(const Heard_Frame&)>;

    static constexpr std::size_t keptNoise = 512;

    explicit Frame_Finder(Found found) : found_(std::move(found)) {}

    /// Bytes came in at that time. `found` is called from within, for each frame that is whole.
    void take(Byte_View bytes, Micros at);
    /// Nothing more belongs to what came in: what still waited for its end is noise.
    void flush();

    /// All bytes that came in, and those of them that are in no frame so far; what waits counts for neither.
    [[nodiscard]] std::uint64_t bytesTaken() const { return taken_; }
    [[nodiscard]] std::uint64_t noiseBytes() const { return noiseBytes_; }
    /// Whether bytes wait that may become a frame.
    [[nodiscard]] bool waits() const { return at_ < buffer_.size(); }

  private:
    struct Parcel {
        std::uint64_t end; ///< in the whole stream: how many bytes had come with it
        Micros at;
    };
    enum class Look { Nothing, Frame, Unfinished };

    void search(bool toTheEnd);
    [[nodiscard]] Look look(Byte_View rest, Heard_Frame& frame) const;
    void tell(Heard_Frame& frame);
    void passOneByte();
    [[nodiscard]] Micros timeOf(std::uint64_t position) const;
    void forget();

    Found found_;
    Byte_Array buffer_;
    std::size_t at_ = 0;      ///< in the buffer: where the search stands
    std::uint64_t begin_ = 0; ///< in the whole stream: where the buffer begins
    std::uint64_t taken_ = 0;
    std::uint64_t noiseBytes_ = 0;
    std::deque<Parcel> parcels_;
    Byte_Array noise_;
    std::size_t noiseCount_ = 0;
};

} // namespace zorvane::survey
