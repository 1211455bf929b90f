// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetrics>
#include <QStyledItemDelegate>

#include <array>

namespace zorvane::ui {

/// Paints the monitor's cells: one line of text each, and no more of it than its cell can show. Qt's own way
/// lays out every text again, a block of 125 registers like a page, which took most of an open monitor's
/// time.
class Traffic_Delegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const override;

    /// As much of a text as fits into `width` pixels of the font, with three dots where some is left out.
    [[nodiscard]] QString fitting(const QString& text, int width, const QFontMetrics& metrics) const;

  private:
    [[nodiscard]] int widthOf(QChar character, const QFontMetrics& metrics) const;

    // Widths of the plain characters, reckoned once for a font.
    mutable QFontMetrics metrics_{QFont()};
    mutable std::array<int, 128> widths_{};
};

} // namespace zorvane::ui
