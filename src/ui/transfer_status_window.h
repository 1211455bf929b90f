#pragma once

#include "comm/comm_context.h"
#include "ui/frm_status.h"

#include <QPointer>

namespace zorvane {

/// The main form's side of the transfer status form: opens it and answers its buttons.
class Transfer_Status_Window final {
  public:
    using Print_Log = std::function<void(QTextEdit& RtbStatus, const QString& LogFileName)>;

    /// All parts must outlive it.
    Transfer_Status_Window(const Comm_Context& comm, QWidget* owner, Ask_User ask, Print_Log printLog = {})
        : comm_(comm), owner_(owner), ask_(std::move(ask)), printLog_(std::move(printLog)) {}
    ~Transfer_Status_Window();
    Transfer_Status_Window(const Transfer_Status_Window&) = delete;
    Transfer_Status_Window& operator=(const Transfer_Status_Window&) = delete;

    /// Shows the report of the last transfer, not modal, in place of one that is still open.
    Frm_Status& PRO_Muestra_Status(bool isUpload);
    /// What the main form does when the transfers ask for `unloadFrmStatus`.
    void unload();
    /// The form while it is open, else nullptr.
    [[nodiscard]] Frm_Status* Status() const { return Status_; }

  private:
    [[nodiscard]] Frm_Status_Events handlers();
    void Status_UnloadMe();

    Comm_Context comm_;
    QWidget* owner_;
    Ask_User ask_;
    Print_Log printLog_;
    QPointer<Frm_Status> Status_;
};

/// Whether the last transfer has left records and is over, so that its report is worth a button.
[[nodiscard]] bool transferLogOffered(const Main_Form_State& form);

} // namespace zorvane
