// SPDX-License-Identifier: MIT
#include "ui/main/message_line.h"

#include "ui/base/copyable.h"
#include "ui/base/icons.h"
#include "ui/base/roles.h"
#include "ui/base/text.h"
#include "ui/base/wrapped_label.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include <algorithm>

namespace zorvane::ui {

namespace {

constexpr int gap = 4; // pixels, at 100 %

QString wordOf(const Shown_Line& line) {
    return line.warning ? QStringLiteral("Warning") : QStringLiteral("Note");
}

/// A caption is shown as it is: it has no letter of its own, since every letter may be a menu's.
QString withoutMnemonic(QString caption) { return caption.replace(u'&', QStringLiteral("&&")); }

bool isEnter(const QKeyEvent& key) { return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter; }

} // namespace

Message_Line::Message_Line(QWidget* parent) : QFrame(parent) {
    makeCopyable(*this, [this] { return line_.text; });
    giveRole(*this, QAccessible::AlertMessage);
    icon_ = new QLabel(this);
    word_ = new Wrapped_Label(this);
    word_->setReadableAlways();
    QFont bold = font();
    bold.setBold(true);
    word_->setFont(bold);
    text_ = new Wrapped_Label(this);
    text_->setReadableAlways();
    for (QPushButton*& button : buttons_)
        button = &addButton();
    for (std::size_t i = 0; i < buttons_.size(); ++i)
        connect(buttons_[i], &QPushButton::clicked, this, [this, i] { press(i); });
    cross_ = &addButton();
    cross_->setFlat(true);
    cross_->setText(QString(QChar(0x00D7)));
    cross_->setAccessibleName(QStringLiteral("Take this message away"));
    cross_->setToolTip(QStringLiteral("Take this message away"));
    connect(cross_, &QPushButton::clicked, this, [this] {
        if (onClose) onClose();
    });
}

QPushButton& Message_Line::addButton() {
    auto* button = new QPushButton(this);
    button->setFocusPolicy(Qt::TabFocus);
    button->installEventFilter(this);
    return *button;
}

bool Message_Line::setLine(const Shown_Line& line, int number) {
    const bool another = line.text != line_.text || line.warning != line_.warning;
    line_ = line;
    const QString name = QStringLiteral("BAR_%1").arg(number);
    giveName(*this, name);
    setAccessibleName(wordOf(line) + QStringLiteral(": ") + line.text);
    giveName(*icon_, name + QStringLiteral("_Icon"));
    icon_->setAccessibleName(wordOf(line));
    drawIcon();
    giveName(*word_, name + QStringLiteral("_Word"));
    word_->setText(wordOf(line));
    giveName(*text_, name + QStringLiteral("_Text"));
    text_->setText(line.text);
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        giveName(*buttons_[i], name + QStringLiteral("_Button%1").arg(i + 1));
        const bool there = i < line.buttons.size();
        buttons_[i]->setText(there ? withoutMnemonic(line.buttons[i].caption) : QString());
        buttons_[i]->setVisible(there);
    }
    giveName(*cross_, name + QStringLiteral("_Close"));
    setCut(cut_);
    place();
    return another;
}

void Message_Line::drawIcon() {
    const Drawing wanted{line_.warning, fontMetrics().height(), devicePixelRatioF()};
    if (wanted == drawing_) return;
    drawing_ = wanted;
    icon_->setPixmap(icon(line_.warning ? QStringLiteral("exclamation") : QStringLiteral("information"))
                         .pixmap(QSize(wanted.side, wanted.side), wanted.ratio));
}

void Message_Line::setCut(bool cut) {
    cut_ = cut;
    text_->setCut(cut);
    text_->setToolTip(cut ? literalTip(line_.text) : QString());
}

int Message_Line::buttonHeight() const { return fontMetrics().height() + 2 * gap; }

int Message_Line::buttonWidth(const QPushButton& button) const {
    return button.fontMetrics().horizontalAdvance(button.text()) + 4 * gap;
}

