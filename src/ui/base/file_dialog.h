// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

class QFileDialog;
class QWidget;

namespace zorvane::ui {

/// A file dialog, the same on every desktop. Names are the user's, with "/" between folders.
class File_Dialog final {
  public:
    /// Bits of `Flags`.
    enum Flag : int {
        ReadOnly = 1,        ///< after ShowOpen: the user ticked the read-only box; before: it is ticked
        OverwritePrompt = 2, ///< ShowSave asks before it gives the name of a file that exists
        HideReadOnly = 4,    ///< ShowOpen has no read-only box
    };

    QString FileName;
    QString DialogTitle;
    QString Filter;      ///< "text|pattern|text|pattern|"
    int FilterIndex = 1; ///< from 1; after a dialog the filter chosen
    QString InitDir;     ///< "" for the folder that the program runs in
    QString DefaultExt;  ///< what ShowSave appends to a name without an extension; "" appends nothing
    int Flags = 0;

    /// Both return false when the user cancelled, and leave `FileName` as it was then. ShowOpen takes any
    /// name that is typed, whether there is such a file or not.
    bool ShowOpen(QWidget* parent);
    bool ShowSave(QWidget* parent);

    /// Runs the dialog; whatever drives it in a test replaces this.
    std::function<bool(QFileDialog& dialog)> run;

  private:
    void setUp(QFileDialog& dialog) const;
    bool finish(QFileDialog& dialog);
};

} // namespace zorvane::ui
