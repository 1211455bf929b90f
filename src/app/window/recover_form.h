// SPDX-License-Identifier: MIT
#pragma once

#include "recovery/recovery.h"
#include "ui/base/fixed_dialog.h"

#include <QDialog>

#include <functional>
#include <optional>
#include <vector>

class QLabel;
class QPushButton;
class QTableWidget;

namespace zorvane::app {

/// "Recover...": the list of recovery copies, the newest first. Enter or a double click opens one, Delete
/// deletes it.
class Recover_Form final : public QDialog {
  public:
    using Remove_Copy = std::function<void(const Recovery_Entry& entry)>;

    Recover_Form(std::vector<Recovery_Entry> entries, Remove_Copy remove, ui::Ask_User ask, QWidget* parent);

    /// The copy to open, after the dialog was accepted.
    [[nodiscard]] std::optional<Recovery_Entry> chosen() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void addTable();
    void addButtons();
    void fillTable();
    void deleteChosen();
    void showState();
    [[nodiscard]] std::optional<std::size_t> current() const;

    std::vector<Recovery_Entry> entries_;
    Remove_Copy remove_;
    ui::Ask_User ask_;
    QTableWidget* table_ = nullptr;
    QLabel* words_ = nullptr;
    QPushButton* open_ = nullptr;
    QPushButton* delete_ = nullptr;
};

} // namespace zorvane::app
