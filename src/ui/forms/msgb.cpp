// SPDX-License-Identifier: MIT
#include "ui/forms/msgb.h"

#include "template/services/asker.h"
#include "ui/base/copyable.h"
#include "ui/base/icons.h"
#include "ui/base/text.h"
#include "ui/base/wrapped_label.h"

#include <QPushButton>

namespace zorvane::ui {

namespace {

constexpr double boxWidth = 6600;
constexpr double boxHeight = 1950;
constexpr Twips_Rect messagePlace{750, 360, 4125, 1335};
constexpr std::array<Twips_Rect, 3> buttonPlaces = {
    {{5010, 420, 1400, 345}, {5010, 900, 1400, 345}, {5010, 1380, 1400, 345}}};
constexpr Twips_Rect messageIconPlace{135, 360, 480, 480};

} // namespace

Msgb::Msgb(const QString& prompt, int style, const QString& title, QWidget* parent)
    : Fixed_Dialog(QStringLiteral("Msgb"), title, boxWidth, boxHeight, parent), result_(Msgb_Code_Cancel) {
    setModal(true);
    makeCopyable(*this, [title, prompt] { return title + QStringLiteral("\n\n") + prompt; });
    const Msgb_Look look = msgbLook(style);
    addIcons(look);
    addMessage(prompt);
    addButtons(look);
}

void Msgb::addIcons(const Msgb_Look& look) {
    struct Drawing {
        const char* name;
        const char* file;
        bool shown;
    };
    const std::array drawings = {Drawing{"IMG_Critical", "critical", look.critical},
                                 Drawing{"IMG_Exclamation", "exclamation", look.exclamation},
                                 Drawing{"IMG_Question", "question", look.question},
                                 Drawing{"IMG_information", "information", look.information}};
    for (const Drawing& drawing : drawings) {
        auto* image = new QLabel(this);
        put(*image, QString::fromLatin1(drawing.name), messageIconPlace);
        image->setAccessibleName(QString::fromLatin1(drawing.file));
        image->setPixmap(icon(QString::fromLatin1(drawing.file)).pixmap(image->size(), devicePixelRatioF()));
        image->setVisible(drawing.shown);
    }
}

void Msgb::addMessage(const QString& prompt) {
    auto* message = new Wrapped_Label(this);
    message->setText(prompt);
    put(*message, QStringLiteral("txt_mensaje"), messagePlace);
    const int missing = message->neededHeight(message->width()) - message->height();
    if (missing <= 0) return;
    message->resize(message->width(), message->height() + missing);
    setFixedSize(width(), height() + missing);
}

void Msgb::addButtons(const Msgb_Look& look) {
    for (std::size_t i = 0; i < buttonPlaces.size(); ++i) {
        const Msgb_Look::Button& design = look.buttons[i];
        const QString text =
            QString::fromLatin1(design.text.data(), static_cast<qsizetype>(design.text.size()));
        QPushButton& button = addButton(QStringLiteral("BOT_%1").arg(i + 1), text, buttonPlaces[i]);
        button.setVisible(design.shown);
        button.setEnabled(design.shown);
        connect(&button, &QPushButton::clicked, this, [this, code = design.code] {
            result_ = code;
            accept();
        });
    }
}

int Msgb_Show(QWidget* parent, const QString& prompt, int style, const QString& title) {
    Msgb box(prompt, style, title, parent);
    box.exec();
    return box.Msgb_Result();
}

} // namespace zorvane::ui
