// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/common_dialog.h"
#include "comm/modbus_control/testing/journal.h"
#include "values/run_time_failure.h"

#include <deque>
#include <functional>
#include <string>

namespace zorvane::doubles {

/// What the user does in a file dialog.
struct Dialog_Answer {
    std::string FileName;
    int FilterIndex = 0;            ///< 0 leaves the one that the dialog came with
    bool readOnly = false;          ///< the tick
    std::function<void()> before{}; ///< runs while the dialog stands
};

/// A file dialog whose user is scripted, one answer a dialog; beyond them each dialog is cancelled. The
/// journal tells what a dialog came with.
class Scripted_Dialog : public app::CommonDialog {
  public:
    explicit Scripted_Dialog(Journal& journal) : journal_(journal) {}

    std::deque<Dialog_Answer> answers;

    void ShowOpen() override { show("ShowOpen"); }
    void ShowSave() override { show("ShowSave"); }

  private:
    void show(const char* name) {
        journal_.add(std::string(name) + " \"" + DialogTitle + "\" " + Filter + " at " +
                     std::to_string(FilterIndex) + ", flags " + std::to_string(Flags) +
                     (FileName.empty() ? "" : ", named " + FileName) + (CancelError ? "" : ", no failure"));
        if (answers.empty()) throw Run_Time_Failure(app::dialogCancelled, "Cancel was selected.");
        const Dialog_Answer answer = answers.front();
        answers.pop_front();
        if (answer.before) answer.before();
        FileName = answer.FileName;
        if (answer.FilterIndex > 0) FilterIndex = answer.FilterIndex;
        Flags = (Flags & ~app::Dialog_ReadOnly) | (answer.readOnly ? app::Dialog_ReadOnly : 0);
    }

    Journal& journal_;
};

} // namespace zorvane::doubles
