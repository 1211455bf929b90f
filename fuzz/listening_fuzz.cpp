// SPDX-License-Identifier: MIT
// Any bytes heard on a line, in parcels: what is found are frames, no byte is lost, the parcels play no part,
// every frame is told once, and what is written for Wireshark has each as it was heard. The first byte
// chooses the parcels.
#include "comm/modbus_control/frame/rtu_frame.h"
#include "fuzz/require.h"
#include "survey/listen/frame_finder.h"
#include "survey/listen/heard_exchanges.h"
#include "survey/listen/line_table.h"
#include "survey/listen/pcapng.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace zorvane;
using namespace zorvane::survey;
using fuzz::require;

constexpr Micros parcelTime = 1000;

std::vector<Heard_Frame> framesOf(Byte_View bytes, std::size_t parcel) {
    std::vector<Heard_Frame> frames;
    Frame_Finder finder([&](const Heard_Frame& frame) { frames.push_back(frame); });
    Micros now = 0;
    for (std::size_t at = 0; at < bytes.size(); at += parcel)
        finder.take(bytes.subspan(at, std::min(parcel, bytes.size() - at)), now += parcelTime);
    finder.flush();
    std::size_t inFrames = 0;
    for (const Heard_Frame& frame : frames)
        inFrames += frame.bytes.size();
    require(!finder.waits() && finder.bytesTaken() == bytes.size(), "all bytes were taken");
    require(finder.noiseBytes() + inFrames == bytes.size(), "each byte is noise, or in one frame");
    return frames;
}

void checkFrames(Byte_View heard, const std::vector<Heard_Frame>& frames) {
    std::uint64_t end = 0;
    for (const Heard_Frame& frame : frames) {
        require(frame.position >= end, "frames come one after the other");
        end = frame.position + frame.bytes.size();
        require(end <= heard.size(), "a frame lies in what came in");
        const Byte_View there = heard.subspan(frame.position, frame.bytes.size());
        require(std::equal(there.begin(), there.end(), frame.bytes.begin()),
                "a frame has the bytes that came in");
        require(crcHolds(there), "its check sum holds");
        require(frame.mayAsk || frame.mayAnswer, "a frame is a request or an answer");
        require(frame.firstAt <= frame.lastAt, "its bytes came in their order");
    }
}

/// Every frame is told once, alone or in a pair.
void checkExchanges(const std::vector<Heard_Frame>& frames) {
    std::size_t told = 0;
    std::uint64_t unpaired = 0;
    Line_Table table;
    Heard_Exchanges exchanges([&](const Heard_Exchange& exchange) {
        told += (exchange.request ? 1U : 0U) + (exchange.answer ? 1U : 0U);
        if (exchange.paired()) {
            require(exchange.request->unit() == exchange.answer->unit(), "a pair is of one unit");
            require(exchange.request->function() == exchange.answer->function(), "and of one function");
        } else if ((exchange.request ? exchange.request : exchange.answer)->unit() != 0) {
            ++unpaired;
        }
        table.take(exchange);
    });
    for (const Heard_Frame& frame : frames)
        exchanges.take(frame);
    exchanges.end();
    require(told == frames.size(), "each frame is told once");
    const Unit_Traffic sum = table.sum();
    require(sum.requests + sum.answers == frames.size(), "and counted once");
    require(sum.unpaired == unpaired, "and so is one without its other half");
}

std::uint32_t numberAt(std::string_view bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i)
        number |= static_cast<std::uint32_t>(static_cast<std::uint8_t>(bytes[at + i])) << 8U * i;
    return number;
}

/// A packet of a capture file.
struct Packet {
    std::uint64_t time = 0;
    std::string bytes;

    bool operator==(const Packet&) const = default;
};

/// The packets of a capture file, whose blocks say how long they are at both their ends.
std::vector<Packet> packetsOf(std::string_view file) {
    constexpr std::uint32_t packetBlock = 6;
    constexpr std::size_t head = 28;
    constexpr std::size_t tags = 16; // the dissector's name, and the tags' end
    std::vector<Packet> packets;
    while (!file.empty()) {
        require(file.size() >= 12, "a block has a head and an end");
        const std::uint32_t length = numberAt(file, 4);
        require(length >= 12 && length % 4 == 0 && length <= file.size(), "a block is whole");
        require(numberAt(file, length - 4) == length, "a block ends with its length");
        if (numberAt(file, 0) == packetBlock) {
            const std::uint32_t size = numberAt(file, 20);
            require(numberAt(file, 24) == size, "a packet is captured whole");
            require(size >= tags && head + size + 4 <= length, "a packet lies in its block");
            packets.push_back({std::uint64_t{numberAt(file, 12)} << 32U | numberAt(file, 16),
                               std::string(file.substr(head + tags, size - tags))});
        }
        file.remove_prefix(length);
    }
    return packets;
}

/// What is written for Wireshark has every frame, as it was heard and when.
void checkCapture(const std::vector<Heard_Frame>& frames, std::string_view name) {
    std::string capture = pcapngBeginning(name);
    std::vector<Packet> expected;
    for (const Heard_Frame& frame : frames) {
        capture += pcapngPacket(frame.firstAt, frame.bytes, name);
        expected.push_back(
            {static_cast<std::uint64_t>(frame.firstAt), std::string(frame.bytes.begin(), frame.bytes.end())});
    }
    require(packetsOf(capture) == expected, "a capture file has the frames that were heard");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1) return 0;
    const Byte_View heard(data + 1, size - 1);
    const std::vector<Heard_Frame> frames = framesOf(heard, 1 + data[0]);
    checkFrames(heard, frames);
    const std::vector<Heard_Frame> byByte = framesOf(heard, 1);
    require(frames.size() == byByte.size(), "parcels play no part");
    for (std::size_t i = 0; i < frames.size(); ++i)
        require(frames[i].position == byByte[i].position && frames[i].bytes == byByte[i].bytes,
                "and neither in where a frame lies");
    checkExchanges(frames);
    checkCapture(frames, std::string(heard.begin(), heard.end()).substr(0, data[0]));
    return 0;
}
