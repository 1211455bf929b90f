// SPDX-License-Identifier: MIT
#include "reports/export/lzw_packer.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace zorvane {

namespace {

constexpr std::uint32_t clearCode = 256;
constexpr std::uint32_t endCode = 257;
constexpr std::uint32_t firstCode = 258;
constexpr std::uint32_t lastCode = 4093; ///< with one more, readers would expect codes of 13 bits
constexpr int narrowest = 9;
constexpr std::size_t slots = 16384; ///< a power of 2, four times the sequences that there can be
constexpr std::uint32_t unused = 0xFFFFFFFF;
constexpr unsigned codeBits = 12; ///< of an entry, below its sequence

} // namespace

Lzw_Packer::Lzw_Packer(std::uint8_t paper) : paper_(paper), known_(slots) {}

std::string Lzw_Packer::pack(std::span<const std::uint8_t> bytes) {
    packed_.clear();
    bits_ = 0;
    bitCount_ = 0;
    width_ = narrowest;
    put(clearCode);
    forget();
    if (!bytes.empty()) {
        Known present = alone(bytes.front());
        bytes = bytes.subspan(1);
        while (!bytes.empty()) {
            bytes = bytes.subspan(takeRun(present, bytes));
            if (bytes.empty()) break;
            const std::uint8_t byte = bytes.front();
            std::uint32_t& slot = slotOf(present.code << 8 | byte);
            bytes = bytes.subspan(1);
            if (slot != unused) {
                present = {slot & 0xFFFU, 0};
                continue;
            }
            put(present.code);
            learn(present, byte, slot);
            present = alone(byte);
        }
        put(present.code);
        countCode();
    }
    put(endCode);
    if (bitCount_ > 0) packed_ += static_cast<char>(bits_ << (8 - bitCount_) & 0xFFU);
    return std::move(packed_);
}

void Lzw_Packer::forget() {
    std::fill(known_.begin(), known_.end(), unused);
    runs_.assign(1, paper_);
    next_ = firstCode;
    width_ = narrowest;
}

void Lzw_Packer::put(std::uint32_t code) {
    bits_ = bits_ << width_ | code;
    bitCount_ += width_;
    while (bitCount_ >= 8) {
        bitCount_ -= 8;
        packed_ += static_cast<char>(bits_ >> bitCount_ & 0xFFU);
    }
}

/// Makes a run of paper as long as a known one may be; gives how many bytes
/// that took.
std::size_t Lzw_Packer::takeRun(Known& present, std::span<const std::uint8_t> rest) const {
    if (present.paperRun == 0) return 0;
    const std::size_t most = std::min(runs_.size() - present.paperRun, rest.size());
    std::size_t taken = 0;
    for (std::uint64_t eight = 0; taken + sizeof eight <= most; taken += sizeof eight) {
        std::memcpy(&eight, rest.data() + taken, sizeof eight);
        if (eight != paper_ * 0x0101010101010101U) break;
    }
    while (taken < most && rest[taken] == paper_)
        ++taken;
    present.paperRun += taken;
    present.code = runs_[present.paperRun - 1];
    return taken;
}

/// The entry of a sequence if it is known, else the place where it is to be noted.
std::uint32_t& Lzw_Packer::slotOf(std::uint32_t sequence) {
    std::size_t place = (sequence * 2654435761U) >> 18;
    while (known_[place] != unused && known_[place] >> codeBits != sequence)
        place = (place + 1) % slots;
    return known_[place];
}

void Lzw_Packer::learn(const Known& present, std::uint8_t byte, std::uint32_t& slot) {
    slot = (present.code << 8 | byte) << codeBits | next_;
    if (present.paperRun == runs_.size() && byte == paper_) runs_.push_back(next_);
    countCode();
}

/// Codes grow by a bit one code before they must, as readers expect it.
void Lzw_Packer::countCode() {
    if (++next_ > lastCode) {
        put(clearCode);
        forget();
    } else if (next_ == std::uint32_t{1} << width_) {
        ++width_;
    }
}

Lzw_Packer::Known Lzw_Packer::alone(std::uint8_t byte) const { return {byte, byte == paper_ ? 1U : 0U}; }

} // namespace zorvane
