// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/register_image.h"
#include "template/model/cell_rec.h"

#include <functional>
#include <optional>
#include <string>

namespace zorvane {

/// What a fill of the lower grid does with one cell.
struct Cell_Fill {
    std::optional<std::string> shown; ///< the grid's text; nothing for a cell whose address has no known form
    std::optional<std::string> stored; ///< the new `Value`; nothing leaves it as it is

    bool operator==(const Cell_Fill&) const = default;
};

/// While the link is off a cell shows what the document holds. The `Value` of a half register is brought to
/// a plain integer; one that isn't a number is failure 13.
[[nodiscard]] Cell_Fill offlineFill(const Cell_Rec& cell);

/// What an online fill looks at beside the cell.
struct Online_View {
    Register_Image image;
    std::string request;            ///< the request word of the blocks now scanned
    std::function<bool()> commLost; ///< asked only for cells of those blocks
};

/// While the link is on a cell of the blocks scanned shows its registers and mostly takes their value into
/// the document; any other whole register shows what the document holds. A half register always shows the
/// image, whatever is scanned and even when the link is lost. An address beyond 32 bits is failure 6,
/// whatever is scanned.
[[nodiscard]] Cell_Fill onlineFill(const Cell_Rec& cell, const Online_View& view);

} // namespace zorvane
