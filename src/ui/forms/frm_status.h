// SPDX-License-Identifier: MIT
#pragma once

#include "comm/transfer/transfer_texts.h"
#include "ui/base/file_dialog.h"
#include "ui/base/fixed_dialog.h"

#include <functional>

class QTextEdit;

namespace zorvane::ui {

/// What the transfer status form tells the main form. `isUpload` is 0 after a download.
struct Frm_Status_Events {
    std::function<void(std::int16_t& isUpload)> Connect;
    std::function<void(std::int16_t& isUpload)> Retry;
    std::function<void()> UnloadMe;
    std::function<void(std::int16_t& isUpload)> CancelProg;
};

/// What the form needs of others.
struct Frm_Status_Services {
    Transfer_Status status;
    std::function<std::int32_t()> Always_Block_Count;
    QString File_Folder; ///< where Save As begins
    Ask_User ask;
    /// Prints the report. Empty: there is no Print button to press.
    std::function<void(QTextEdit& RtbStatus, const QString& LogFileName)> printLog;
};

/// `FrmStatus`: the report of the last transfer, which can be saved together with the log of all exchanges.
class Frm_Status final : public Fixed_Dialog {
  public:
    Frm_Status(Frm_Status_Services parts, Frm_Status_Events events, QWidget* parent);

    File_Dialog OpenFile;

    /// Takes the form away; the owner is told, and deletes it.
    void unload();
    /// Asks for a file and saves report and log.
    void PRO_Guarda_Log();

    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void Form_Load();
    void PRO_Dispone_Status();
    void Form_QueryUnload();
    void Form_Unload();
    void BtnConnect_Click();
    void raise(const std::function<void(std::int16_t& isUpload)>& event);
    [[nodiscard]] std::string savedText() const;
    [[nodiscard]] bool mayOverwrite(const QString& path) const;

    Frm_Status_Services parts_;
    Frm_Status_Events events_;
    QTextEdit* RtbStatus_ = nullptr;
    QTextEdit* rtbSave_ = nullptr;
    bool Closing_ = false;
    bool unloading_ = false;
};

} // namespace zorvane::ui
