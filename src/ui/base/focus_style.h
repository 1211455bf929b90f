// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace zorvane::ui {

/// The desktop's style, in which the button that has the keyboard can be told from the one that Enter
/// presses: some styles draw both alike. A dark desktop's hints in empty fields, and what is disabled, are
/// told from their ground: some desktops give no colour for them, and Qt's is made for light ones.
class Focus_Style final : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
};

} // namespace zorvane::ui
