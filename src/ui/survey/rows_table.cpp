// SPDX-License-Identifier: MIT
#include "ui/survey/rows_table.h"

#include "ui/base/text.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>

#include <algorithm>
#include <utility>

namespace zorvane::ui {

void Rows_Model::setRows(std::vector<QStringList> rows) {
    const int before = rowCount();
    const int after = static_cast<int>(rows.size());
    if (after > before) {
        beginInsertRows({}, before, after - 1);
        rows_ = std::move(rows);
        endInsertRows();
    } else if (after < before) {
        beginRemoveRows({}, after, before - 1);
        rows_ = std::move(rows);
        endRemoveRows();
    } else {
        rows_ = std::move(rows);
    }
    const int kept = std::min(before, after);
    if (kept > 0) emit dataChanged(index(0, 0), index(kept - 1, columnCount() - 1));
}

int Rows_Model::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int Rows_Model::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(headings_.size());
}

QVariant Rows_Model::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    return rows_[static_cast<std::size_t>(index.row())].value(index.column());
}

QVariant Rows_Model::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return headings_.value(section);
}

Rows_Table::Rows_Table(const QString& name, const QString& words, const QStringList& headings,
                       const std::vector<int>& widths)
    : model_(headings) {
    giveName(*this, name);
    setAccessibleName(words);
    setModel(&model_);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setShowGrid(false);
    setAlternatingRowColors(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    const int character = fontMetrics().averageCharWidth();
    for (std::size_t i = 0; i < widths.size(); ++i)
        setColumnWidth(static_cast<int>(i), widths[i] * character + 12);
    auto* copyKey = new QAction(this);
    copyKey->setShortcut(QKeySequence::Copy);
    copyKey->setShortcutContext(Qt::WidgetShortcut);
    connect(copyKey, &QAction::triggered, this, [this] { copy(); });
    addAction(copyKey);
}

QString Rows_Table::text() const {
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    if (rows.empty())
        for (int row = 0; row < model_.rowCount(); ++row)
            rows.push_back(row);
    QString text = model_.headings().join(u'\t') + u'\n';
    for (const int row : rows)
        text += model_.rows()[static_cast<std::size_t>(row)].join(u'\t') + u'\n';
    return text;
}

void Rows_Table::copy() const { QApplication::clipboard()->setText(text()); }

} // namespace zorvane::ui
