// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace zorvane {

/// Packs the bytes of a strip of a TIFF file by LZW ("TIFF Revision 6.0",
/// section 13). The paper's colour, of which most of a page consists, costs no
/// time by the byte.
class Lzw_Packer {
  public:
    /// `paper` is the byte that makes up the longest runs.
    explicit Lzw_Packer(std::uint8_t paper);

    /// The packed strip. Each strip stands for itself.
    [[nodiscard]] std::string pack(std::span<const std::uint8_t> bytes);

  private:
    /// What is known of a sequence of bytes: it has a code, and may be a run of
    /// paper of that length.
    struct Known {
        std::uint32_t code = 0;
        std::size_t paperRun = 0;
    };

    void forget();
    void put(std::uint32_t code);
    [[nodiscard]] std::size_t takeRun(Known& present, std::span<const std::uint8_t> rest) const;
    [[nodiscard]] std::uint32_t& slotOf(std::uint32_t sequence);
    void learn(const Known& present, std::uint8_t byte, std::uint32_t& slot);
    void countCode();
    [[nodiscard]] Known alone(std::uint8_t byte) const;

    std::uint8_t paper_;
    std::vector<std::uint32_t>
        known_; ///< by hash: a sequence as its prefix's code and its last byte, and its code
    std::vector<std::uint32_t> runs_; ///< codes of the runs of paper, by their length less 1
    std::uint32_t next_ = 0;          ///< the code that the next new sequence gets
    int width_ = 0;                   ///< of a code in bits
    std::uint32_t bits_ = 0;          ///< not yet a whole byte
    int bitCount_ = 0;
    std::string packed_;
};

} // namespace zorvane
