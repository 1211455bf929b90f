// SPDX-License-Identifier: MIT
#include "ui/base/file_dialog.h"

#include "ui/base/dialog_filter.h"
#include "ui/base/text.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QCompleter>
#include <QFileDialog>
#include <QGridLayout>
#include <QLineEdit>
#include <QMouseEvent>
#include <QWindow>

namespace zorvane::ui {

namespace {

QCheckBox* addReadOnlyBox(QFileDialog& dialog, bool ticked) {
    auto* box = new QCheckBox(QStringLiteral("Open as &read-only"), &dialog);
    giveName(*box, QStringLiteral("CHK_ReadOnly"));
    box->setChecked(ticked);
    auto* layout = qobject_cast<QGridLayout*>(dialog.layout());
    if (layout != nullptr) layout->addWidget(box, layout->rowCount(), 0, 1, -1);
    return box;
}

/// A click beside the list of completions closes the list, and counts for what was clicked as well.
class Click_Beside_List final : public QObject {
  public:
    Click_Beside_List(QFileDialog& dialog, QWidget& list) : QObject(&dialog), dialog_(dialog) {
        list.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* list = qobject_cast<QWidget*>(watched);
        if (event->type() != QEvent::MouseButtonPress || list == nullptr) return false;
        const auto& press = static_cast<const QMouseEvent&>(*event);
        const QPoint screen = press.globalPosition().toPoint();
        if (list->rect().contains(list->mapFromGlobal(screen))) return false;
        list->hide();
        if (!dialog_.rect().contains(dialog_.mapFromGlobal(screen))) return true;
        QMouseEvent again(QEvent::MouseButtonPress, dialog_.mapFromGlobal(press.globalPosition()),
                          press.globalPosition(), press.button(), press.buttons(), press.modifiers());
        QCoreApplication::sendEvent(dialog_.windowHandle(), &again);
        return true;
    }

  private:
    QFileDialog& dialog_;
};

void letClicksThroughCompletions(QFileDialog& dialog) {
    for (const QLineEdit* line : dialog.findChildren<QLineEdit*>())
        if (QCompleter* completer = line->completer()) new Click_Beside_List(dialog, *completer->popup());
}

/// A window that gets the keyboard while a list of completions is still open takes no notice of it: it would
/// have no caret and no focus.
void activateWindowWithKeyboard() {
    const QWindow* const focused = QGuiApplication::focusWindow();
    for (QWidget* window : QApplication::topLevelWidgets())
        if (focused != nullptr && window->windowHandle() == focused && !window->isActiveWindow())
            QApplication::setActiveWindow(window);
}

} // namespace

void File_Dialog::setUp(QFileDialog& dialog) const {
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

bool File_Dialog::finish(QFileDialog& dialog) {
    letClicksThroughCompletions(dialog);
    const bool chosen = run ? run(dialog) : dialog.exec() == QDialog::Accepted;
    activateWindowWithKeyboard();
    if (!chosen || dialog.selectedFiles().isEmpty()) return false;
    FileName = dialog.selectedFiles().constFirst();
    const qsizetype filter = dialog.nameFilters().indexOf(dialog.selectedNameFilter());
    if (filter >= 0) FilterIndex = static_cast<int>(filter) + 1;
    return true;
}

bool File_Dialog::ShowOpen(QWidget* parent) {
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

bool File_Dialog::ShowSave(QWidget* parent) {
    QFileDialog dialog(parent);
    setUp(dialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, (Flags & OverwritePrompt) == 0);
    if (!DefaultExt.isEmpty()) dialog.setDefaultSuffix(DefaultExt);
    return finish(dialog);
}

} // namespace zorvane::ui
