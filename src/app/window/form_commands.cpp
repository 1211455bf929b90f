// SPDX-License-Identifier: MIT
#include "app/window/form_commands.h"

#include "app/document/document_commands.h"
#include "app/document/document_lines.h"
#include "app/document/recover_command.h"
#include "app/form_life.h"
#include "app/window/form/opening.h"
#include "app/window/recover_form.h"
#include "comm/main_form/monitor.h"
#include "comm/transfer/download.h"
#include "comm/transfer/session.h"
#include "comm/transfer/upload.h"
#include "template/services/native_files.h"

#include <QFile>

namespace zorvane::app {

namespace {

void tell(const std::function<void()>& extra) {
    if (extra) extra();
}

void recover(const Menu_Context& menu) {
    const App_Context& app = menu.app;
    Recover_Form form(
        recoveryEntries(app), [&app](const Recovery_Entry& entry) { app.recovery.remove(entry); },
        menu.mainForm.ask, menu.mainForm.dialogParent());
    const bool accepted = form.exec() == QDialog::Accepted;
    refreshCopies(app);
    if (!accepted) return;
    if (const auto chosen = form.chosen()) openAnother(menu, [&] { openRecoveryCopy(app, *chosen); });
}

void openDropped(const Menu_Context& menu, const QString& file) {
    const std::string path = pathFromNative(QFile::encodeName(file).toStdString());
    if (!menu.app.files.exists(path)) return; // a folder
    openAnother(menu, [&] { openFile(menu.app, path, false); });
}

} // namespace

void connectDocumentCommands(const Menu_Context& menu) {
    menu.onChosen("MNU_Open", [menu] { openAnother(menu, [&] { MNU_Open_Click(menu.app); }); });
    menu.onChosen("MNU_Close", [menu] {
        const Mouse_Track_Held held(menu.app.grids.navigation);
        MNU_Close_Click(menu.app);
        tell(menu.mainForm.extras.documentOpened);
    });
    menu.onChosen("MNU_Save", [menu] {
        MNU_Save_Click(menu.app);
        tell(menu.mainForm.extras.documentSaved);
    });
    menu.onChosen("MNU_Saveas", [menu] {
        MNU_Saveas_Click(menu.app);
        tell(menu.mainForm.extras.documentSaved);
    });
    menu.onChosen("MNU_Recover", [menu] { recover(menu); });
    menu.onChosen("MNU_Exit", [menu] { MNU_Exit_Click(menu.app); });
    menu.window().events.fileDropped = [menu](const QString& file) {
        menu.edge.run([&] { openDropped(menu, file); });
    };
}

void connectCommunicationCommands(const Menu_Context& menu) {
    const App_Context& app = menu.app;
    menu.onChosen("MNU_Upload", [&app] { MNU_Upload_Click(app.grids.comm); });
    menu.onChosen("MNU_Download", [&app] { MNU_Download_Click(app.grids.comm); });
    menu.onChosen("MNU_Disconnect", [&app] { MNU_Disconnect_Click(app.grids.comm); });
    menu.onChosen("MNU_Port_Settings", [&app] { MNU_Port_Settings_Click(app.grids.comm); });
    menu.onChosen("separador4", [&app] { separador4_Click(app.grids.comm); });
}

} // namespace zorvane::app
