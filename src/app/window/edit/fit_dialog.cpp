// SPDX-License-Identifier: MIT
#include "app/window/edit/fit_dialog.h"

#include "ui/base/beside.h"
#include "ui/base/text.h"
#include "ui/base/twips_scale.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace zorvane::app {

namespace {

constexpr double fitWidth = 6400; // twips
constexpr double fitHeight = 3600;
constexpr std::size_t mostLines = 1000; // of what doesn't fit

} // namespace

Fit_Dialog::Fit_Dialog(const Fit_Question& question, QWidget* parent) : QDialog(parent) {
    ui::giveName(*this, QStringLiteral("FrmFit"));
    setWindowTitle(ui::fromCore(question.title));
    auto* layout = new QVBoxLayout(this);
    setLayout(layout);
    addLabel(QStringLiteral("LBL_Summary"), ui::fromCore(question.summary) + u'.');
    if (!question.details.empty()) addLabel(QStringLiteral("LBL_Details"), ui::fromCore(question.details));
    if (!question.changes.empty())
        addList(QStringLiteral("LST_Changes"), QStringLiteral("What changes"), question.changes);
    if (!question.leftOut.empty())
        addList(QStringLiteral("LST_LeftOut"), QStringLiteral("What doesn't fit"), question.leftOut);
    addButtons(question);
    resize(ui::withinScreen(*this, ui::scaleOf(*this).size(fitWidth, fitHeight)));
}

void Fit_Dialog::addLabel(const QString& name, const QString& text) {
    auto* label = new QLabel(text, this);
    ui::giveName(*label, name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout()->addWidget(label);
}

void Fit_Dialog::addList(const QString& name, const QString& words, const std::vector<std::string>& lines) {
    auto* heading = new QLabel(words + u':', this);
    ui::giveName(*heading, name + QStringLiteral("_Heading"));
    layout()->addWidget(heading);
    auto* list = new QListWidget(this);
    ui::giveName(*list, name);
    list->setAccessibleName(words);
    list->setWordWrap(true);
    for (std::size_t i = 0; i < std::min(lines.size(), mostLines); ++i)
        list->addItem(ui::fromCore(lines[i]));
    if (lines.size() > mostLines)
        list->addItem(QStringLiteral("... and %1 more").arg(lines.size() - mostLines));
    list->setCurrentRow(0);
    layout()->addWidget(list);
}

void Fit_Dialog::addButtons(const Fit_Question& question) {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    const auto add = [&](const QString& name, const QString& text) {
        auto* button = new QPushButton(text, this);
        ui::giveName(*button, name);
        row->addWidget(button);
        return button;
    };
    QPushButton* all = add(QStringLiteral("BOT_AllThatFit"), QStringLiteral("&All that fit"));
    QPushButton* nothing = add(QStringLiteral("BOT_Nothing"), QStringLiteral("&Nothing"));
    all->setEnabled(question.taken > 0);
    QPushButton* usual = question.accept && question.taken > 0 ? all : nothing;
    (usual == all ? nothing : all)->setAutoDefault(false);
    usual->setDefault(true);
    usual->setFocus();
    connect(all, &QPushButton::clicked, this, &QDialog::accept);
    connect(nothing, &QPushButton::clicked, this, &QDialog::reject);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

} // namespace zorvane::app
