// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace zorvane::ui {

/// The desktop's style, in which the button that has the keyboard can be told from the one that Enter
/// presses: some styles draw both alike. A dark desktop's hints in empty fields, and what is disabled, are
/// told from their ground: some desktops give no colour for them, and Qt's is made for light ones.
/// Nor does Qt's own style frame a box for a tick there so that it can be seen.
class Focus_Style final : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    using QProxyStyle::polish;
    void polish(QPalette& palette) override;

  private:
    [[nodiscard]] bool framesAreDark(const QPalette& palette) const;
};

} // namespace zorvane::ui
