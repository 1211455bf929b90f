// SPDX-License-Identifier: MIT
#include "ui/compare/comparison_model.h"

#include "compare/comparison_words.h"
#include "ui/base/text.h"

#include <QFont>

#include <array>
#include <utility>

namespace zorvane::ui {

namespace {

constexpr std::array comparisonHeadings = {"Page", "Setting", "Left", "Right", "Sign", "Register"};

Comparison_Column comparisonColumn(int section) { return static_cast<Comparison_Column>(section); }

QString signText(compare::Sign sign) {
    const std::string_view mark = compare::signMark(sign);
    const std::string_view phrase = compare::signPhrase(sign);
    return QString::fromUtf8(mark.data(), static_cast<qsizetype>(mark.size())) + QLatin1Char(' ') +
           QString::fromLatin1(phrase.data(), static_cast<qsizetype>(phrase.size()));
}

QString cellText(const compare::Row& row, Comparison_Column column) {
    switch (column) {
    case Comparison_Column::Page:
        return fromCore(row.page);
    case Comparison_Column::Setting:
        return fromCore(compare::settingText(row));
    case Comparison_Column::Left:
        return fromCore(compare::sideText(row.left));
    case Comparison_Column::Right:
        return fromCore(compare::sideText(row.right));
    case Comparison_Column::Sign:
        return signText(row.sign);
    case Comparison_Column::Register:
        break;
    }
    return fromCore(row.address);
}

} // namespace

template <class Change> void Comparison_Model::reset(Change&& change) {
    beginResetModel();
    std::forward<Change>(change)();
    endResetModel();
    tellTicks();
}

template <class Change> void Comparison_Model::tick(Change&& change) {
    std::forward<Change>(change)();
    if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
    tellTicks();
}

void Comparison_Model::tellTicks() const {
    if (ticksChanged) ticksChanged();
}

void Comparison_Model::setRows(compare::Row_List rows, const compare::Filter& filter, bool all) {
    reset([&] {
        rows_ = std::move(rows);
        rows_.list(filter, all);
    });
}

void Comparison_Model::list(const compare::Filter& filter, bool all) {
    reset([&] { rows_.list(filter, all); });
}

void Comparison_Model::tickDifferences() {
    tick([this] { rows_.tickDifferences(); });
}

void Comparison_Model::tickNothing() {
    tick([this] { rows_.tickNothing(); });
}

void Comparison_Model::setTicked(int row, bool on) {
    rows_.tick(static_cast<std::size_t>(row), on);
    emit dataChanged(index(row, 0), index(row, 0), {Qt::CheckStateRole});
    tellTicks();
}

int Comparison_Model::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int Comparison_Model::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(comparisonHeadings.size());
}

/// Differences stand out by weight, so that they do in grey too.
QVariant Comparison_Model::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const auto place = static_cast<std::size_t>(index.row());
    const compare::Row& row = rows_.at(place);
    if (role == Qt::CheckStateRole && index.column() == 0)
        return rows_.ticked(place) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::FontRole && comparisonColumn(index.column()) == Comparison_Column::Sign &&
        compare::isDifference(row.sign)) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    if (role == Qt::ToolTipRole) return plainTip(cellText(row, comparisonColumn(index.column())));
    if (role != Qt::DisplayRole) return {};
    return cellText(row, comparisonColumn(index.column()));
}

bool Comparison_Model::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::CheckStateRole || index.column() != 0) return false;
    setTicked(index.row(), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags Comparison_Model::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid() && index.column() == 0) flags |= Qt::ItemIsUserCheckable;
    return flags;
}

QVariant Comparison_Model::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return QString::fromLatin1(comparisonHeadings.at(static_cast<std::size_t>(section)));
}

} // namespace zorvane::ui
