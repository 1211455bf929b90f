// SPDX-License-Identifier: MIT
#include "ui/report/page_setup_dialog.h"

#include "reports/bands/paper_kinds.h"
#include "ui/base/text.h"
#include "ui/report/page_sheet.h"
#include "values/twips.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace zorvane::ui {

namespace {

constexpr double twipsPerMillimetre = twipsPerInch / 25.4;
constexpr double largestMargin = 14400; ///< twips

struct Margin_Label {
    const char* name;
    const char* label;
    const char* words;
    double Page_Settings::*margin;
};

constexpr Margin_Label marginLabels[4] = {
    {"LeftMargin", "&Left:", "Left margin", &Page_Settings::LeftMargin},
    {"RightMargin", "&Right:", "Right margin", &Page_Settings::RightMargin},
    {"TopMargin", "&Top:", "Top margin", &Page_Settings::TopMargin},
    {"BottomMargin", "&Bottom:", "Bottom margin", &Page_Settings::BottomMargin}};

} // namespace

Page_Setup_Dialog::Page_Setup_Dialog(const Page_Settings& page, const Report_Printer& printer,
                                     const QStringList& printers, bool metric, QWidget* parent)
    : QDialog(parent), before_(page), printerBefore_(printer),
      twipsPerUnit_(metric ? twipsPerMillimetre : twipsPerInch),
      unit_(metric ? QStringLiteral(" mm") : QStringLiteral(" in")) {
    giveName(*this, QStringLiteral("PageSetup"));
    setWindowTitle(QStringLiteral("Page Setup"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(printerPart(printers));
    layout->addWidget(paperPart());
    layout->addWidget(marginPart());
    complaint_ = new QLabel(QStringLiteral("The margins leave no room on the paper."), this);
    giveName(*complaint_, QStringLiteral("Complaint"));
    // Its room is kept while it isn't shown.
    QSizePolicy kept = complaint_->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    complaint_->setSizePolicy(kept);
    layout->addWidget(complaint_);
    buttons_ = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    giveName(*buttons_->button(QDialogButtonBox::Ok), QStringLiteral("OKButton"));
    giveName(*buttons_->button(QDialogButtonBox::Cancel), QStringLiteral("CancelButton"));
    connect(buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons_);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    check();
}

QWidget* Page_Setup_Dialog::printerPart(const QStringList& printers) {
    auto* group = new QGroupBox(QStringLiteral("Printer"), this);
    auto* layout = new QFormLayout(group);
    printers_ = new QComboBox(group);
    giveName(*printers_, QStringLiteral("Printer"));
    printers_->setAccessibleName(QStringLiteral("Printer"));
    printers_->addItem(QStringLiteral("The desktop's own"), QString());
    for (const QString& name : printers)
        printers_->addItem(name, name);
    const QString chosen = fromCore(printerBefore_.DeviceName);
    if (printers_->findData(chosen) < 0)
        printers_->addItem(chosen + QStringLiteral(" (not there now)"), chosen);
    printers_->setCurrentIndex(printers_->findData(chosen));
    layout->addRow(QStringLiteral("&Name:"), printers_);
    return group;
}

QWidget* Page_Setup_Dialog::paperPart() {
    auto* group = new QGroupBox(QStringLiteral("Paper"), this);
    auto* layout = new QFormLayout(group);
    papers_ = new QComboBox(group);
    giveName(*papers_, QStringLiteral("PaperSize"));
    papers_->setAccessibleName(QStringLiteral("Paper size"));
    const auto size = [this](double twips) { return QString::number(twips / twipsPerUnit_, 'g', 4); };
    const auto add = [&](const QString& name, double width, double height) {
        papers_->addItem(name + QStringLiteral(" (") + size(width) + QStringLiteral(" x ") + size(height) +
                             unit_ + u')',
                         QSizeF(width, height));
    };
    for (const Paper_Kind& kind : paperKinds)
        add(QString::fromLatin1(kind.name), kind.width, kind.height);
    const auto kind = paperKindOf(before_);
    if (!kind)
        add(QStringLiteral("Other"), std::min(before_.PaperWidth, before_.PaperHeight),
            std::max(before_.PaperWidth, before_.PaperHeight));
    papers_->setCurrentIndex(kind ? static_cast<int>(*kind) : papers_->count() - 1);
    layout->addRow(QStringLiteral("&Size:"), papers_);
    portrait_ = new QRadioButton(QStringLiteral("&Portrait"), group);
    giveName(*portrait_, QStringLiteral("Portrait"));
    landscape_ = new QRadioButton(QStringLiteral("L&andscape"), group);
    giveName(*landscape_, QStringLiteral("Landscape"));
    (isLandscape(before_) ? landscape_ : portrait_)->setChecked(true);
    auto* both = new QHBoxLayout;
    both->addWidget(portrait_);
    both->addWidget(landscape_);
    both->addStretch();
    layout->addRow(QStringLiteral("Orientation:"), both);
    connect(papers_, &QComboBox::currentIndexChanged, this, [this] { check(); });
    connect(landscape_, &QRadioButton::toggled, this, [this] { check(); });
    return group;
}

QWidget* Page_Setup_Dialog::marginPart() {
    auto* group = new QGroupBox(QStringLiteral("Margins"), this);
    auto* layout = new QGridLayout(group);
    int index = 0;
    for (const Margin_Label& each : marginLabels) {
        auto* box = new QDoubleSpinBox(group);
        giveName(*box, QString::fromLatin1(each.name));
        box->setAccessibleName(QString::fromLatin1(each.words));
        const bool inches = twipsPerUnit_ == twipsPerInch;
        box->setDecimals(inches ? 2 : 1);
        box->setSingleStep(inches ? 0.1 : 1);
        box->setRange(0, largestMargin / twipsPerUnit_);
        box->setSuffix(unit_);
        box->setValue(before_.*each.margin / twipsPerUnit_);
        connect(box, &QDoubleSpinBox::valueChanged, this, [this] { check(); });
        auto* label = new QLabel(QString::fromLatin1(each.label), group);
        label->setBuddy(box);
        layout->addWidget(label, index / 2, 2 * (index % 2));
        layout->addWidget(box, index / 2, 2 * (index % 2) + 1);
        margins_[index] = {box, each.margin, box->value()};
        ++index;
    }
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(3, 1);
    return group;
}

void Page_Setup_Dialog::check() {
    if (buttons_ == nullptr) return; // still being built
    const bool fit = marginsFit(page());
    complaint_->setVisible(!fit);
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(fit);
}

Page_Settings Page_Setup_Dialog::page() const {
    Page_Settings page = before_;
    for (const Margin_Box& each : margins_)
        if (each.box->value() != each.shown) page.*each.margin = each.box->value() * twipsPerUnit_;
    const QSizeF paper = papers_->currentData().toSizeF();
    return onPaper(page, paper.width(), paper.height(), landscape_->isChecked());
}

Report_Printer Page_Setup_Dialog::printer() const {
    Report_Printer printer = printerBefore_;
    printer.DeviceName = toCore(printers_->currentData().toString());
    return printer;
}

} // namespace zorvane::ui
