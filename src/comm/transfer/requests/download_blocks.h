// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/register_image.h"
#include "template/board_family.h"
#include "template/model/block_kind.h"
#include "template/model/declara_zorvane.h"
#include "values/checked_array.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace zorvane {

/// The first block of a kind that holds the register; a numeric block is only asked for its start, so a
/// template lists those by rising address. The search converts the bounds of every entry that it passes: one
/// that finds nothing runs into the empty last entry, which is failure 13.
[[nodiscard]] std::optional<Register_Range> findBlock(const Checked_Array<Download_Block_Rec>& blocks,
                                                      Block_Kind kind, std::int32_t address);

/// The values of a block as it is going to be written, built from the image and changed in one place.
class Block_Image {
  public:
    /// `isSigned` says how the registers read. A block without a register is failure 9, one of more than
    /// 65536 failure 6.
    Block_Image(Register_Range block, const Register_Image& image, bool isSigned);

    /// The value at a register's address; outside the block: failure 9.
    [[nodiscard]] std::int32_t& at(std::int32_t address);
    [[nodiscard]] std::vector<std::int32_t> values() const;

  private:
    std::int32_t first_;
    Checked_Array<std::int32_t, 1> Block_Values_;
};

} // namespace zorvane
