// SPDX-License-Identifier: MIT
#include "comm/transfer/requests/download_blocks.h"

#include "values/numbers.h"

namespace zorvane {

namespace {

Register_Range boundsOf(const Download_Block_Rec& block) {
    return Register_Range{strictLong(block.First_Address), strictLong(block.Last_Address)};
}

bool holds(const Register_Range& block, Block_Kind kind, std::int32_t address) noexcept {
    return block.first <= address && (kind == Block_Kind::Numeric || address <= block.last);
}

} // namespace

std::optional<Register_Range> findBlock(const Checked_Array<Download_Block_Rec>& blocks, Block_Kind kind,
                                        std::int32_t address) {
    for (std::int32_t i = 0; i <= blocks.upperBound(); ++i) {
        const Register_Range block = boundsOf(blocks(i));
        if (blocks(i).Block_Kind == static_cast<std::int16_t>(kind) && holds(block, kind, address))
            return block;
    }
    return std::nullopt;
}

Block_Image::Block_Image(Register_Range block, const Register_Image& image, bool isSigned)
    : first_(block.first) {
    const std::int32_t count = registerCount(block.first, block.last);
    Block_Values_.redim(count);
    for (std::int32_t i = 1; i <= count; ++i) {
        const std::int32_t address = first_ + i - 1;
        Block_Values_(i) = isSigned ? image.signedAt(address) : image.unsignedAt(address);
    }
}

std::int32_t& Block_Image::at(std::int32_t address) {
    const std::int64_t index = static_cast<std::int64_t>(address) - first_ + 1;
    if (index < 1 || index > Block_Values_.upperBound()) throw Run_Time_Failure(Failure::Subscript);
    return Block_Values_(static_cast<std::int32_t>(index));
}

std::vector<std::int32_t> Block_Image::values() const {
    std::vector<std::int32_t> values;
    values.reserve(static_cast<std::size_t>(Block_Values_.upperBound()));
    for (std::int32_t i = 1; i <= Block_Values_.upperBound(); ++i)
        values.push_back(Block_Values_(i));
    return values;
}

} // namespace zorvane
