// SPDX-License-Identifier: MIT
#pragma once

#include "commission/record/qt/record_file.h"
#include "ui/base/fixed_dialog.h"

#include <QDialog>

#include <array>
#include <functional>

class QFormLayout;
class QLineEdit;

namespace zorvane::app {

/// "Record...": the head of a run's record, which is asked once a site, and the file that it is written to.
class Record_Dialog final : public QDialog {
  public:
    Record_Dialog(const commission::Record_Head& head, const QString& file, QWidget* parent);

    [[nodiscard]] commission::Record_Head head() const;
    [[nodiscard]] QString file() const;

  private:
    void addHead(QFormLayout& form, const commission::Record_Head& head);
    void addPlace(QFormLayout& form, const QString& file);
    void addButtons(QFormLayout& form);
    void browse();

    std::array<QLineEdit*, 5> parts_{};
    QLineEdit* file_ = nullptr;
};

/// Asks for head and file, writes the record of the run and says what was written, or why it wasn't.
void askForRecord(const commission::Record_Place& place, const std::string& stateFolder,
                  const std::string& run, const ui::Ask_User& ask, QWidget* parent);

} // namespace zorvane::app
