// SPDX-License-Identifier: MIT
#include "ui/main/status_bar.h"

#include "ui/base/copyable.h"
#include "ui/base/text.h"

#include <QHelpEvent>
#include <QPainter>
#include <QPushButton>
#include <QToolTip>

#include <algorithm>

namespace zorvane::ui {

namespace {

struct Panel_Design {
    const char* text;
    const char* toolTip;
};

constexpr std::array<Panel_Design, panelCount> panelDesigns = {{{"File type", ""},
                                                                {"Communication", ""},
                                                                {"Modbus RTU", ""},
                                                                {"Status", ""},
                                                                {"Tx", "Transmitting data"},
                                                                {"Rx", "Receiving data"},
                                                                {"", ""}}};
constexpr int textMargin = 4;
constexpr std::size_t messagePanel = 3; // from 0
constexpr double panelPoints = 8.25;
constexpr int standingMs = 200;

} // namespace

Status_Panel::Status_Panel(int number, QWidget* parent) : QLabel(parent) {
    giveName(*this, QStringLiteral("StatusBar1_%1").arg(number));
    setTextFormat(Qt::PlainText);
    QFont small = font();
    small.setPointSizeF(panelPoints);
    setFont(small);
    makeCopyable(*this, [this] { return text(); });
}

void Status_Panel::setOwnToolTip(const QString& text) {
    ownToolTip_ = text;
    setToolTip(text);
}

bool Status_Panel::isCut() const {
    return fontMetrics().horizontalAdvance(text()) > width() - 2 * textMargin;
}

bool Status_Panel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !ownToolTip_.isEmpty() || !isCut()) return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), literalTip(text()), this);
    return true;
}

void Status_Panel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    const QRect place = rect().adjusted(textMargin, 0, -textMargin, 0);
    if (place.width() <= 0) return;
    painter.setPen(palette().color(QPalette::WindowText));
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

Status_Bar::Status_Bar(QWidget* parent) : QStatusBar(parent) {
    giveName(*this, QStringLiteral("StatusBar1"));
    setAccessibleName(QStringLiteral("Status"));
    setSizeGripEnabled(false);
    for (std::size_t i = 0; i < panelCount; ++i) {
        panels_[i] = new Status_Panel(static_cast<int>(i + 1), this);
        panels_[i]->setText(QString::fromLatin1(panelDesigns[i].text));
        panels_[i]->setOwnToolTip(QString::fromLatin1(panelDesigns[i].toolTip));
    }
    log_ = new QPushButton(QStringLiteral("&Log..."), this);
    giveName(*log_, QStringLiteral("BOT_Log"));
    log_->setFont(panels_[messagePanel]->font());
    log_->setToolTip(QStringLiteral("Show the log of the last transfer"));
    log_->hide();
    connect(log_, &QPushButton::clicked, this, [this] {
        if (logChosen) logChosen();
    });
    standing_.setSingleShot(true);
    standing_.setInterval(standingMs);
    connect(&standing_, &QTimer::timeout, this, [this] { tellMessageCut(panels_[messagePanel]->text()); });
    setFixedHeight(scaleOf(*this).pixelsY(Window_Layout{}.statusHeight));
}

QWidget& Status_Bar::BOT_Log() const { return *log_; }

void Status_Bar::setText(int panel, const QString& text) {
    at(panel).setText(text);
    if (panel != static_cast<int>(messagePanel) + 1) return;
    messageSet_ = true;
    noteMessageCut();
}

/// Many a text stands there for less than a blink, and nobody is to be told of those.
void Status_Bar::noteMessageCut() {
    const Status_Panel& panel = *panels_[messagePanel];
    if (!messageSet_) return;
    if (panel.text().isEmpty() || !panel.isCut()) {
        standing_.stop();
        tellMessageCut({});
    } else if (panel.text() != cutTold_) {
        standing_.start();
    }
}

void Status_Bar::tellMessageCut(const QString& text) {
    if (text == cutTold_) return;
    cutTold_ = text;
    if (messageCut) messageCut(text);
}

void Status_Bar::setLogOffered(bool offered) {
    log_->setVisible(offered);
    placePanels();
}

bool Status_Bar::logOffered() const { return !log_->isHidden(); }

void Status_Bar::setLogEnabled(bool enabled) { log_->setEnabled(enabled); }

void Status_Bar::setPanelWidths(const std::array<double, panelCount>& widths) {
    widths_ = widths;
    placePanels();
}

/// A panel stays one pixel wide at least, so that whoever reads the screen still finds its text.
void Status_Bar::placePanels() {
    const Twips_Scale scale = scaleOf(*this);
    double left = 0;
    for (std::size_t i = 0; i < panelCount; ++i) {
        const int from = scale.pixelsX(left);
        left += widths_[i];
        panels_[i]->setGeometry(from, 2, std::max(1, scale.pixelsX(left) - from), std::max(1, height() - 3));
    }
    if (!log_->isHidden()) placeLog();
    noteMessageCut();
}

/// A panel too narrow for the button lets it reach over the lights, which are off after a transfer.
void Status_Bar::placeLog() {
    QRect message = panels_[messagePanel]->geometry();
    const int width = log_->fontMetrics().horizontalAdvance(log_->text()) + 6 * textMargin;
    const int left = std::max(message.left(), message.right() - width);
    log_->setGeometry(left, message.top(), width, message.height());
    log_->raise();
    message.setRight(std::max(message.left(), left - 1));
    panels_[messagePanel]->setGeometry(message);
}

void Status_Bar::resizeEvent(QResizeEvent* event) {
    QStatusBar::resizeEvent(event);
    placePanels();
}

} // namespace zorvane::ui
