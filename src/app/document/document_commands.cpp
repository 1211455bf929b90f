// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"

#include "app/document/document_lines.h"
#include "app/document/recovery_keeper.h"
#include "app/form/menu_state.h"
#include "comm/main_form/presenter.h"
#include "comm/main_form/title.h"
#include "comm/transfer/session.h"
#include "grids/commit/unholdable_text.h"
#include "template/pro_escribe_archivo.h"
#include "template/services/file_names.h"
#include "values/numbers.h"

namespace zorvane::app {

namespace {

constexpr std::int32_t savingMs = 1000;
constexpr int saveFailure = 1000;

void clearClosed(const App_Context& app) {
    app.mainForm.setPartVisible(Form_Part::Frame2, false);
    app.mainForm.setPartVisible(Form_Part::Frame3, false);
    PRO_Limpia_Documento(app);
    app.mainForm.setMenuEnabled(Menu_Entry::MNU_Close, false);
    PRO_Deshabilita_Menus(app);
}

std::string savingText(const std::string& name) { return "Saving file " + name + " ..."; }

/// The document was closed or replaced while the panel told of its saving. Whatever came is left as it is.
void forgetSaving(const App_Context& app, const std::string& name) {
    takeBackMessage(app.mainForm, savingText(name));
}

/// Widths that the user dragged reach the file through Save As only. The columns are the grid's: where the
/// model was emptied under it, failure 9 ends the save before any file is touched, also under a grid without
/// columns.
void keepWidths(const App_Context& app) {
    if (app.state.modelEmptied) throw Run_Time_Failure(Failure::Subscript);
    Declara_Zorvane& document = app.document();
    const VSFlexGrid& grid = app.grids.FLX_Settings;
    Field_Rec& field = document.Fields(document.Selected_Field);
    for (std::int32_t c = 1; c <= grid.Cols(); ++c)
        field.Cells(0, c).Width = toInteger(grid.ColWidth(c - 1));
}

/// The factory file of a model is created once and never changed; true when this save would change it.
bool refuseFactoryFile(const App_Context& app) {
    const Declara_Zorvane& document = app.document();
    if (document.File_Stem != "DEFAULT") {
        app.mainForm.setPanel(Panel::ReadOnly, "");
        app.mainForm.setMenuEnabled(Menu_Entry::MNU_Save, true);
        return false;
    }
    app.mainForm.setPanel(Panel::ReadOnly, "READ ONLY");
    app.mainForm.setMenuEnabled(Menu_Entry::MNU_Save, false);
    if (!app.files.exists(document.File_Folder + "DEFAULT." + document.File_Extension)) return false;
    app.mainForm.setPanel(Panel::Message, "Default file can't be overwritted...");
    app.mainForm.Msgb_Show("Default file can't be overwritted!", Msgb_Information, applicationTitle);
    app.mainForm.setPanel(Panel::Message, "");
    app.document().Save_Failed = true;
    app.mainForm.setFormEnabled(true);
    return true;
}

/// Writes the file that was chosen, and notes in `save` how far that went. Failures go to the caller.
void saveChosen(const App_Context& app, const std::string& path, Failed_Save& save) {
    Declara_Zorvane& document = app.document();
    app.mainForm.setPanel(Panel::Message, savingText(path.substr(path.rfind(folderSeparator) + 1)));
    app.mainForm.setFormEnabled(false);
    keepWidths(app);
    keepCopy(app, "before Save As");
    takeName(document, path);
    save.renamed = true;
    if (refuseFactoryFile(app)) return tellRenamed(app, path);
    save.fileKept = keepFileBefore(app, path, recoveryText(document));
    std::string result;
    PRO_Escribe_Archivo(document, app.files, path, result);
    app.state.written = {path, app.files.bytes(path)};
    if (!result.empty()) throw Run_Time_Failure(saveFailure, result);
    app.recovery.drop();
    settleDocument(app);
    withdrawSaveFailed(app);
    PRO_Titulo_Limpio(document, app.form(), app.mainForm);
    app.mainForm.wait_ms(savingMs);
    app.mainForm.setFormEnabled(true);
    app.mainForm.setPanel(Panel::Message, "");
    tellSavedTexts(app.grids);
}

/// Shows the dialog; false when the user cancelled.
bool chooseTarget(const App_Context& app) {
    CommonDialog& dialog = app.mainForm.dialog();
    const std::string& extension = app.document().File_Extension;
    dialog.FileName.clear();
    dialog.DialogTitle = "Save as";
    dialog.Flags = Dialog_HideReadOnly;
    dialog.Filter = filterItem(extension);
    dialog.CancelError = true;
    dialog.FilterIndex = 1;
    if (ignoringFailure([&] { dialog.ShowSave(); })) return true;
    dialog.FileName.clear();
    return false;
}

} // namespace

void PRO_Limpia_Documento(const App_Context& app) {
    PRO_Limpia_Modelo(app.document());
    app.grids.FLX_Configuration.setRows(0);
    app.grids.FLX_Settings.setRows(0);
    app.form().Document_Open = false;
    app.mainForm.setPanel(Panel::ReadOnly, "");
    app.mainForm.setPanel(Panel::LinkState, "");
    app.mainForm.setCaption(applicationTitle);
    app.form().Dirty = false;
    app.state.Filter_Text.clear();
    app.state.modelEmptied = false;
    app.state.history.clear();
    app.state.changed.forget();
    app.mainForm.messageBar().documentGone();
}

void PRO_Cierra_Documento(const App_Context& app, bool& ok) {
    ok = true;
    app.state.left = Leave_Outcome::NotAsked;
    if (app.document().File_Stem.empty()) return;
    if (app.form().Dirty) {
        const int answer = app.mainForm.Msgb_Show(saveQuestion, saveQuestionStyle, applicationTitle);
        if (answer == Msgb_Code_Cancel) {
            ok = false;
            app.state.left = Leave_Outcome::Cancelled;
            return;
        }
        app.state.left = Leave_Outcome::Dropped;
        PRO_Fin_Sesion(app.grids.comm);
        if (answer == Msgb_Code_Yes) {
            app.document().Save_Failed = false;
            MNU_Saveas_Click(app);
            app.state.left = app.form().Dirty ? Leave_Outcome::NotSaved : Leave_Outcome::Saved;
            if (app.document().Save_Failed) {
                app.form().Dirty = true;
                app.mainForm.Msgb_Show(cannotWrite, Msgb_Information, applicationTitle);
                return;
            }
        }
    } else {
        PRO_Fin_Sesion(app.grids.comm);
    }
    clearClosed(app);
}

void MNU_Close_Click(const App_Context& app) {
    app.mainForm.closePreviews();
    const Leaving leaving(app, "before Close");
    bool ok = true;
    PRO_Cierra_Documento(app, ok);
    if (app.form().Document_Open) return;
    app.recovery.leave();
    leaving.tell();
}

void MNU_Save_Click(const App_Context& app) {
    Declara_Zorvane& document = app.document();
    if (document.No_Place) return MNU_Saveas_Click(app);
    const std::string name = document.File_Stem + "." + document.File_Extension;
    app.mainForm.setPanel(Panel::Message, savingText(name));
    keepCopy(app, "before Save");
    const std::string path = document.File_Folder + name;
    Failed_Save save{path, {}, app.files.bytes(path), false, false, false};
    save.fileKept = keepFileBefore(app, path, recoveryText(document));
    PRO_Escribe_Archivo(document, app.files, path, save.reason);
    app.state.written = {path, app.files.bytes(path)};
    const bool good = save.reason.empty();
    if (good) {
        settleDocument(app);
        withdrawSaveFailed(app);
    } else {
        save.copyKept = keepFailedSave(app, "Save failed");
        tellSaveFailed(app, save);
    }
    const Document_Mark mark(document);
    app.mainForm.wait_ms(savingMs);
    // The user was free meanwhile to close it, to open another, or to save it under another name.
    const std::string present = document.File_Folder + document.File_Stem + "." + document.File_Extension;
    if (!mark.holds() || present != path) return forgetSaving(app, name);
    if (good) settleCopy(app);
    PRO_Titulo_Limpio(document, app.form(), app.mainForm);
    app.mainForm.setMenuEnabled(Menu_Entry::MNU_Save, false);
    app.mainForm.setPanel(Panel::Message, "");
    if (good) tellSavedTexts(app.grids);
}

void MNU_Saveas_Click(const App_Context& app) {
    if (!chooseTarget(app)) return;
    const std::string path = app.mainForm.dialog().FileName;
    Failed_Save save{path, {}, app.files.bytes(path), false, false, false};
    try {
        saveChosen(app, path, save);
    } catch (const Run_Time_Failure& failure) {
        save.reason = failure.description();
        save.copyKept = keepFailedSave(app, "Save As failed");
        tellSaveFailed(app, save);
        app.document().Save_Failed = true;
        app.mainForm.setFormEnabled(true);
        app.mainForm.Msgb_Show(
            "Can't Save file : path/file error or directory is read only.\r\nExtra info: " +
                std::string(failure.description()),
            Msgb_Ok, applicationTitle);
    }
}

} // namespace zorvane::app
