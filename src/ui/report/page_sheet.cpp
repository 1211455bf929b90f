// SPDX-License-Identifier: MIT
#include "ui/report/page_sheet.h"

#include <algorithm>

namespace zorvane::ui {

namespace {

constexpr double leastRoom = 1440;
constexpr double headerAndFooter = 735 + 360;

} // namespace

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

} // namespace zorvane::ui
