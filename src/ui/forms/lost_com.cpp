// SPDX-License-Identifier: MIT
#include "ui/forms/lost_com.h"

#include "ui/base/beside.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace zorvane::ui {

namespace {

/// A window whose frame the desktop hasn't made yet is told without it.
constexpr int gapPixels = 36;

} // namespace

Lost_Com::Lost_Com(QWidget* parent)
    : Fixed_Dialog(QStringLiteral("LostCom"), QStringLiteral("About Communication...."), 6060, 705, parent) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* label = new QLabel(QStringLiteral("Lost communication to device..."), this);
    QFont large(QStringLiteral("MS Sans Serif"), 12, QFont::Bold);
    label->setFont(large);
    put(*label, QStringLiteral("Label1"), {150, 150, 4350, 405});
    QPushButton& ok = addButton(QStringLiteral("OKButton"), QStringLiteral("OK"), {4560, 180, 1400, 345});
    connect(&ok, &QPushButton::clicked, this, &QDialog::close);
}

/// A question that comes up later is told of as well, but only while it is on its way to the screen.
bool Lost_Com::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked)
        QMetaObject::invokeMethod(
            this, [this] { joinQuestion(); }, Qt::QueuedConnection);
    if (event->type() == QEvent::WindowActivate && std::exchange(leavesKeyboard_, false) &&
        question_ != nullptr)
        question_->activateWindow();
    return Fixed_Dialog::event(event);
}

void Lost_Com::showEvent(QShowEvent* event) {
    Fixed_Dialog::showEvent(event);
    joinQuestion();
    leavesKeyboard_ = question_ != nullptr;
}

void Lost_Com::hideEvent(QHideEvent* event) {
    const bool active = isActiveWindow();
    QWidget* const question = question_;
    leaveQuestion();
    Fixed_Dialog::hideEvent(event);
    if (active && question != nullptr) question->activateWindow();
}

/// A modal window lets no other one take input but those that belong to it.
void Lost_Com::joinQuestion() {
    QWidget* const question = QApplication::activeModalWidget();
    if (!isVisible() || question == nullptr || question == question_) return;
    leaveQuestion();
    question_ = question;
    question->installEventFilter(this);
    windowHandle()->setTransientParent(question->windowHandle());
    standBesideQuestion();
}

void Lost_Com::leaveQuestion() {
    if (question_ == nullptr) return;
    question_->removeEventFilter(this);
    question_.clear();
    if (windowHandle() != nullptr && parentWidget() != nullptr)
        windowHandle()->setTransientParent(parentWidget()->window()->windowHandle());
}

void Lost_Com::standBesideQuestion() {
    const QRect place = frameGeometry();
    if (!place.intersects(question_->frameGeometry().adjusted(0, -gapPixels, 0, gapPixels))) return;
    move(placeBeside(place.size(), question_->frameGeometry(), screen()->availableGeometry(), gapPixels));
}

bool Lost_Com::eventFilter(QObject* watched, QEvent* event) {
    if (watched == question_) {
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize) standBesideQuestion();
        if (event->type() == QEvent::Hide) {
            leaveQuestion();
            // Another question may stand behind it.
            QMetaObject::invokeMethod(
                this, [this] { joinQuestion(); }, Qt::QueuedConnection);
        }
    }
    return Fixed_Dialog::eventFilter(watched, event);
}

} // namespace zorvane::ui
