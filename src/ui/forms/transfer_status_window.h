// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "ui/forms/frm_status.h"

#include <QPointer>

namespace zorvane::ui {

/// What the transfer status window needs of the program.
struct Transfer_Status_Hooks {
    Ask_User ask;
    /// Prints the report; may be empty.
    std::function<void(QTextEdit& RtbStatus, const QString& LogFileName)> printLog;
    /// Runs what a button does, where run-time failures are caught; may be empty.
    std::function<void(const std::function<void()>& handler)> guard;
};

/// The main form's side of the transfer status form: opens it and answers its buttons.
class Transfer_Status_Window final {
  public:
    using Print_Log = decltype(Transfer_Status_Hooks::printLog);

    /// All parts must outlive it.
    Transfer_Status_Window(const Comm_Context& comm, QWidget* owner, Transfer_Status_Hooks hooks)
        : comm_(comm), owner_(owner), hooks_(std::move(hooks)) {}
    ~Transfer_Status_Window();
    Transfer_Status_Window(const Transfer_Status_Window&) = delete;
    Transfer_Status_Window& operator=(const Transfer_Status_Window&) = delete;

    /// Shows the report of the last transfer, not modal, in place of one that is still open.
    Frm_Status& PRO_Muestra_Status(bool isUpload);
    /// What the main form does when the transfers ask for `unloadFrmStatus`.
    void unload();
    /// The form takes no input while a transfer has the main form disabled: its buttons start another
    /// transfer or enable the main form. It stays, and can't be closed either.
    void setEnabled(bool enabled);
    /// The form while it is open, else nullptr.
    [[nodiscard]] Frm_Status* Status() const { return Status_; }

  private:
    [[nodiscard]] Frm_Status_Events handlers();
    void Status_UnloadMe();
    void run(const std::function<void()>& handler) const;

    Comm_Context comm_;
    QWidget* owner_;
    Transfer_Status_Hooks hooks_;
    QPointer<Frm_Status> Status_;
    bool enabled_ = true;
};

/// Whether the last transfer has left records and is over, so that its report is worth a button.
[[nodiscard]] bool transferLogOffered(const Main_Form_State& form);

} // namespace zorvane::ui
