// SPDX-License-Identifier: MIT
#include "ui/forms/frm_status.h"

#include "comm/modbus_control/exchange/rtf_text.h"
#include "template/services/asker.h"
#include "ui/base/text.h"
#include "ui/base/wrapped_label.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QStyle>
#include <QTextEdit>

#include <utility>

namespace zorvane::ui {

namespace {

// Twips.
constexpr double statusFormWidth = 8400;
constexpr double statusFormHeight = 5235;
constexpr double margin = 90;
constexpr double buttonWidth = 1164;
constexpr double buttonHeight = 345;
constexpr double buttonTop = 4680;
constexpr double buttonGap = 600;
constexpr Twips_Rect statusLabelPlace{margin, 120, 6135, 570};
constexpr Twips_Rect statusTextPlace{margin, 750, 6135, 3735};
constexpr Twips_Rect statusIconPlace{6960, 750, 720, 720};

constexpr int logFilter = 1;
constexpr int rtfFilter = 2;

const char* const labelText =
    "There were errors and/or warnings during the transfer. It is recommended that you "
    "review the communications log.";

void giveTip(QPushButton& button, const char* text) { button.setToolTip(QString::fromLatin1(text)); }

} // namespace

Frm_Status::Frm_Status(Frm_Status_Services parts, Frm_Status_Events events, QWidget* parent)
    : Fixed_Dialog(QStringLiteral("FrmStatus"), QStringLiteral("Zorvane Transfer Status"), statusFormWidth,
                   statusFormHeight, parent),
      parts_(std::move(parts)), events_(std::move(events)) {
    Form_Load();
}

void Frm_Status::Form_Load() {
    PRO_Dispone_Status();
    const std::string report = PRO_Arma_Resumen(parts_.status);
    RtbStatus_->setPlainText(fromCore(report));
    rtbSave_->setPlainText(fromCore(report + PRO_Arma_Monitor(parts_.status)));
}

void Frm_Status::PRO_Dispone_Status() {
    auto* label = new Wrapped_Label(this);
    label->setText(QString::fromLatin1(labelText));
    put(*label, QStringLiteral("lblDialogMessage"), statusLabelPlace);
    auto* icon = new QLabel(this);
    icon->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(scaleOf(*this).size(480, 480)));
    icon->setAlignment(Qt::AlignCenter);
    put(*icon, QStringLiteral("IMG_Exclamation"), statusIconPlace);
    icon->setAccessibleName(QStringLiteral("exclamation"));
    RtbStatus_ = new QTextEdit(this);
    put(*RtbStatus_, QStringLiteral("RtbStatus"), statusTextPlace);
    RtbStatus_->setAccessibleName(QStringLiteral("Report of the transfer"));
    RtbStatus_->setReadOnly(true);
    RtbStatus_->setTabChangesFocus(true);
    rtbSave_ = new QTextEdit(this);
    put(*rtbSave_, QStringLiteral("rtbSave"), statusTextPlace);
    rtbSave_->hide();
    double left = margin;
    const auto next = [&](const char* name, const char* text, const char* tip) -> QPushButton& {
        QPushButton& button = addButton(QString::fromLatin1(name), QString::fromLatin1(text),
                                        {left, buttonTop, buttonWidth, buttonHeight});
        giveTip(button, tip);
        left += buttonWidth + buttonGap;
        return button;
    };
    connect(&next("BtnConnect", "&Connect", "You want to continue communication"), &QPushButton::clicked,
            this, [this] { BtnConnect_Click(); });
    connect(&next("BtnRetry", "&Retry", "Retry download or upload"), &QPushButton::clicked, this,
            [this] { raise(events_.Retry); });
    connect(&next("BtnSaveAs", "&Save As...", "Save file in txt format or rtf format"), &QPushButton::clicked,
            this, [this] { PRO_Guarda_Log(); });
    QPushButton& print = next("btnPrint", "&Print Log...", "Print all datas or selected text");
    print.setEnabled(static_cast<bool>(parts_.printLog));
    connect(&print, &QPushButton::clicked, this, [this] { parts_.printLog(*RtbStatus_, OpenFile.FileName); });
    connect(&next("BtnCancel", "&Cancel", "cancel and close dialog"), &QPushButton::clicked, this,
            [this] { raise(events_.CancelProg); });
}

void Frm_Status::raise(const std::function<void(std::int16_t& isUpload)>& event) {
    std::int16_t isUpload = parts_.status.isUpload() ? 1 : 0;
    if (event) event(isUpload);
}

void Frm_Status::BtnConnect_Click() {
    if (parts_.Always_Block_Count() < 1) return unload();
    raise(events_.Connect);
}

/// The owner's answer to CancelProg is to unload the form, which is under way already then.
void Frm_Status::unload() {
    if (std::exchange(unloading_, true)) return;
    Form_QueryUnload();
    hide();
    Form_Unload();
}

void Frm_Status::Form_QueryUnload() {
    if (!Closing_) raise(events_.CancelProg);
}

void Frm_Status::Form_Unload() {
    if (Closing_) return;
    raise(events_.CancelProg);
    Closing_ = true;
    if (events_.UnloadMe) events_.UnloadMe();
}

void Frm_Status::reject() {
    if (isEnabled()) unload();
}

void Frm_Status::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

/// The core's text again.
std::string Frm_Status::savedText() const { return toCore(*rtbSave_->document()); }

bool Frm_Status::mayOverwrite(const QString& path) const {
    if (!QFileInfo::exists(path)) return true;
    const QString question = QStringLiteral("File %1 exist overwrite it?").arg(path);
    return parts_.ask(question, Msgb_Question + Msgb_YesNo, QStringLiteral("Zorvane")) == Msgb_Code_Yes;
}

/// A file that can't be saved leaves the form as it was.
void Frm_Status::PRO_Guarda_Log() {
    OpenFile.FileName.clear();
    OpenFile.DialogTitle = QStringLiteral("Save Modbus Monitor log as...");
    OpenFile.Filter =
        QStringLiteral("Modbus Monitor Log file (*.log)|*.log|Modbus Monitor Log RTF file (*.rtf)|*.rtf");
    OpenFile.InitDir = parts_.File_Folder;
    if (!OpenFile.ShowSave(this)) return;
    const int kind = OpenFile.FilterIndex;
    if (kind != logFilter && kind != rtfFilter) return;
    if (QFileInfo(OpenFile.FileName).suffix().isEmpty())
        OpenFile.FileName += kind == logFilter ? QStringLiteral(".log") : QStringLiteral(".rtf");
    if (!mayOverwrite(OpenFile.FileName)) return;
    const std::string text = kind == logFilter ? savedText() : rtfDocument(savedText());
    QSaveFile file(OpenFile.FileName);
    if (!file.open(QIODevice::WriteOnly)) return;
    file.write(text.data(), static_cast<qint64>(text.size()));
    file.commit();
}

} // namespace zorvane::ui
