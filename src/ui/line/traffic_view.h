// SPDX-License-Identifier: MIT
#pragma once

#include "ui/line/traffic_model.h"

#include <QSplitter>

class QPlainTextEdit;
class QTableView;

namespace zorvane::ui {

/// Rows of traffic as a table, and the raw bytes of the one selected.
class Traffic_View final : public QSplitter {
  public:
    /// The model must outlive it.
    explicit Traffic_View(Traffic_Model& model);

    [[nodiscard]] QTableView& table() const { return *table_; }
    /// Whoever looks at the end goes on seeing the newest row; whoever has scrolled away stays there.
    void add(std::vector<Traffic_Entry> entries);
    /// The rows selected as text, or all of them when none is.
    [[nodiscard]] QString text() const;
    void copy() const;

  private:
    void makeTable();
    void makeBytes();
    void showBytes();

    Traffic_Model& model_;
    QTableView* table_;
    QPlainTextEdit* bytes_;
};

} // namespace zorvane::ui
