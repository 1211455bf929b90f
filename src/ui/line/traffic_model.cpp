// SPDX-License-Identifier: MIT
#include "ui/line/traffic_model.h"

#include "ui/base/text.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>

namespace zorvane::ui {

namespace {

constexpr int firstLeftAligned = static_cast<int>(Traffic_Column::Function);

Traffic_Column columnAt(int section) { return trafficColumns.at(static_cast<std::size_t>(section)); }

/// Readable on a light and on a dark ground.
QColor failedColour() {
    constexpr int half = 128;
    const bool dark = QGuiApplication::palette().color(QPalette::Base).lightness() < half;
    return dark ? QColor(255, 138, 128) : QColor(176, 0, 32);
}

} // namespace

Traffic_Model::Traffic_Model(Micros midnight, std::size_t limit) : rows_(limit), midnight_(midnight) {}

void Traffic_Model::add(std::vector<Traffic_Entry> entries) {
    if (entries.size() > rows_.limit())
        entries.erase(entries.begin(), entries.end() - static_cast<std::ptrdiff_t>(rows_.limit()));
    if (entries.empty()) return;
    if (const std::size_t surplus = rows_.surplus(entries.size()); surplus > 0) {
        beginRemoveRows({}, 0, static_cast<int>(surplus) - 1);
        rows_.dropOldest(surplus);
        endRemoveRows();
    }
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(entries.size()) - 1);
    rows_.add(std::move(entries));
    endInsertRows();
}

void Traffic_Model::clear() {
    beginResetModel();
    rows_.clear();
    endResetModel();
}

int Traffic_Model::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int Traffic_Model::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(trafficColumns.size());
}

QVariant Traffic_Model::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>((index.column() < firstLeftAligned ? Qt::AlignRight : Qt::AlignLeft) |
                                Qt::AlignVCenter);
    const Traffic_Entry& entry = rows_.at(static_cast<std::size_t>(index.row()));
    if (role == Qt::ForegroundRole && trafficFailed(entry)) return failedColour();
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    return fromCore(trafficText(entry, columnAt(index.column()), midnight_));
}

QVariant Traffic_Model::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    const std::string_view heading = trafficHeading(columnAt(section));
    return QString::fromLatin1(heading.data(), static_cast<qsizetype>(heading.size()));
}

} // namespace zorvane::ui
