#pragma once

#include "reports/page_settings.h"

#include <array>
#include <cstddef>
#include <optional>

namespace zorvane {

/// A usual paper, upright, in twips.
struct Paper_Kind {
    const char* name;
    double width;
    double height;
};

inline constexpr std::array<Paper_Kind, 7> paperKinds = {{{"Letter", 12240, 15840},
                                                          {"Legal", 12240, 20160},
                                                          {"Executive", 10440, 15120},
                                                          {"Tabloid", 15840, 24480},
                                                          {"A3", 16838, 23811},
                                                          {"A4", 11906, 16838},
                                                          {"A5", 8391, 11906}}};

/// The paper of a page, in either orientation, if it is one of those.
[[nodiscard]] std::optional<std::size_t> paperKindOf(const Page_Settings& page);

[[nodiscard]] bool isLandscape(const Page_Settings& page);

/// The same page on a paper of that size, upright or across.
[[nodiscard]] Page_Settings onPaper(Page_Settings page, double width, double height, bool landscape);

/// Whether the margins leave room for a table: an inch across, and as much between page header and footer.
[[nodiscard]] bool marginsFit(const Page_Settings& page);

} // namespace zorvane
