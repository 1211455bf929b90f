// SPDX-License-Identifier: MIT
#include "ui/compare/side_bar.h"

#include "ui/base/text.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>

namespace zorvane::ui {

namespace {

constexpr int listCharacters = 12; // on the smallest screen; long entries show whole in the open list

} // namespace

Side_Bar::Side_Bar(const QString& name, const QString& caption, const QString& button, QWidget* parent)
    : QWidget(parent) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(caption, this);
    giveName(*label, QStringLiteral("LBL_") + name);
    list_ = new QComboBox(this);
    giveName(*list_, QStringLiteral("CMB_") + name);
    list_->setAccessibleName(name + QStringLiteral(" side"));
    list_->setMinimumContentsLength(listCharacters);
    list_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    label->setBuddy(list_);
    button_ = new QPushButton(button, this);
    giveName(*button_, QStringLiteral("BOT_File_") + name);
    button_->setAccessibleName(QStringLiteral("File of the %1 side...").arg(name.toLower()));
    button_->setAutoDefault(false);
    words_ = new QLabel(this);
    giveName(*words_, QStringLiteral("LBL_Words_") + name);
    words_->setTextFormat(Qt::PlainText);
    words_->setWordWrap(true);
    words_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(label, 0, 0);
    layout->addWidget(list_, 0, 1);
    layout->addWidget(button_, 0, 2);
    layout->addWidget(words_, 1, 1, 1, 2);
    layout->setColumnStretch(1, 1);
    connect(list_, &QComboBox::activated, this, [this](int entry) {
        if (chosen) chosen(entry);
    });
    connect(button_, &QPushButton::clicked, this, [this] {
        if (fileWanted) fileWanted();
    });
}

void Side_Bar::setEntries(const QStringList& entries, int current) {
    const QSignalBlocker quiet(list_);
    list_->clear();
    list_->addItems(entries);
    list_->setCurrentIndex(current);
    QAbstractItemView& open = *list_->view();
    open.setMinimumWidth(open.sizeHintForColumn(0) + open.verticalScrollBar()->sizeHint().width());
}

void Side_Bar::tell(bool needsFile, const QString& name) {
    button_->setEnabled(needsFile);
    words_->setText(name);
}

} // namespace zorvane::ui
