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

/// Whether Qt's own style draws on a dark ground.
bool Focus_Style::framesAreDark(const QPalette& palette) const {
    constexpr int half = 128;
    return baseStyle()->name().compare(QLatin1String("fusion"), Qt::CaseInsensitive) == 0 &&
           palette.color(QPalette::Active, QPalette::Base).lightness() < half;
}

void Focus_Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_IndicatorCheckBox && element != PE_IndicatorItemViewItemCheck) return;
    if (!framesAreDark(option->palette)) return;
    const double part = option->state.testFlag(State_Enabled) ? faintPart : faintPart / 2;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(mixed(option->palette.color(QPalette::Active, QPalette::Text), part,
                          option->palette.color(QPalette::Active, QPalette::Base)));
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    painter->restore();
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
