// SPDX-License-Identifier: MIT
#include "ui/line/traffic_view.h"

#include "ui/base/text.h"
#include "ui/line/traffic_delegate.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <array>

namespace zorvane::ui {

namespace {

/// Column widths in characters.
constexpr std::array columnWidths = {13, 8, 5, 14, 13, 13, 34, 34};
constexpr int byteLines = 4;
constexpr int tableHeight = 480;

} // namespace

Traffic_View::Traffic_View(Traffic_Model& model)
    : QSplitter(Qt::Vertical), model_(model), table_(new QTableView), bytes_(new QPlainTextEdit) {
    makeTable();
    makeBytes();
    addWidget(table_);
    addWidget(bytes_);
    setStretchFactor(0, 1);
    setStretchFactor(1, 0);
    setSizes({tableHeight, bytes_->fontMetrics().lineSpacing() * byteLines});
}

void Traffic_View::makeBytes() {
    giveName(*bytes_, QStringLiteral("TXT_Bytes"));
    bytes_->setAccessibleName(QStringLiteral("Raw bytes"));
    bytes_->setReadOnly(true);
    bytes_->setTabChangesFocus(true);
    bytes_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    bytes_->setPlaceholderText(QStringLiteral("Select a row to see its bytes."));
}

void Traffic_View::makeTable() {
    giveName(*table_, QStringLiteral("TBL_Exchanges"));
    table_->setAccessibleName(QStringLiteral("Exchanges"));
    table_->setModel(&model_);
    table_->setItemDelegate(new Traffic_Delegate(table_));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    table_->setWordWrap(false);
    table_->setShowGrid(false);
    table_->setAlternatingRowColors(true);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 4);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->horizontalHeader()->setHighlightSections(false);
    const int character = table_->fontMetrics().averageCharWidth();
    for (std::size_t i = 0; i < columnWidths.size(); ++i)
        table_->setColumnWidth(static_cast<int>(i), columnWidths[i] * character + 12);
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { showBytes(); });
    connect(&model_, &QAbstractItemModel::modelReset, this, [this] { showBytes(); });
    auto* copyKey = new QAction(table_);
    copyKey->setShortcut(QKeySequence::Copy);
    copyKey->setShortcutContext(Qt::WidgetShortcut);
    connect(copyKey, &QAction::triggered, this, [this] { copy(); });
    table_->addAction(copyKey);
}

void Traffic_View::add(std::vector<Traffic_Entry> entries) {
    const QScrollBar& bar = *table_->verticalScrollBar();
    const bool atEnd = bar.value() == bar.maximum();
    // Qt would make the row below the current one, and tell screen readers of it, each time that rows go.
    const std::size_t surplus = model_.rows().surplus(entries.size());
    if (table_->currentIndex().isValid() && static_cast<std::size_t>(table_->currentIndex().row()) < surplus)
        table_->selectionModel()->clearCurrentIndex();
    model_.add(std::move(entries));
    if (atEnd) table_->scrollToBottom();
}

void Traffic_View::showBytes() {
    const int row = table_->currentIndex().row();
    bytes_->setPlainText(row < 0 ? QString()
                                 : fromCore(rawBytes(model_.rows().at(static_cast<std::size_t>(row)))));
}

QString Traffic_View::text() const {
    std::vector<int> rows;
    for (const QModelIndex& index : table_->selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    if (rows.empty())
        for (int row = 0; row < model_.rowCount(); ++row)
            rows.push_back(row);
    std::string text = trafficHeadingLine() + "\n";
    for (const int row : rows)
        text += trafficLine(model_.rows().at(static_cast<std::size_t>(row)), model_.midnight()) + "\n";
    return fromCore(text);
}

void Traffic_View::copy() const { QApplication::clipboard()->setText(text()); }

} // namespace zorvane::ui
