// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/common_dialog.h"
#include "ui/base/file_dialog.h"

#include <QWidget>

#include <functional>

namespace zorvane::app {

/// The main form's file dialog.
class Window_Dialog final : public CommonDialog {
  public:
    /// `parent` gives the window that the dialog belongs to.
    explicit Window_Dialog(std::function<QWidget*()> parent) : parent_(std::move(parent)) {}

    /// Starts in the folder of the last file that was chosen. The read-only box is there whatever the flag
    /// that hides it says: Save As leaves that one behind.
    void ShowOpen() override;
    /// A name without an extension gets that of the first file type.
    void ShowSave() override;

    /// Runs the dialog; whatever drives it in a test replaces this.
    std::function<bool(QFileDialog& dialog)> run;

  private:
    [[nodiscard]] ui::File_Dialog prepared() const;
    void take(const ui::File_Dialog& shown, bool chosen);

    std::function<QWidget*()> parent_;
    QString lastFolder_;
};

} // namespace zorvane::app
