// SPDX-License-Identifier: MIT
#include "ui/base/window_layout.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace zorvane::ui {

namespace {

constexpr double splitterMargin = 1000;      // twips
constexpr double splitterOverhang = 50;      // twips that the bar is wider than a box
constexpr double panelReserve = 200;         // twips of the status bar that no panel takes
constexpr std::size_t messagePanel = 3;      // its place among the panels, from 0
constexpr double settingsTopAfterDrop = 300; // twips

Twips_Rect inPixels(const Twips_Rect& twips, const Twips_Scale& scale) {
    return {twips.left / scale.perPixelX, twips.top / scale.perPixelY, twips.width / scale.perPixelX,
            twips.height / scale.perPixelY};
}

double messageWidth(const Window_Layout& layout, double formWidth) {
    const double all = std::accumulate(layout.panelWidths.begin(), layout.panelWidths.end(), 0.0);
    const double others = all - layout.panelWidths[messagePanel];
    return std::max(1.0, formWidth - others - panelReserve);
}

void resizeWidth(Window_Layout& layout, double formWidth) {
    const double dx = (formWidth - layout.savedWidth) / layout.scale.perPixelX;
    layout.savedWidth = formWidth;
    layout.Frame2.width += dx;
    layout.Frame3.width += dx;
    layout.line1Right += dx;
    layout.panelWidths[messagePanel] = messageWidth(layout, formWidth);
    layout.FLX_Settings.width += dx * layout.scale.perPixelX;
    layout.FLX_Configuration.width += dx * layout.scale.perPixelX;
    layout.PicLineHoriz.width =
        layout.Frame2.width + std::nearbyint(splitterOverhang / layout.scale.perPixelX);
}

void growUnlessGone(double& height, double change) {
    if (height + change > 0) height += change;
}

void resizeHeight(Window_Layout& layout, double formHeight) {
    const double frame3Top = layout.Frame3.top * layout.scale.perPixelY;
    if (formHeight - layout.statusHeight - layout.FLX_Configuration.height < frame3Top) return;
    const double dy = (formHeight - layout.savedHeight) / layout.scale.perPixelY;
    layout.savedHeight = formHeight;
    growUnlessGone(layout.Frame3.height, dy);
    growUnlessGone(layout.FLX_Settings.height, dy * layout.scale.perPixelY);
}

} // namespace

Window_Layout designLayout(Twips_Scale scale, double formWidth, double formHeight) {
    Window_Layout layout;
    layout.scale = scale;
    layout.savedWidth = formWidth;
    layout.savedHeight = formHeight;
    layout.Frame2 = inPixels({60, 60, 6705, 1905}, scale);
    layout.Frame3 = inPixels({60, 2010, 6705, 4095}, scale);
    layout.PicLineHoriz = inPixels({60, 1950, 6705, 100}, scale);
    layout.savedSplitterTop = layout.PicLineHoriz.top;
    layout.line1Right = designWidth / scale.perPixelX;
    layout.FLX_Configuration = {120, 180, 6435, 1635};
    layout.FLX_Settings = {90, 210, 6495, 3795};
    return layout;
}

Window_Layout resized(Window_Layout layout, double formWidth, double formHeight) {
    resizeWidth(layout, formWidth);
    resizeHeight(layout, formHeight);
    return layout;
}

double splitterTop(const Window_Layout& layout, double mouseY, double statusTop) {
    const double margin = splitterMargin / layout.scale.perPixelY;
    const double wanted = layout.PicLineHoriz.top + mouseY;
    return std::max(margin, std::min(wanted, statusTop - margin));
}

Window_Layout splitterReleased(Window_Layout layout) {
    const double perPixel = layout.scale.perPixelY;
    const double change = layout.PicLineHoriz.top - layout.savedSplitterTop;
    layout.Frame2.height += change;
    layout.FLX_Configuration.height += change * perPixel;
    layout.Frame3.top += change;
    layout.Frame3.height -= change;
    layout.FLX_Settings.top = settingsTopAfterDrop;
    layout.FLX_Settings.height = layout.Frame3.height * perPixel - settingsTopAfterDrop;
    layout.savedSplitterTop = layout.PicLineHoriz.top;
    return layout;
}

} // namespace zorvane::ui
