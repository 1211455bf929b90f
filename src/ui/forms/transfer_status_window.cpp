// SPDX-License-Identifier: MIT
#include "ui/forms/transfer_status_window.h"

#include "comm/transfer/status.h"
#include "template/services/native_files.h"

namespace zorvane::ui {

Transfer_Status_Window::~Transfer_Status_Window() { delete Status_.data(); }

Frm_Status& Transfer_Status_Window::PRO_Muestra_Status(bool isUpload) {
    delete Status_.data();
    Status_ = new Frm_Status(
        {transferStatus(comm_, isUpload), [this] { return comm_.document.Always_Block_Count; },
         QString::fromStdString(pathToNative(comm_.document.File_Folder)), hooks_.ask, hooks_.printLog},
        handlers(), owner_);
    Status_->setEnabled(enabled_);
    Status_->show();
    return *Status_;
}

Frm_Status_Events Transfer_Status_Window::handlers() {
    using Handler = void (*)(const Comm_Context&, std::int16_t);
    const auto guarded = [this](Handler handler) {
        return [this, handler](std::int16_t& isUpload) { run([&] { handler(comm_, isUpload); }); };
    };
    return {guarded(Status_Connect), guarded(Status_Retry), [this] { Status_UnloadMe(); },
            guarded(Status_CancelProg)};
}

void Transfer_Status_Window::run(const std::function<void()>& handler) const {
    if (hooks_.guard)
        hooks_.guard(handler);
    else
        handler();
}

void Transfer_Status_Window::unload() {
    if (Status_) Status_->unload();
}

void Transfer_Status_Window::setEnabled(bool enabled) {
    enabled_ = enabled;
    if (Status_) Status_->setEnabled(enabled);
}

/// One of the form's own buttons may be at work yet.
void Transfer_Status_Window::Status_UnloadMe() {
    if (Status_) Status_->deleteLater();
    Status_.clear();
}

bool transferLogOffered(const Main_Form_State& form) {
    return !form.Upload_Active && !form.Download_Active && !form.Transfer_Errors.empty();
}

} // namespace zorvane::ui
