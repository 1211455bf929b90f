// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/page_settings.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace zorvane {

/// A usual paper, upright, in twips. A workbook knows it by a number of its own ("[MS-XLS]: Excel Binary File
/// Format (.xls) Structure", 2.4.257, iPaperSize).
struct Paper_Kind {
    const char* name;
    double width;
    double height;
    std::uint32_t workbookNumber;
};

inline constexpr std::array<Paper_Kind, 7> paperKinds = {{{"Letter", 12240, 15840, 1},
                                                          {"Legal", 12240, 20160, 5},
                                                          {"Executive", 10440, 15120, 7},
                                                          {"Tabloid", 15840, 24480, 3},
                                                          {"A3", 16838, 23811, 8},
                                                          {"A4", 11906, 16838, 9},
                                                          {"A5", 8391, 11906, 11}}};

/// The place in the list of a page's paper, in either orientation, if it is one of those.
[[nodiscard]] std::optional<std::size_t> paperKindOf(const Page_Settings& page);

} // namespace zorvane
