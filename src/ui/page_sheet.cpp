#include "ui/page_sheet.h"

#include <algorithm>
#include <cmath>

namespace zorvane {

namespace {

constexpr double tolerance = 20; ///< twips; papers are rounded to points here and there
constexpr double leastRoom = 1440;
constexpr double headerAndFooter = 735 + 360;

bool near(double one, double other) { return std::abs(one - other) <= tolerance; }

} // namespace

std::optional<std::size_t> paperKindOf(const Page_Settings& page) {
    const double width = std::min(page.PaperWidth, page.PaperHeight);
    const double height = std::max(page.PaperWidth, page.PaperHeight);
    for (std::size_t index = 0; index < paperKinds.size(); ++index)
        if (near(paperKinds.at(index).width, width) && near(paperKinds.at(index).height, height))
            return index;
    return std::nullopt;
}

bool isLandscape(const Page_Settings& page) { return page.PaperWidth > page.PaperHeight; }

Page_Settings onPaper(Page_Settings page, double width, double height, bool landscape) {
    page.PaperWidth = landscape ? std::max(width, height) : std::min(width, height);
    page.PaperHeight = landscape ? std::min(width, height) : std::max(width, height);
    return page;
}

bool marginsFit(const Page_Settings& page) {
    return page.PaperWidth - page.LeftMargin - page.RightMargin >= leastRoom &&
           page.PaperHeight - page.TopMargin - page.BottomMargin - headerAndFooter >= leastRoom;
}

} // namespace zorvane
