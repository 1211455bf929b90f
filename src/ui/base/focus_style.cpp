// SPDX-License-Identifier: MIT
#include "ui/base/focus_style.h"

#include "ui/base/contrast.h"

#include <QPainter>
#include <QStyleOption>

#include <array>

namespace zorvane::ui {

namespace {

constexpr int besideEdge = 3;       // pixels
constexpr double leastContrast = 2; // of words that aren't in force
constexpr double faintPart = 0.5;   // of the usual text's colour, for such words

/// Words of one role, and where they stand.
struct Words_On_Ground {
    QPalette::ColorRole words;
    QPalette::ColorRole usual; ///< of such words in force
    QPalette::ColorRole ground;
};

void makeReadable(QPalette& palette, QPalette::ColorGroup group, const Words_On_Ground& part) {
    const QColor ground = palette.color(group, part.ground);
    const QColor words = palette.color(group, part.words);
    if (contrastOf(mixed(words, words.alphaF(), ground), ground) >= leastContrast) return;
    palette.setColor(group, part.words,
                     mixed(palette.color(QPalette::Active, part.usual), faintPart, ground));
}

} // namespace

void Focus_Style::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    constexpr std::array faint = {
        Words_On_Ground{QPalette::WindowText, QPalette::WindowText, QPalette::Window},
        Words_On_Ground{QPalette::Text, QPalette::Text, QPalette::Base},
        Words_On_Ground{QPalette::ButtonText, QPalette::ButtonText, QPalette::Button}};
    for (const Words_On_Ground& part : faint)
        makeReadable(palette, QPalette::Disabled, part);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
        makeReadable(palette, group, {QPalette::PlaceholderText, QPalette::Text, QPalette::Base});
}

void Focus_Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    const QStyle::State shown = State_HasFocus | State_KeyboardFocusChange;
    if (element != CE_PushButton || (option->state & shown) != shown) return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(option->palette.color(QPalette::ButtonText), 1, Qt::DotLine));
    painter->drawRect(option->rect.adjusted(besideEdge, besideEdge, -besideEdge - 1, -besideEdge - 1));
    painter->restore();
}

} // namespace zorvane::ui
