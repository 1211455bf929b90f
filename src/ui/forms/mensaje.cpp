// SPDX-License-Identifier: MIT
#include "ui/forms/mensaje.h"

#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>

namespace zorvane::ui {

namespace {

constexpr int dotInterval = 250; // ms
constexpr int restartLength = 35;

QString startText() { return QStringLiteral("Processing information."); }

} // namespace

Mensaje::Mensaje(bool animated, QWidget* parent)
    : Fixed_Dialog(QStringLiteral("Mensaje"), QStringLiteral("Processing Information ..."), 6195, 960,
                   parent),
      animated_(animated) {
    setWindowFlag(Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* box = new QGroupBox(this);
    put(*box, QStringLiteral("Frame1"), {60, 60, 6015, 855});
    box->setAccessibleName(QStringLiteral("Busy"));
    auto* heading = new QLabel(QStringLiteral("Please wait"), box);
    put(*heading, QStringLiteral("TXT_Mensaje"), {150, 120, 2640, 240});
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    label_ = new QLabel(startText(), box);
    put(*label_, QStringLiteral("Label1"), {150, 300, 5655, 495});
    animation_ = new QProgressBar(box);
    put(*animation_, QStringLiteral("Anima"), {150, 450, 1605, 285});
    animation_->setAccessibleName(QStringLiteral("Busy"));
    animation_->setRange(0, 0);
    timer_.setInterval(dotInterval);
    connect(&timer_, &QTimer::timeout, this, [this] { Timer1_Timer(); });
    load();
}

void Mensaje::onCancel(std::function<void()> handler) {
    cancelled_ = std::move(handler);
    if (cancel_ != nullptr) return;
    cancel_ = &addButton(QStringLiteral("BOT_Cancel"), QStringLiteral("Cancel"), {4500, 260, 1400, 345});
    connect(cancel_, &QPushButton::clicked, this, [this] { reject(); });
}

/// Whoever showed the form unloads it.
void Mensaje::reject() {
    if (!cancelled_) return Fixed_Dialog::reject();
    cancel_->setEnabled(false);
    cancelled_();
}

void Mensaje::load() {
    label_->setVisible(!animated_);
    animation_->setVisible(animated_);
}

void Mensaje::setTimerEnabled(bool enabled) {
    timerEnabled_ = enabled;
    if (enabled && isVisible() && !animated_)
        timer_.start();
    else
        timer_.stop();
}

void Mensaje::Timer1_Timer() {
    const QString longer = label_->text() + u'.';
    label_->setText(longer.size() >= restartLength ? startText() : longer);
}

void Mensaje::showEvent(QShowEvent* event) {
    Fixed_Dialog::showEvent(event);
    move(screen()->geometry().center() - rect().center());
    if (!animated_ && timerEnabled_) timer_.start();
}

void Mensaje::hideEvent(QHideEvent* event) {
    timer_.stop();
    Fixed_Dialog::hideEvent(event);
}

} // namespace zorvane::ui
