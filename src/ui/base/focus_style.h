// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace zorvane::ui {

/// The desktop's style, in which the button that has the keyboard can be told from the one that Enter
/// presses: some styles draw both alike.
class Focus_Style final : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

} // namespace zorvane::ui
