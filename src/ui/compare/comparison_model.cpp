// SPDX-License-Identifier: MIT
#include "ui/compare/comparison_model.h"

#include "compare/comparison_words.h"
#include "ui/base/text.h"

#include <QFont>

#include <array>
#include <utility>

namespace zorvane::ui {

namespace {

using Column = Comparison_Column;

constexpr std::array twoSides = {Column::Page,  Column::Setting, Column::Left,
                                 Column::Right, Column::Sign,    Column::Register};
constexpr std::array threeSides = {Column::Page,     Column::Setting, Column::Left,  Column::Left_Sign,
                                   Column::Document, Column::Sign,    Column::Right, Column::Register};

QString headingOf(Column column, bool three) {
    switch (column) {
    case Column::Page:
        return QStringLiteral("Page");
    case Column::Setting:
        return QStringLiteral("Setting");
    case Column::Left:
        return QStringLiteral("Left");
    case Column::Left_Sign:
        return QStringLiteral("Left sign");
    case Column::Document:
        return QStringLiteral("Document");
    case Column::Right:
        return QStringLiteral("Right");
    case Column::Sign:
        return three ? QStringLiteral("Right sign") : QStringLiteral("Sign");
    case Column::Register:
        break;
    }
    return QStringLiteral("Register");
}

QString signText(compare::Sign sign) {
    const std::string_view mark = compare::signMark(sign);
    const std::string_view phrase = compare::signPhrase(sign);
    return QString::fromUtf8(mark.data(), static_cast<qsizetype>(mark.size())) + QLatin1Char(' ') +
           QString::fromLatin1(phrase.data(), static_cast<qsizetype>(phrase.size()));
}

/// The row whose sign a column shows; nothing of other columns, and where there is no such row.
const compare::Row* signRow(const compare::Row_List& rows, std::size_t place, Column column) {
    if (column == Column::Left_Sign) return rows.leftRow(place);
    return column == Column::Sign ? rows.rightRow(place) : nullptr;
}

QString sideOf(const compare::Row* row, compare::Cell_Side compare::Row::*side) {
    return row != nullptr ? fromCore(compare::sideText(row->*side)) : QString();
}

QString cellText(const compare::Row_List& rows, std::size_t place, Column column) {
    using compare::Row;
    switch (column) {
    case Column::Page:
        return fromCore(rows.at(place).page);
    case Column::Setting:
        return fromCore(compare::settingText(rows.at(place)));
    case Column::Left:
        return sideOf(rows.threeSides() ? rows.leftRow(place) : rows.rightRow(place), &Row::left);
    case Column::Document:
        if (rows.rightRow(place) == nullptr) return sideOf(rows.leftRow(place), &Row::right);
        return sideOf(rows.rightRow(place), &Row::left);
    case Column::Right:
        return sideOf(rows.rightRow(place), &Row::right);
    case Column::Left_Sign:
    case Column::Sign: {
        const Row* const row = signRow(rows, place, column);
        return row != nullptr ? signText(row->sign) : QString();
    }
    case Column::Register:
        break;
    }
    return fromCore(rows.at(place).address);
}

} // namespace

Comparison_Column Comparison_Model::column(int section) const {
    const auto at = static_cast<std::size_t>(section);
    return rows_.threeSides() ? threeSides.at(at) : twoSides.at(at);
}

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

QString Comparison_Model::rowText(int row) const {
    QStringList parts;
    for (int section = 0; section < columnCount(); ++section) {
        const QString text = cellText(rows_, static_cast<std::size_t>(row), column(section));
        if (!text.isEmpty())
            parts << headingOf(column(section), rows_.threeSides()) + QStringLiteral(": ") + text;
    }
    return parts.join(QStringLiteral("; "));
}

int Comparison_Model::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int Comparison_Model::columnCount(const QModelIndex& parent) const {
    if (parent.isValid()) return 0;
    return static_cast<int>(rows_.threeSides() ? threeSides.size() : twoSides.size());
}

/// Differences stand out by weight, so that they do in grey too.
QVariant Comparison_Model::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const auto place = static_cast<std::size_t>(index.row());
    const Comparison_Column shown = column(index.column());
    if (role == Qt::CheckStateRole && index.column() == 0)
        return rows_.ticked(place) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::FontRole) {
        const compare::Row* const row = signRow(rows_, place, shown);
        if (row == nullptr || !compare::isDifference(row->sign)) return {};
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    if (role == Qt::ToolTipRole) return plainTip(cellText(rows_, place, shown));
    if (role != Qt::DisplayRole) return {};
    return cellText(rows_, place, shown);
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
    return headingOf(column(section), rows_.threeSides());
}

} // namespace zorvane::ui
