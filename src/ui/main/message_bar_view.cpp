// SPDX-License-Identifier: MIT
#include "ui/main/message_bar_view.h"

#include "ui/base/roles.h"
#include "ui/base/text.h"

#include <QScrollBar>

#include <algorithm>

namespace zorvane::ui {

namespace {

constexpr double barPoints = 8.25;

} // namespace

Message_Bar_View::Message_Bar_View(QWidget* parent) : QScrollArea(parent) {
    giveRole(*this, QAccessible::Grouping);
    giveName(*this, QStringLiteral("MessageBar"));
    setAccessibleName(QStringLiteral("Messages"));
    QFont small = font();
    small.setPointSizeF(barPoints);
    setFont(small);
    setFocusPolicy(Qt::NoFocus);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    sheet_ = new QWidget;
    setWidget(sheet_);
    viewport()->setAutoFillBackground(true);
    viewport()->setBackgroundRole(QPalette::Window);
    notify = [](QAccessibleEvent& event) { QAccessible::updateAccessibility(&event); };
    hide();
}

Message_Line* Message_Bar_View::lineOf(const QString& topic) const {
    const auto found = std::find_if(lines_.begin(), lines_.end(),
                                    [&](const Message_Line* l) { return l->topic() == topic; });
    return found == lines_.end() ? nullptr : *found;
}

Message_Line& Message_Bar_View::addLine() {
    auto* line = new Message_Line(sheet_);
    line->onClose = [this, line] {
        if (onClose) onClose(line->topic());
    };
    line->onLeave = [this] {
        if (onLeave) onLeave();
    };
    line->beforeButton = [this] {
        if (beforeButton) beforeButton();
    };
    line->onFocus = [this](QWidget& control) { ensureWidgetVisible(&control, 0, 0); };
    return *line;
}

void Message_Bar_View::setLines(const std::vector<Shown_Line>& lines) {
    const auto focused = std::find_if(lines_.begin(), lines_.end(), [](const Message_Line* line) {
        return line->isAncestorOf(line->window()->focusWidget());
    });
    const auto focusIndex = static_cast<std::size_t>(focused - lines_.begin());
    const bool hadFocus = focused != lines_.end();
    std::vector<Message_Line*> gone = lines_;
    std::vector<Message_Line*> shown;
    std::vector<Message_Line*> said;
    for (const Shown_Line& line : lines) {
        Message_Line* const old = lineOf(line.topic);
        Message_Line& view = old != nullptr ? *old : addLine();
        gone.erase(std::remove(gone.begin(), gone.end(), &view), gone.end());
        shown.push_back(&view);
        if (view.setLine(line, static_cast<int>(shown.size()))) said.push_back(&view);
    }
    const bool focusGone = hadFocus && std::find(gone.begin(), gone.end(), *focused) != gone.end();
    lines_ = std::move(shown);
    setVisible(!lines_.empty());
    placeLines();
    orderStops();
    if (contentChanged) contentChanged();
    if (focusGone) giveFocusOn(focusIndex);
    for (Message_Line* line : gone) {
        line->forget();
        line->deleteLater();
    }
    if (!said.empty()) verticalScrollBar()->setValue(0);
    for (Message_Line* line : said) {
        QAccessibleEvent alert(line, QAccessible::Alert);
        notify(alert);
    }
}

/// After a line with the keyboard went: the next line has it, or whatever had it before the bar.
void Message_Bar_View::giveFocusOn(std::size_t index) {
    if (!lines_.empty())
        lines_[std::min(index, lines_.size() - 1)]->cross().setFocus(Qt::OtherFocusReason);
    else if (onLeave)
        onLeave();
}

/// New widgets stand last in the order of Tab, which goes round; lines are to stand in it as they do on the
/// screen.
void Message_Bar_View::orderStops() {
    QWidget* before = stopBefore_;
    for (const Message_Line* line : lines_)
        for (QWidget* stop : line->stops()) {
            if (before != nullptr) setTabOrder(before, stop);
            before = stop;
        }
}

int Message_Bar_View::lineHeight() const {
    return lines_.empty() ? 0 : lines_.front()->lowestHeight() + 2 * frameWidth();
}

int Message_Bar_View::neededHeight(int width) {
    int height = 2 * frameWidth();
    for (const Message_Line* line : lines_)
        height += line->neededHeight(width - 2 * frameWidth());
    return height;
}

void Message_Bar_View::setCut(bool cut) {
    if (cut == cut_) return;
    cut_ = cut;
    placeLines();
}

void Message_Bar_View::placeLines() {
    const auto heightAt = [&](int width) {
        int height = 0;
        for (Message_Line* line : lines_) {
            line->setCut(cut_);
            height += line->neededHeight(width);
        }
        return height;
    };
    const QSize whole = maximumViewportSize();
    const bool scrolls = heightAt(whole.width()) > whole.height();
    const int width = whole.width() - (scrolls ? verticalScrollBar()->sizeHint().width() : 0);
    int top = 0;
    for (Message_Line* line : lines_) {
        const int height = line->neededHeight(width);
        line->setGeometry(0, top, width, height);
        line->setVisible(true);
        top += height;
    }
    sheet_->resize(width, top);
    verticalScrollBar()->setSingleStep(fontMetrics().lineSpacing());
}

void Message_Bar_View::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    placeLines();
}

void Message_Bar_View::setTabStops(bool on) {
    for (Message_Line* line : lines_)
        line->setTabStops(on);
}

bool Message_Bar_View::holdsFocus() const { return isAncestorOf(window()->focusWidget()); }

} // namespace zorvane::ui
