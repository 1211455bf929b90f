// SPDX-License-Identifier: MIT
#include "app/window/edit/find_window.h"

#include "ui/base/beside.h"
#include "ui/base/text.h"
#include "ui/base/twips_scale.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace zorvane::app {

namespace {

constexpr double findWidth = 8400; // twips; room for all three columns
constexpr double nameWidth = 3900;
constexpr double valueWidth = 2400;
constexpr double findHeight = 4800;
constexpr double highestPart = 0.45;   // of the screen, so that what was found has room beside the window
constexpr int gapToCell = 8;           // pixels
constexpr std::size_t mostRows = 2000; // of the list

} // namespace

Find_Window::Find_Window(Find_Session& session, Event_Edge& edge, QWidget* parent)
    : QDialog(parent), session_(session), edge_(edge) {
    ui::giveName(*this, QStringLiteral("FrmFind"));
    setWindowTitle(QStringLiteral("Find"));
    auto* layout = new QVBoxLayout(this);
    setLayout(layout);
    addQuery();
    addTable();
    addButtons();
    const QSize wanted = ui::withinScreen(*this, ui::scaleOf(*this).size(findWidth, findHeight));
    const int highest = static_cast<int>(screen()->availableSize().height() * highestPart);
    resize(wanted.width(), std::min(wanted.height(), highest));
    fillTable();
}

void Find_Window::addQuery() {
    auto* row = new QHBoxLayout;
    auto* label = new QLabel(QStringLiteral("&Find:"), this);
    ui::giveName(*label, QStringLiteral("LBL_Find"));
    text_ = new QLineEdit(this);
    ui::giveName(*text_, QStringLiteral("EDT_Find"));
    text_->setAccessibleName(QStringLiteral("Name, text, value or register"));
    text_->setPlaceholderText(QStringLiteral("Name, text, value or register"));
    label->setBuddy(text_);
    row->addWidget(label);
    row->addWidget(text_, 1);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
    changed_ = new QCheckBox(QStringLiteral("&Changed only"), this);
    ui::giveName(*changed_, QStringLiteral("CHK_Changed"));
    factory_ = new QCheckBox(QStringLiteral("&Differs from factory only"), this);
    ui::giveName(*factory_, QStringLiteral("CHK_Factory"));
    auto* filters = new QHBoxLayout;
    static_cast<QVBoxLayout*>(layout())->addLayout(filters);
    for (QCheckBox* box : {changed_, factory_}) {
        filters->addWidget(box);
        connect(box, &QCheckBox::toggled, this, [this] { takeQuery(); });
    }
    filters->addStretch(1);
    connect(text_, &QLineEdit::textChanged, this, [this] { takeQuery(); });
}

void Find_Window::addTable() {
    table_ = new QTableWidget(0, 3, this);
    ui::giveName(*table_, QStringLiteral("LST_Found"));
    table_->setAccessibleName(QStringLiteral("Found"));
    table_->setHorizontalHeaderLabels(
        {QStringLiteral("Setting"), QStringLiteral("Value"), QStringLiteral("Register")});
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->horizontalHeader()->setHighlightSections(false);
    table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table_->setColumnWidth(0, ui::scaleOf(*this).pixelsX(nameWidth));
    table_->setColumnWidth(1, ui::scaleOf(*this).pixelsX(valueWidth));
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setTabKeyNavigation(false);
    table_->setShowGrid(false);
    table_->installEventFilter(this);
    connect(table_, &QTableWidget::cellDoubleClicked, this, [this](int row, int) { showRow(row); });
    layout()->addWidget(table_);
}

void Find_Window::addButtons() {
    auto* row = new QHBoxLayout;
    position_ = new QLabel(this);
    ui::giveName(*position_, QStringLiteral("LBL_Position"));
    row->addWidget(position_, 1);
    const auto add = [&](const QString& name, const QString& text) {
        auto* button = new QPushButton(text, this);
        ui::giveName(*button, name);
        button->setAutoDefault(false);
        row->addWidget(button);
        return button;
    };
    previous_ = add(QStringLiteral("BOT_Previous"), QStringLiteral("&Previous"));
    next_ = add(QStringLiteral("BOT_Next"), QStringLiteral("&Next"));
    QPushButton* close = add(QStringLiteral("BOT_Close"), QStringLiteral("Close"));
    next_->setDefault(true);
    connect(previous_, &QPushButton::clicked, this, [this] { goPrevious(); });
    connect(next_, &QPushButton::clicked, this, [this] { goNext(); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void Find_Window::begin() {
    refresh();
    show();
    raise();
    activateWindow();
    text_->setFocus();
    text_->selectAll();
}

void Find_Window::refresh() {
    edge_.run([this] { fillTable(); });
}

void Find_Window::takeQuery() {
    session_.query = {ui::toCore(text_->text()), changed_->isChecked(), factory_->isChecked()};
    refresh();
}

void Find_Window::fillTable() {
    found_ = session_.rows();
    table_->setRowCount(static_cast<int>(std::min(found_.size(), mostRows)));
    for (int row = 0; row < table_->rowCount(); ++row) {
        const Found_Row& found = found_[static_cast<std::size_t>(row)];
        int column = 0;
        for (const std::string* text : {&found.name, &found.value, &found.address})
            table_->setItem(row, column++, new QTableWidgetItem(ui::fromCore(*text)));
    }
    showPosition();
}

void Find_Window::showPosition() {
    position_->setText(ui::fromCore(session_.position(found_)));
    if (const auto row = session_.rowOf(found_); row && *row < mostRows)
        table_->selectRow(static_cast<int>(*row));
    else
        table_->clearSelection();
    next_->setEnabled(!found_.empty());
    previous_->setEnabled(!found_.empty());
}

void Find_Window::goNext() {
    edge_.run([this] {
        session_.next();
        showPosition();
    });
    makeWay();
}

void Find_Window::goPrevious() {
    edge_.run([this] {
        session_.previous();
        showPosition();
    });
    makeWay();
}

void Find_Window::showRow(int row) {
    if (row < 0 || static_cast<std::size_t>(row) >= found_.size()) return;
    edge_.run([&] {
        session_.show(found_[static_cast<std::size_t>(row)].place);
        showPosition();
    });
    makeWay();
}

/// What was found isn't left under the window.
void Find_Window::makeWay() {
    const QRect cell = shownCell ? shownCell() : QRect();
    if (!isVisible() || cell.isEmpty() || !frameGeometry().intersects(cell)) return;
    move(ui::placeBeside(frameGeometry().size(), cell, screen()->availableGeometry(), gapToCell));
}

/// The main form's keys don't reach this window.
void Find_Window::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_F3) return QDialog::keyPressEvent(event);
    if (event->modifiers() == Qt::ShiftModifier)
        goPrevious();
    else
        goNext();
}

bool Find_Window::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            showRow(table_->currentRow());
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace zorvane::app
