// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zorvane::app {

/// Bits of `CommonDialog::Flags`.
enum Dialog_Flag : int {
    Dialog_ReadOnly = 1, ///< after `ShowOpen`: the user ticked the read-only box
    Dialog_HideReadOnly = 4,
};

/// The file dialog. A dialog that the user cancels is failure 32755 while `CancelError` is true.
class CommonDialog {
  public:
    virtual ~CommonDialog() = default;
    virtual void ShowOpen() = 0;
    virtual void ShowSave() = 0;

    std::string FileName; ///< with its folder after the dialog
    std::string DialogTitle;
    std::string Filter;  ///< "text|pattern|" for each file type
    int FilterIndex = 1; ///< from 1
    std::string InitDir;
    int Flags = 0;
    bool CancelError = false;
};

/// The number of the failure that a cancelled dialog raises.
inline constexpr int dialogCancelled = 32755;

} // namespace zorvane::app
