// SPDX-License-Identifier: MIT
#pragma once

#include "comm/transfer/requests/download_request.h"

#include <cstdint>
#include <set>

namespace zorvane {

/// Registers by number, in rising order.
using Register_Set = std::set<std::int32_t>;

/// The registers that the requests of a download are built from beside the cells: the other half of a
/// register, the other part of a time, the rest of a block. One that the download has written before is among
/// them, since that write may fail. They come from the download's own rules over a register image; a cell on
/// which those fail ends the list, as it ends the download.
[[nodiscard]] Register_Set neededRegisters(const Declara_Zorvane& document, const Grid_Selection& selection);

/// Which registers of the controller depend on a value that isn't known, after a download.
struct Unknown_Effect {
    Register_Set whole; ///< they take that value as it stands
    Register_Set part;  ///< a half of them, or the minutes or seconds, does

    [[nodiscard]] bool empty() const noexcept { return whole.empty() && part.empty(); }
};

/// What becomes of the controller's registers when a download is built from unknown values of these ones.
[[nodiscard]] Unknown_Effect effectOfUnknown(const Declara_Zorvane& document, const Grid_Selection& selection,
                                             const Register_Set& unknown);

} // namespace zorvane
