// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/traffic_rows.h"

#include <QAbstractTableModel>

namespace zorvane::ui {

/// The rows of the monitor as a table of Qt.
class Traffic_Model final : public QAbstractTableModel {
  public:
    /// `midnight` is the time of the link's clock at the last local midnight.
    explicit Traffic_Model(Micros midnight, std::size_t limit = Traffic_Rows::usualLimit);

    void add(std::vector<Traffic_Entry> entries);
    void clear();
    [[nodiscard]] const Traffic_Rows& rows() const { return rows_; }
    [[nodiscard]] Micros midnight() const { return midnight_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    Traffic_Rows rows_;
    Micros midnight_;
};

} // namespace zorvane::ui
