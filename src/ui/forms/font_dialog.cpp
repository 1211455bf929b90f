// SPDX-License-Identifier: MIT
#include "ui/forms/font_dialog.h"

#include "ui/base/caption_box.h"
#include "ui/base/text.h"
#include "values/font_sizes.h"
#include "values/numbers.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace zorvane::ui {

namespace {

constexpr double fontFormWidth = 3480; // twips
constexpr double fontFormHeight = 1860;
constexpr Twips_Rect headingPlace{390, 30, 525, 225};
constexpr Twips_Rect fontTextPlace{390, 240, 800, 315};
constexpr Twips_Rect listPlace{390, 570, 800, 1035};
constexpr Twips_Rect fontOkPlace{1935, 120, 1400, 345};
constexpr Twips_Rect fontCancelPlace{1935, 600, 1400, 345};
constexpr Twips_Rect boxPlace{1290, 1080, 1875, 615};
constexpr Twips_Rect samplePlace{540, 240, 795, 195};

} // namespace

Font_Dialog::Font_Dialog(std::int16_t stored, QWidget* parent)
    : Fixed_Dialog(QStringLiteral("FontDialog"), QStringLiteral("Font Size"), fontFormWidth, fontFormHeight,
                   parent) {
    addList();
    addSample();
    addButtons();
    const bool listed = stored >= 0 && stored < list_->count();
    list_->setCurrentRow(listed ? stored : list_->count() - 1);
    list_->setFocus();
}

void Font_Dialog::addList() {
    put(*new QLabel(QStringLiteral("Size"), this), QStringLiteral("Label1"), headingPlace);
    text_ = new QLineEdit(this);
    put(*text_, QStringLiteral("Text1"), fontTextPlace);
    text_->setAccessibleName(QStringLiteral("Size"));
    text_->setReadOnly(true);
    list_ = new QListWidget(this);
    put(*list_, QStringLiteral("List1"), listPlace);
    list_->setAccessibleName(QStringLiteral("Sizes"));
    for (std::size_t i = 0; i < fontSizes.size(); ++i)
        list_->addItem(QString::fromStdString(listedFontSize(i)));
    connect(list_, &QListWidget::currentTextChanged, this,
            [this](const QString& listed) { showChoice(listed); });
    connect(list_, &QListWidget::itemDoubleClicked, this, [this] { choose(); });
}

void Font_Dialog::addSample() {
    auto* box = new Caption_Box(QStringLiteral("Frame1"), {}, this);
    placeAt(*box, boxPlace);
    box->setAccessibleName(QStringLiteral("Sample"));
    sample_ = new QLabel(QStringLiteral("aAbBcCdD"), box);
    put(*sample_, QStringLiteral("Label2"), samplePlace);
}

void Font_Dialog::addButtons() {
    QPushButton& ok = addButton(QStringLiteral("OKButton"), QStringLiteral("Ok"), fontOkPlace);
    QPushButton& cancel =
        addButton(QStringLiteral("CancelButton"), QStringLiteral("Cancel"), fontCancelPlace);
    ok.setDefault(true);
    connect(&ok, &QPushButton::clicked, this, [this] { choose(); });
    connect(&cancel, &QPushButton::clicked, this, &QDialog::close);
}

/// The sample keeps its middle, whatever its size.
void Font_Dialog::showChoice(const QString& listed) {
    text_->setText(listed);
    QFont font = sample_->font();
    font.setPointSizeF(Font_Size_Map(Val(toCore(listed))));
    sample_->setFont(font);
    const QPoint middle = scaleOf(*this).rect(samplePlace).center();
    sample_->adjustSize();
    sample_->move(middle - sample_->rect().center());
}

void Font_Dialog::choose() {
    const double size = Font_Size_Map(Val(toCore(list_->currentItem()->text())));
    if (Guardar && save) save(static_cast<std::int16_t>(list_->currentRow()));
    if (ChangeFont) ChangeFont(size);
    close();
}

} // namespace zorvane::ui
