// SPDX-License-Identifier: MIT
#include "ui/compare/comparison_table.h"

#include "ui/base/column_widths.h"
#include "ui/base/text.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QShowEvent>

#include <vector>

namespace zorvane::ui {

namespace {

constexpr int besideText = 12; // pixels of a cell

/// The widths of columns in characters, and what they may shrink to.
struct Table_Columns {
    std::vector<int> wanted;
    std::vector<int> least;
};

Table_Columns tableColumns(bool three) {
    if (three) return {{16, 22, 16, 16, 16, 16, 16, 10}, {8, 12, 9, 10, 9, 10, 9, 8}};
    return {{20, 26, 22, 22, 20, 12}, {12, 16, 12, 12, 19, 8}};
}

} // namespace

Comparison_Table::Comparison_Table(Comparison_Model& model, QWidget* parent)
    : QTableView(parent), rows_(model) {
    giveName(*this, QStringLiteral("TBL_Comparison"));
    setAccessibleName(QStringLiteral("Compared values"));
    setModel(&model);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setAlternatingRowColors(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    addKeys({QKeySequence(Qt::Key_F8), QKeySequence(Qt::ALT | Qt::Key_Down)}, &Comparison_Table::next);
    addKeys({QKeySequence(Qt::SHIFT | Qt::Key_F8), QKeySequence(Qt::ALT | Qt::Key_Up)},
            &Comparison_Table::previous);
}

void Comparison_Table::addKeys(const QList<QKeySequence>& keys, void (Comparison_Table::*go)()) {
    auto* action = new QAction(this);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, [this, go] { (this->*go)(); });
    addAction(action);
}

void Comparison_Table::next() { goTo(rows_.rows().nextDifference(current())); }

void Comparison_Table::previous() { goTo(rows_.rows().previousDifference(current())); }

std::optional<std::size_t> Comparison_Table::current() const {
    const QModelIndex index = currentIndex();
    if (!index.isValid()) return std::nullopt;
    return static_cast<std::size_t>(index.row());
}

void Comparison_Table::goTo(std::optional<std::size_t> place) {
    if (!place) return;
    constexpr int settingSection = 1;
    const QModelIndex index = rows_.index(static_cast<int>(*place), settingSection);
    setCurrentIndex(index);
    scrollTo(index);
}

/// The selected rows get the tick that the current one hasn't.
void Comparison_Table::toggleTicks() {
    const auto row = current();
    if (!row) return;
    const bool on = !rows_.rows().ticked(*row);
    const QModelIndexList selected = selectionModel()->selectedRows();
    for (const QModelIndex& index : selected)
        rows_.setTicked(index.row(), on);
    if (selected.isEmpty()) rows_.setTicked(static_cast<int>(*row), on);
}

void Comparison_Table::fitColumns() {
    const int character = fontMetrics().averageCharWidth();
    Table_Columns columns = tableColumns(rows_.rows().threeSides());
    for (std::vector<int>* widths : {&columns.wanted, &columns.least})
        for (int& width : *widths)
            width = width * character + besideText;
    const int room = contentsRect().width() - verticalScrollBar()->sizeHint().width();
    const std::vector<int> widths = fittedWidths(columns.wanted, columns.least, room);
    for (std::size_t i = 0; i < widths.size(); ++i)
        setColumnWidth(static_cast<int>(i), widths[i]);
}

void Comparison_Table::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier)
        toggleTicks();
    else
        QTableView::keyPressEvent(event);
}

void Comparison_Table::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    if (!event->spontaneous()) fitColumns();
}

} // namespace zorvane::ui
