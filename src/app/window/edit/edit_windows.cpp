// SPDX-License-Identifier: MIT
#include "app/window/edit/edit_windows.h"

#include "app/edit/block_commands.h"
#include "app/edit/changed_count.h"
#include "app/edit/edit_state.h"
#include "app/edit/history_commands.h"
#include "app/edit/value_files.h"
#include "app/refused_input.h"
#include "app/window/edit/fit_dialog.h"
#include "template/services/native_files.h"
#include "ui/base/file_dialog.h"
#include "ui/base/text.h"
#include "ui/grid/pasted_text.h"

#include <QAction>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMenu>

namespace zorvane::app {

namespace {

/// What a step is called may be long and may hold a "&".
QString menuCaption(const std::string& caption) {
    constexpr qsizetype longest = 60;
    QString text = ui::fromCore(caption);
    if (text.size() > longest) text = text.left(longest - 3) + QStringLiteral("...");
    return u'&' + text.replace(u'&', QStringLiteral("&&"));
}

} // namespace

Edit_Windows::Edit_Windows(ui::Main_Window& window, const App_Context& app, Event_Edge& edge,
                           Difference_Marks& marks)
    : window_(window), app_(app), edge_(edge), marks_(marks), find_(app) {
    onChosen("MNU_Undo", [this] { MNU_Undo_Click(app_); });
    onChosen("MNU_Redo", [this] { MNU_Redo_Click(app_); });
    askFit = [this](const Fit_Question& question) { return ask(question); };
    onChosen("MNU_Copy", [this] { window_.FLX_Settings().view().copySelection(); });
    onChosen("MNU_PasteBlock", [this] { pasteBlock(QGuiApplication::clipboard()->text()); });
    connectFind();
    connectFiles();
    onChosen("MNU_MarkChanged", [this] { MNU_MarkChanged_Click(app_); });
    onChosen("MNU_MarkDifferences", [this] { marks_.MNU_MarkDifferences_Click(); });
    QMenu& menu = *qobject_cast<QMenu*>(window_.menu().action(QStringLiteral("MNU_Undo")).parent());
    menu.setToolTipsVisible(true);
    QObject::connect(&menu, &QMenu::aboutToShow, &window_, [this] { refresh(); });
    refresh();
}

void Edit_Windows::connectFind() {
    const auto begin = [this] {
        if (findWindow_ == nullptr) {
            auto* const made = new Find_Window(find_, edge_, &window_);
            made->shownCell = [this] { return shownCell(); };
            findWindow_ = made;
        }
        findWindow_->begin();
    };
    onChosen("MNU_Find", begin);
    // Whoever never said what to find is asked first.
    const auto go = [this, begin](void (Find_Session::*way)()) {
        const bool asked =
            !find_.query.text.empty() || find_.query.changedOnly || find_.query.differsFromFactoryOnly;
        if (!asked) return begin();
        (find_.*way)();
    };
    onChosen("MNU_FindNext", [go] { go(&Find_Session::next); });
    onChosen("MNU_FindPrevious", [go] { go(&Find_Session::previous); });
}

QRect Edit_Windows::shownCell() const {
    ui::Flex_Grid_View& view = window_.FLX_Settings().view();
    view.flush();
    const QRect cell = view.visualRect(view.currentIndex()) & view.viewport()->rect();
    return {view.viewport()->mapToGlobal(cell.topLeft()), cell.size()};
}

void Edit_Windows::connectFiles() {
    onChosen("MNU_ExportValues", [this] {
        ui::File_Dialog dialog;
        dialog.DialogTitle = QStringLiteral("Export values");
        dialog.Filter = QString::fromStdString(exportedTypes);
        dialog.DefaultExt = QStringLiteral("csv");
        dialog.Flags = ui::File_Dialog::OverwritePrompt;
        dialog.run = runFileDialog;
        if (!dialog.ShowSave(&window_)) return;
        exportValues(app_, pathFromNative(QFile::encodeName(dialog.FileName).toStdString()),
                     exportStyle(dialog.FilterIndex));
    });
    onChosen("MNU_ImportValues", [this] {
        ui::File_Dialog dialog;
        dialog.DialogTitle = QStringLiteral("Import values");
        dialog.Filter = QString::fromStdString(importedTypes);
        dialog.Flags = ui::File_Dialog::HideReadOnly;
        dialog.run = runFileDialog;
        if (!dialog.ShowOpen(&window_)) return;
        importValues(app_, pathFromNative(QFile::encodeName(dialog.FileName).toStdString()), askFit);
    });
}

void Edit_Windows::onChosen(const char* entry, const std::function<void()>& handler) {
    window_.menu().onChosen(QString::fromLatin1(entry), [this, handler] {
        edge_.run(handler);
        scheduleRefresh();
    });
}

/// The cells carry their mark, and tell of it.
void Edit_Windows::connectGrid() {
    connectMarks();
    ui::Flex_Grid_View& view = window_.FLX_Settings().view();
    view.events.AfterEdit = [this, after = view.events.AfterEdit](std::int32_t row, std::int32_t col) {
        if (after) after(row, col);
        scheduleRefresh();
    };
    connectClipboard();
}

void Edit_Windows::connectMarks() {
    ui::Flex_Grid_Model& cells = window_.FLX_Settings().view().cells();
    cells.corners = [this](std::int32_t row, std::int32_t col) {
        return (isMarkedChanged(app_, row, col) ? ui::Corner_Changed : 0) |
               (marks_.at(row, col) ? ui::Corner_Differs : 0);
    };
    cells.describe = [this, describe = cells.describe](std::int32_t row, std::int32_t col) {
        std::string words = describe ? describe(row, col) : std::string();
        if (isMarkedChanged(app_, row, col)) words += words.empty() ? "Changed" : ", changed";
        if (const auto other = marks_.at(row, col))
            words += (words.empty() ? "Differs from " : ", differs from ") + *other;
        return words;
    };
    cells.explain = [this, explain = cells.explain](std::int32_t row, std::int32_t col) {
        std::string words = explain ? explain(row, col) : std::string();
        if (const auto other = marks_.at(row, col))
            words += (words.empty() ? "Differs from " : "\nDiffers from ") + *other;
        return words;
    };
}

void Edit_Windows::connectClipboard() {
    ui::Flex_Grid_Events& events = window_.FLX_Settings().events();
    events.CopiedTable = [](const edit::Text_Rows& rows) { return edit::htmlTable(rows); };
    events.PasteIntoSelection = [this](const QString& text) {
        edge_.run([&] { pasteBlock(text); });
        return true;
    };
    events.Refused = [this](std::int32_t row, std::int32_t col, const ui::Refused_Input& what) {
        std::vector<Bar_Button> buttons;
        if (what.character.empty() && whyNoEditing(app_).empty())
            buttons.push_back({"Paste block", [this] { app_.mainForm.choose("MNU_PasteBlock"); }});
        tellRefused(app_.grids, row, col, what.character, std::move(buttons));
    };
}

/// A character that no file holds is told as for a single cell.
void Edit_Windows::pasteBlock(const QString& text) {
    const std::string missing = ui::missingCharacter(text);
    const VSFlexGrid& grid = app_.grids.FLX_Settings;
    if (!missing.empty() && grid.Row() >= 1 && grid.Col() >= 0)
        return tellRefused(app_.grids, grid.Row(), grid.Col(), missing);
    withdrawRefused(app_.grids);
    MNU_PasteBlock_Click(app_, ui::toCore(text), askFit);
    scheduleRefresh();
}

bool Edit_Windows::ask(const Fit_Question& question) const {
    Fit_Dialog dialog(question, &window_);
    return dialog.exec() == QDialog::Accepted;
}

void Edit_Windows::scheduleRefresh() {
    if (refreshPending_) return;
    refreshPending_ = true;
    QMetaObject::invokeMethod(
        &window_, [this] { refresh(); }, Qt::QueuedConnection);
}

void Edit_Windows::refresh() {
    refreshPending_ = false;
    edge_.run([this] {
        showEntry("MNU_Undo", undoEntry(app_));
        showEntry("MNU_Redo", redoEntry(app_));
        const std::string why = whyNoEditing(app_);
        allow("MNU_PasteBlock", why);
        allow("MNU_ImportValues", why);
        const bool open = app_.form().Document_Open && !app_.state.modelEmptied;
        allow("MNU_ExportValues", open ? "" : why);
        window_.menu().action(QStringLiteral("MNU_MarkChanged")).setChecked(marksChangedCells(app_));
        window_.menu().action(QStringLiteral("MNU_MarkDifferences")).setChecked(marks_.on());
        refreshChangedCount(app_);
        marks_.refresh();
        app_.mainForm.messageBar().review();
        Find_Window* const find = findWindow_.data();
        if (find == nullptr || !find->isVisible()) return;
        // A transfer goes by the grids' rows, which a found cell would move.
        find->setEnabled(window_.formEnabled());
        find->refresh();
    });
    window_.FLX_Settings().view().viewport()->update();
}

void Edit_Windows::showEntry(const char* name, const Step_Entry& entry) {
    QAction& action = window_.menu().action(QString::fromLatin1(name));
    action.setText(menuCaption(entry.caption));
    action.setEnabled(entry.enabled);
    action.setToolTip(ui::plainTip(ui::fromCore(entry.enabled ? entry.caption : entry.why)));
}

/// An entry that stays off as long as there is a reason.
void Edit_Windows::allow(const char* name, const std::string& why) {
    QAction& action = window_.menu().action(QString::fromLatin1(name));
    action.setEnabled(why.empty());
    action.setToolTip(ui::plainTip(ui::fromCore(why)));
}

} // namespace zorvane::app
