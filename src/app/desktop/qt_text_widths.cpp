// SPDX-License-Identifier: MIT
#include "app/desktop/qt_text_widths.h"

#include "ui/base/text.h"

#include <QFontMetricsF>

namespace zorvane::app {

double Qt_Text_Widths::textWidth(const std::string& text, double points) const {
    QFont font = font_();
    font.setPointSizeF(points);
    return QFontMetricsF(font).horizontalAdvance(ui::fromCore(text)) * twipsPerPixel_();
}

} // namespace zorvane::app
