#include "ui/common_dialog.h"

#include "ui/dialog_filter.h"
#include "ui/text.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QLineEdit>

namespace zorvane {

namespace {

QCheckBox* addReadOnlyBox(QFileDialog& dialog, bool ticked) {
    auto* box = new QCheckBox(QStringLiteral("Open as &read-only"), &dialog);
    giveName(*box, QStringLiteral("CHK_ReadOnly"));
    box->setChecked(ticked);
    auto* layout = qobject_cast<QGridLayout*>(dialog.layout());
    if (layout != nullptr) layout->addWidget(box, layout->rowCount(), 0, 1, -1);
    return box;
}

} // namespace

void Common_Dialog::setUp(QFileDialog& dialog) const {
    giveName(dialog, QStringLiteral("CommonDialog"));
    dialog.setWindowTitle(DialogTitle);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::AnyFile);
    if (!InitDir.isEmpty()) dialog.setDirectory(InitDir);
    QStringList names;
    for (const Dialog_Filter& filter : dialogFilters(Filter))
        names << nameFilter(filter);
    if (!names.isEmpty()) dialog.setNameFilters(names);
    if (FilterIndex >= 1 && FilterIndex <= names.size()) dialog.selectNameFilter(names[FilterIndex - 1]);
    if (!FileName.isEmpty()) dialog.selectFile(FileName);
}

bool Common_Dialog::finish(QFileDialog& dialog) {
    const bool chosen = run ? run(dialog) : dialog.exec() == QDialog::Accepted;
    if (!chosen || dialog.selectedFiles().isEmpty()) return false;
    FileName = dialog.selectedFiles().constFirst();
    const qsizetype filter = dialog.nameFilters().indexOf(dialog.selectedNameFilter());
    if (filter >= 0) FilterIndex = static_cast<int>(filter) + 1;
    return true;
}

bool Common_Dialog::ShowOpen(QWidget* parent) {
    QFileDialog dialog(parent);
    setUp(dialog);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    const QCheckBox* readOnly =
        (Flags & HideReadOnly) != 0 ? nullptr : addReadOnlyBox(dialog, (Flags & ReadOnly) != 0);
    if (!finish(dialog)) return false;
    const bool ticked = readOnly != nullptr && readOnly->isChecked();
    Flags = ticked ? Flags | ReadOnly : Flags & ~ReadOnly;
    return true;
}

bool Common_Dialog::ShowSave(QWidget* parent) {
    QFileDialog dialog(parent);
    setUp(dialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, (Flags & OverwritePrompt) == 0);
    if (!DefaultExt.isEmpty()) dialog.setDefaultSuffix(DefaultExt);
    return finish(dialog);
}

} // namespace zorvane
