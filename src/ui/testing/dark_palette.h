// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

namespace zorvane::samples {

/// The colours of a dark desktop, for pictures.
inline QPalette darkPalette() {
    QPalette palette(QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

} // namespace zorvane::samples
