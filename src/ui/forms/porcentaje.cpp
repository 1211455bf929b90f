// SPDX-License-Identifier: MIT
#include "ui/forms/porcentaje.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <utility>

namespace zorvane::ui {

namespace {

constexpr double progressFormWidth = 4695;
constexpr double progressFormHeight = 1245;
constexpr Twips_Rect progressLabelPlace{660, 180, 3375, 225};
constexpr Twips_Rect wideLabelPlace{90, 180, 4485, 225};
constexpr Twips_Rect barPlace{90, 450, 4485, 315};
constexpr Twips_Rect progressCancelPlace{1647, 870, 1400, 345};
constexpr Twips_Rect progressOkPlace{1650, 870, 1400, 345};

} // namespace

Porcentaje::Porcentaje(Porcentaje_Hooks hooks, QWidget* parent)
    : Fixed_Dialog(QStringLiteral("Porcentaje"), QStringLiteral("Zorvane"), progressFormWidth,
                   progressFormHeight, parent),
      hooks_(std::move(hooks)) {
    auto* box = new QGroupBox(this);
    put(*box, QStringLiteral("Frame1"), {0, 0, progressFormWidth, progressFormHeight});
    box->setAccessibleName(QStringLiteral("Progress"));
    box->setFlat(true);
    label_ = new QLabel(this);
    put(*label_, QStringLiteral("Label1"), progressLabelPlace);
    label_->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    QFont bold = label_->font();
    bold.setBold(true);
    label_->setFont(bold);
    bar_ = new QProgressBar(this);
    put(*bar_, QStringLiteral("Progress_Bar"), barPlace);
    bar_->setAccessibleName(QStringLiteral("Progress"));
    bar_->setValue(0);
    cancel_ = &addButton(QStringLiteral("BOT_Cancel"), QStringLiteral("Cancel"), progressCancelPlace);
    ok_ = &addButton(QStringLiteral("Bot_Ok"), QStringLiteral("Ok"), progressOkPlace);
    load();
    connect(cancel_, &QPushButton::clicked, this, [this] { cancelChosen(); });
    connect(ok_, &QPushButton::clicked, this, [this] { unload(); });
}

/// Words that the label's place would cut take the whole width; its middle stays where it is.
void Porcentaje::setLabel(const QString& text) {
    label_->setText(text);
    placeAt(*label_, progressLabelPlace);
    if (label_->sizeHint().width() > label_->width()) placeAt(*label_, wideLabelPlace);
}

void Porcentaje::load() {
    ok_->hide();
    cancel_->show();
    cancel_->setFocus();
}

void Porcentaje::Deshabilita_Cancelar() {
    cancel_->hide();
    ok_->show();
    ok_->setFocus();
    bar_->setValue(0);
}

void Porcentaje::unload() {
    hide();
    if (hooks_.unloaded) hooks_.unloaded();
}

/// The question may stand while the transfer ends by itself; it is asked once.
void Porcentaje::cancelChosen() {
    if (std::exchange(asking_, true)) return;
    if (hooks_.cancel) hooks_.cancel();
    asking_ = false;
}

void Porcentaje::buttonThatShows() {
    if (ok_->isHidden())
        cancelChosen();
    else
        unload();
}

void Porcentaje::reject() { buttonThatShows(); }

void Porcentaje::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (isVisible()) buttonThatShows();
}

} // namespace zorvane::ui
