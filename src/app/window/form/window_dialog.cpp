// SPDX-License-Identifier: MIT
#include "app/window/form/window_dialog.h"

#include "template/services/native_files.h"
#include "ui/base/dialog_filter.h"
#include "ui/base/text.h"
#include "values/run_time_failure.h"

#include <QFile>
#include <QFileInfo>

namespace zorvane::app {

ui::File_Dialog Window_Dialog::prepared() const {
    ui::File_Dialog shown;
    shown.FileName = QFile::decodeName(QByteArray::fromStdString(pathToNative(FileName)));
    shown.DialogTitle = ui::fromCore(DialogTitle);
    shown.Filter = QString::fromStdString(pathToNative(Filter));
    shown.FilterIndex = FilterIndex;
    shown.InitDir = InitDir.empty() ? lastFolder_ : QString::fromStdString(pathToNative(InitDir));
    shown.run = run;
    return shown;
}

void Window_Dialog::take(const ui::File_Dialog& shown, bool chosen) {
    if (!chosen) {
        if (CancelError) throw Run_Time_Failure(dialogCancelled, "Cancel was selected.");
        return;
    }
    FileName = pathFromNative(QFile::encodeName(shown.FileName).toStdString());
    FilterIndex = shown.FilterIndex;
    lastFolder_ = QFileInfo(shown.FileName).path();
}

/// The box for read-only starts without a tick: one for the last file says nothing of the next.
void Window_Dialog::ShowOpen() {
    ui::File_Dialog shown = prepared();
    shown.Flags = Flags & ~(Dialog_HideReadOnly | Dialog_ReadOnly);
    const bool chosen = shown.ShowOpen(parent_());
    if (chosen) Flags = shown.Flags;
    take(shown, chosen);
}

void Window_Dialog::ShowSave() {
    ui::File_Dialog shown = prepared();
    shown.Flags = Flags;
    const std::vector<ui::Dialog_Filter> types = ui::dialogFilters(shown.Filter);
    if (!types.empty()) shown.DefaultExt = ui::firstExtension(types.front());
    take(shown, shown.ShowSave(parent_()));
}

} // namespace zorvane::app
