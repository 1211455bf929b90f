// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/document/document_lines.h"
#include "app/document/document_rows.h"
#include "app/document/open_steps.h"
#include "app/document/recovery_keeper.h"
#include "app/form/font_size.h"
#include "app/form/menu_state.h"
#include "comm/main_form/presenter.h"
#include "comm/main_form/title.h"
#include "comm/transfer/session.h"
#include "grids/fill/fill_configuration.h"
#include "grids/fill/fill_settings.h"
#include "template/pro_actualiza_archivo.h"
#include "template/services/file_names.h"
#include "template/services/offered_models.h"
#include "values/code_page.h"

#include <vector>

namespace zorvane::app {

namespace {

const std::string filterKey = "filtro";

/// The file types on offer: one for each template of the application folder. The one last used is chosen.
std::vector<std::string> offerTemplates(const App_Context& app) {
    const std::string saved =
        upperCase(app.settings.GetSetting(applicationTitle, "MainWindow", filterKey, std::string{}));
    std::vector<std::string> items;
    for (const Offered_Model& model : offeredModels(app.files, app.applicationFolder)) {
        items.push_back(model.filter);
        app.state.Filter_Text += model.filter;
        if (upperCase(model.filter) == saved)
            app.mainForm.dialog().FilterIndex = static_cast<int>(items.size());
    }
    return items;
}

/// Shows the dialog until an existing file was chosen; false when the user cancelled.
bool chooseFile(const App_Context& app) {
    CommonDialog& dialog = app.mainForm.dialog();
    for (;;) {
        dialog.FileName.clear();
        dialog.DialogTitle = "Open";
        dialog.Filter = app.state.Filter_Text;
        dialog.CancelError = true;
        if (!ignoringFailure([&] { dialog.ShowOpen(); })) {
            dialog.FileName.clear();
            return false;
        }
        if (app.files.exists(dialog.FileName)) return true;
    }
}

/// Empties the model before anything was asked: the grids go on showing the old document.
void emptyModel(const App_Context& app, const std::vector<std::string>& items) {
    Declara_Zorvane& document = app.document();
    app.state.modelEmptied = true;
    ++document.Edition;
    document.Download_Blocks.redim(0);
    document.Fields.redim(0);
    document.Selected_Field = 0;
    const int chosen = app.mainForm.dialog().FilterIndex;
    if (chosen >= 1 && chosen <= static_cast<int>(items.size()))
        app.settings.SaveSetting(applicationTitle, "MainWindow", filterKey,
                                 items[static_cast<std::size_t>(chosen) - 1]);
    document.Not_Downloadable_Count = 0;
}

void hideGrids(const App_Context& app) {
    app.grids.FLX_Settings.setVisible(false);
    app.mainForm.setPartVisible(Form_Part::Frame2, false);
    app.mainForm.setPartVisible(Form_Part::Frame3, false);
    app.mainForm.setPartEnabled(Form_Part::Frame2, false);
    if (app.form().Online) MNU_Disconnect_Click(app.grids.comm);
}

void readTemplate(const App_Context& app, const std::string& path) {
    Declara_Zorvane& document = app.document();
    document.Fields.redim(highestField);
    document.Holding_Block_Count = 0;
    app.link().ClearBlocks();
    app.state.documentType = lastExtension(path);
    ignoringFailure([&] {
        PRO_Leer_INIFIle(document, app.reading(),
                         app.applicationFolder + folderSeparator + templateName(path));
    });
    ignoringFailure([&] { PRO_Registra_Bloques(app.grids.comm); });
}

void showFields(const App_Context& app) {
    ignoringFailure([&] { PRO_Arma_Configuration(app.grids); });
    ignoringFailure([&] { PRO_Llena_Configuration(app.grids); });
    app.form().Document_Open = true;
    app.document().Selected_Field = 1;
    ignoringFailure([&] { app.grids.FLX_Configuration.setRow(1); });
}

void nameDocument(const App_Context& app, const File_To_Open& opening) {
    Declara_Zorvane& document = app.document();
    const std::optional<std::string>& other = opening.newName ? opening.newName : opening.recoveredName;
    takeName(document, other.value_or(opening.path));
    document.No_Place = other.has_value();
}

/// Rewrites a file of the older generation and reads the result over the model that the first reading left.
Reading_End updateDocument(const App_Context& app, bool& ok) {
    Declara_Zorvane& document = app.document();
    const std::string stem = document.File_Folder + document.File_Stem;
    keepFileBefore(app, updatedPath(stem, document.File_Extension));
    ignoringFailure([&] { PRO_Actualiza_Archivo(app.files, stem, document.File_Extension); });
    Reading_End end = readConfiguration(app, updatedPath(stem, document.File_Extension), ok);
    end.updated = true;
    document.File_Stem += "_Updated";
    PRO_Titulo_Limpio(document, app.form(), app.mainForm);
    PRO_Quita_Solo_Lectura(app);
    return end;
}

/// Reads the user's file, which may have to be brought up to date first. A recovery copy never has: it was
/// written by this generation.
Reading_End readDocument(const App_Context& app, const File_To_Open& opening, bool& ok) {
    Declara_Zorvane& document = app.document();
    const bool templateOnly = opening.newName && !app.files.exists(opening.path);
    Reading_End end = templateOnly ? Reading_End{opening.path, true, 0, {}, false}
                                   : readConfiguration(app, opening.path, ok);
    if (ok) {
        PRO_Titulo_Limpio(document, app.form(), app.mainForm);
        app.mainForm.setPanel(Panel::Message, "");
        return end;
    }
    if (opening.recoveredName || opening.newName ||
        lastExtension(opening.path).find("KVRT") == std::string::npos) {
        app.mainForm.setPanel(Panel::Message, "This file fit on the template.");
        return end;
    }
    return updateDocument(app, ok);
}

void showDocument(const App_Context& app) {
    PRO_Habilita_Menus(app);
    app.mainForm.setMenuEnabled(Menu_Entry::MNU_Close, true);
    app.form().Scan_Index = 0;
    ignoringFailure([&] { PRO_Selecciona_Primera(app.grids); });
    app.mainForm.setPartVisible(Form_Part::Frame2, true);
    app.mainForm.setPartVisible(Form_Part::Frame3, true);
    app.mainForm.setPartEnabled(Form_Part::Frame2, true);
    // The font size uses the panel, too; what was said of the file is still to be read afterwards.
    keepingMessage(app.mainForm, [&] { ignoringFailure([&] { PRO_Aplica_Font(app); }); });
}

} // namespace

bool openChosen(const App_Context& app, const File_To_Open& opening) {
    const Leaving leaving(app, "before Open");
    emptyModel(app, opening.items);
    bool ok = true;
    ignoringFailure([&] { PRO_Cierra_Documento(app, ok); });
    app.recovery.leave();
    if (!ok) {
        tellEmptied(app, leaving.name());
        return false;
    }
    hideGrids(app);
    PRO_Limpia_Documento(app);
    if (opening.readOnly)
        PRO_Marca_Solo_Lectura(app);
    else
        PRO_Quita_Solo_Lectura(app);
    readTemplate(app, opening.path);
    showFields(app);
    nameDocument(app, opening);
    app.mainForm.setMenuEnabled(Menu_Entry::MNU_Save, false);
    const Reading_End reading = readDocument(app, opening, ok);
    showDocument(app);
    if (opening.recoveredName)
        app.recovery.watchAll();
    else
        settleDocument(app);
    leaving.tell();
    if (reading.updated)
        app.mainForm.setPanel(Panel::Message,
                              ok ? "The file was updated." : "Zorvane can't update this file.");
    tellOpened(app, reading);
    return true;
}

void MNU_Open_Click(const App_Context& app) {
    std::vector<std::string> items = offerTemplates(app);
    if (items.empty()) {
        app.mainForm.Msgb_Show("Does not exist any .ZTP file in this directory: \r\n" + app.applicationFolder,
                               Msgb_Information, applicationTitle);
        return;
    }
    if (!chooseFile(app)) return;
    const CommonDialog& dialog = app.mainForm.dialog();
    openChosen(app, {dialog.FileName, (dialog.Flags & Dialog_ReadOnly) != 0, std::move(items), {}});
}

void openFile(const App_Context& app, const std::string& path, bool readOnly) {
    openChosen(app, {path, readOnly, {}, {}});
}

} // namespace zorvane::app
