// SPDX-License-Identifier: MIT
#include "app/window/recover_form.h"

#include "app/window/form/window_form.h"
#include "template/services/asker.h"
#include "ui/base/text.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <array>

namespace zorvane::app {

namespace {

constexpr double formWidth = 9000; // twips
constexpr double formHeight = 5000;
constexpr double columnMargin = 240;

struct Column {
    const char* heading;
    std::string Recovery_Entry::*member;
};

constexpr std::array columns = {
    Column{"Time", &Recovery_Entry::time},
    Column{"Document", &Recovery_Entry::name},
    Column{"Model", &Recovery_Entry::model},
    Column{"Kept because", &Recovery_Entry::why},
};

} // namespace

Recover_Form::Recover_Form(std::vector<Recovery_Entry> entries, Remove_Copy remove, ui::Ask_User ask,
                           QWidget* parent)
    : QDialog(parent), entries_(std::move(entries)), remove_(std::move(remove)), ask_(std::move(ask)) {
    ui::giveName(*this, QStringLiteral("FrmRecover"));
    setWindowTitle(QStringLiteral("Recover"));
    auto* layout = new QVBoxLayout(this);
    words_ = new QLabel(this);
    ui::giveName(*words_, QStringLiteral("LBL_Words"));
    words_->setWordWrap(true);
    layout->addWidget(words_);
    addTable();
    layout->addWidget(table_, 1);
    addButtons();
    fillTable();
    resize(ui::scaleOf(*this).size(formWidth, formHeight));
    table_->setFocus();
}

void Recover_Form::addTable() {
    table_ = new QTableWidget(0, static_cast<int>(columns.size()), this);
    ui::giveName(*table_, QStringLiteral("LST_Copies"));
    table_->setAccessibleName(QStringLiteral("Recovery copies"));
    for (std::size_t c = 0; c < columns.size(); ++c)
        table_->setHorizontalHeaderItem(static_cast<int>(c),
                                        new QTableWidgetItem(QString::fromLatin1(columns[c].heading)));
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->horizontalHeader()->setHighlightSections(false);
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setTabKeyNavigation(false);
    table_->setShowGrid(false);
    table_->installEventFilter(this);
    connect(table_, &QTableWidget::itemSelectionChanged, this, [this] { showState(); });
    connect(table_, &QTableWidget::cellDoubleClicked, this, [this] { accept(); });
}

void Recover_Form::addButtons() {
    auto* row = new QHBoxLayout;
    const auto add = [&](const char* name, const char* text) {
        auto* button = new QPushButton(QString::fromLatin1(text), this);
        ui::giveName(*button, QString::fromLatin1(name));
        row->addWidget(button);
        return button;
    };
    delete_ = add("BOT_Delete", "&Delete");
    row->addStretch(1);
    open_ = add("BOT_Open", "&Open");
    open_->setDefault(true);
    QPushButton* cancel = add("BOT_Cancel", "Cancel");
    for (QPushButton* button : {delete_, cancel})
        button->setAutoDefault(false);
    connect(open_, &QPushButton::clicked, this, &QDialog::accept);
    connect(delete_, &QPushButton::clicked, this, [this] { deleteChosen(); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void Recover_Form::fillTable() {
    table_->setRowCount(static_cast<int>(entries_.size()));
    for (std::size_t r = 0; r < entries_.size(); ++r)
        for (std::size_t c = 0; c < columns.size(); ++c)
            table_->setItem(static_cast<int>(r), static_cast<int>(c),
                            new QTableWidgetItem(shownText(entries_[r].*columns[c].member)));
    table_->resizeColumnsToContents();
    for (int c = 0; c < table_->columnCount(); ++c)
        table_->setColumnWidth(c, table_->columnWidth(c) + ui::scaleOf(*this).pixelsX(columnMargin));
    if (!entries_.empty()) table_->selectRow(0);
    showState();
}

std::optional<std::size_t> Recover_Form::current() const {
    const int row = table_->currentRow();
    if (row < 0 || row >= static_cast<int>(entries_.size())) return std::nullopt;
    return static_cast<std::size_t>(row);
}

std::optional<Recovery_Entry> Recover_Form::chosen() const {
    const auto index = current();
    return index ? std::optional(entries_[*index]) : std::nullopt;
}

void Recover_Form::showState() {
    words_->setText(entries_.empty()
                        ? QStringLiteral("No document with unsaved changes has been kept.")
                        : QStringLiteral("Documents with changes that were not saved. A copy opens as a "
                                         "document of its own; save it where you want it."));
    open_->setEnabled(current().has_value());
    delete_->setEnabled(current().has_value());
}

void Recover_Form::deleteChosen() {
    const auto index = current();
    if (!index) return;
    const Recovery_Entry entry = entries_[*index];
    const QString question = QStringLiteral("Do you want to delete the copy of %1 from %2?")
                                 .arg(shownText(entry.name), shownText(entry.time));
    if (ask_(question, Msgb_Question + Msgb_YesNo, ui::fromCore(applicationTitle)) != Msgb_Code_Yes) return;
    remove_(entry);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(*index));
    fillTable();
    if (entries_.empty()) return;
    table_->selectRow(static_cast<int>(std::min(*index, entries_.size() - 1)));
    table_->setFocus();
}

bool Recover_Form::eventFilter(QObject* watched, QEvent* event) {
    if (watched != table_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (current()) accept();
        return true;
    case Qt::Key_Delete:
        deleteChosen();
        return true;
    default:
        return false;
    }
}

} // namespace zorvane::app
