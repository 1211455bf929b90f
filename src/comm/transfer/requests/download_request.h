// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/register_image.h"
#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zorvane {

/// Where the user stands in the two grids: the row of the upper one is the number of its field, row and
/// column of the lower one count from 0.
struct Grid_Selection {
    std::int32_t configurationRow = 0;
    std::int32_t settingsRow = 0;
    std::int32_t settingsCol = 0;
};

/// Function 6.
struct Single_Write {
    std::int32_t slave = 0;
    std::int32_t address = 0;
    std::int32_t value = 0;
};

/// Function 16.
struct Multiple_Write {
    std::int32_t slave = 0;
    std::int32_t address = 0;
    std::vector<std::int32_t> values;
};

/// A text for the cell's range of registers.
struct Ascii_Write {
    std::string text;
};

/// What a cell sends; `std::monostate` is nothing.
using Write_Order = std::variant<std::monostate, Single_Write, Multiple_Write, Ascii_Write>;

struct Cell_Request {
    Write_Order order;
    bool Nothing_Sent = false; ///< the cell names no register at all, so there is nothing to wait for
};

/// What a request is built from besides the cell itself.
struct Request_Sources {
    const Declara_Zorvane& document;
    Register_Image image;     ///< of the slave `Unit_Id`
    std::int32_t slave = 0;   ///< the slave number of the port settings
    Grid_Selection selection; ///< the neighbour of a cell of minutes or seconds is taken from here
    std::int32_t Negative_Word = 0;
};

/// Whether a download must leave this address alone; blanks at the ends don't matter.
[[nodiscard]] bool isNotDownloadable(const Declara_Zorvane& document, const std::string& address);

/// What a download sends for a cell.
[[nodiscard]] Cell_Request buildRequest(const Request_Sources& sources, const Cell_Place& place);

} // namespace zorvane