int Message_Line::buttonsWidth() const {
    int width = 0;
    for (const QPushButton* button : buttons_)
        if (!button->text().isEmpty()) width += buttonWidth(*button) + gap;
    return width;
}

int Message_Line::textLeft() const {
    return gap + fontMetrics().height() + gap + word_->sizeHint().width() + 2 * gap;
}

int Message_Line::lowestHeight() const { return buttonHeight() + gap; }

/// Of the text's first line, which stands in the middle of a line that has no second.
int Message_Line::firstTop() const { return (lowestHeight() - fontMetrics().height()) / 2; }

/// Text and buttons in one row.
Message_Line::Places Message_Line::beside(int width) const {
    const int left = textLeft();
    const int right = width - gap - buttonHeight() - gap - buttonsWidth();
    const int textWidth = std::max(1, right - left);
    const int textHeight = cut_ ? fontMetrics().height() : text_->neededHeight(textWidth);
    const int height = std::max(lowestHeight(), firstTop() + textHeight + gap);
    return {{left, firstTop(), textWidth, textHeight}, gap / 2, height};
}

/// The buttons in a row of their own.
Message_Line::Places Message_Line::below(int width) const {
    const int left = textLeft();
    const int textWidth = std::max(1, width - gap - buttonHeight() - gap - left);
    const int textHeight = text_->neededHeight(textWidth);
    const int buttonsTop = firstTop() + textHeight + gap / 2;
    return {{left, firstTop(), textWidth, textHeight}, buttonsTop, buttonsTop + buttonHeight() + gap / 2};
}

/// Whichever is lower, as long as the text beside the buttons has some room.
Message_Line::Places Message_Line::places(int width) const {
    const Places inOneRow = beside(width);
    if (cut_ || buttonsWidth() == 0) return inOneRow;
    const Places inTwo = below(width);
    return inTwo.height < inOneRow.height ? inTwo : inOneRow;
}

int Message_Line::neededHeight(int width) const { return places(width).height; }

void Message_Line::place() {
    const Places now = places(width());
    const int side = fontMetrics().height();
    icon_->setGeometry(gap, firstTop(), side, side);
    word_->setGeometry(gap + side + gap, firstTop(), word_->sizeHint().width(), side);
    text_->setGeometry(now.text);
    cross_->setGeometry(width() - gap - buttonHeight(), gap / 2, buttonHeight(), buttonHeight());
    int left = now.buttonsTop > gap / 2 ? now.text.left() : now.text.right() + 1 + gap;
    for (QPushButton* button : buttons_) {
        button->setGeometry(left, now.buttonsTop, buttonWidth(*button), buttonHeight());
        left += buttonWidth(*button) + gap;
    }
}

void Message_Line::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    place();
}

std::vector<QWidget*> Message_Line::stops() const {
    std::vector<QWidget*> stops;
    for (QPushButton* button : buttons_)
        if (!button->text().isEmpty()) stops.push_back(button);
    stops.push_back(cross_);
    return stops;
}

QWidget& Message_Line::cross() const { return *cross_; }

void Message_Line::setTabStops(bool on) {
    for (QPushButton* button : {buttons_[0], buttons_[1], cross_})
        button->setFocusPolicy(on ? Qt::TabFocus : Qt::NoFocus);
}

void Message_Line::forget() {
    hide();
    setObjectName({});
    for (QWidget* part : findChildren<QWidget*>())
        part->setObjectName({});
}

/// The function may take the line away, and with it the function itself.
void Message_Line::press(std::size_t number) {
    if (number >= line_.buttons.size()) return;
    const std::function<void()> chosen = line_.buttons[number].press;
    if (beforeButton) beforeButton();
    if (chosen) chosen();
}

bool Message_Line::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && onFocus) onFocus(*static_cast<QWidget*>(watched));
    if (event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (isEnter(key)) {
        static_cast<QPushButton*>(watched)->click();
        return true;
    }
    if (key.key() == Qt::Key_Escape && onLeave) {
        onLeave();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}

} // namespace zorvane::ui
