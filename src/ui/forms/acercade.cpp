// SPDX-License-Identifier: MIT
#include "ui/forms/acercade.h"

#include "template/services/asker.h"
#include "ui/base/icons.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

namespace zorvane::ui {

namespace {

constexpr Twips_Rect versionPlace{120, 1440, 5800, 255};
constexpr Twips_Rect purposePlace{120, 1740, 5800, 255};
constexpr Twips_Rect licencePlace{120, 2010, 5800, 255};
constexpr Twips_Rect closePlace{4500, 2340, 1400, 345};

QString credits() { return QStringLiteral("Zorvane by the Zorvane developers\r\nAugust 10, 2017"); }

} // namespace

Acercade::Acercade(Ask_User ask, QWidget* parent)
    : Fixed_Dialog(QStringLiteral("Acercade"), QStringLiteral("About..."), 6045, 2835, parent),
      ask_(std::move(ask)) {
    auto* logo = new QLabel(this);
    const QSize logoSize(400, 78);
    put(*logo, QStringLiteral("IMG_Logo"), {});
    logo->setGeometry((width() - logoSize.width()) / 2, 8, logoSize.width(), logoSize.height());
    logo->setPixmap(icon(QStringLiteral("logo")).pixmap(logoSize, devicePixelRatioF()));
    logo->setAccessibleName(QStringLiteral("Zorvane"));
    const auto addLabel = [this](const char* name, const QString& text, const Twips_Rect& place) {
        auto* label = new QLabel(text, this);
        label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
        put(*label, QString::fromLatin1(name), place);
    };
    addLabel("Label8", QStringLiteral("Zorvane\u2122 v1.61 (August 10, 2017)"), versionPlace);
    addLabel("Label1", QStringLiteral("Configuration of Modbus RTU controllers"), purposePlace);
    addLabel("Label2", QStringLiteral("Made by the Zorvane developers, under the MIT licence"), licencePlace);
    close_ = &addButton(QStringLiteral("Command1"), QStringLiteral("Close"), closePlace);
    close_->installEventFilter(this);
    connect(close_, &QPushButton::clicked, this, &QDialog::close);
}

bool Acercade::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = watched == close_ && event->type() == QEvent::KeyPress;
    if (!isKey || static_cast<QKeyEvent*>(event)->key() != Qt::Key_F12)
        return Fixed_Dialog::eventFilter(watched, event);
    ask_(credits(), Msgb_Information, QStringLiteral(" Desarrollador "));
    return true;
}

} // namespace zorvane::ui
