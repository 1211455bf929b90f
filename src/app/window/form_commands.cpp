#include "app/window/form_commands.h"

#include "app/document/document_commands.h"
#include "app/document/document_lines.h"
#include "app/document/recover_command.h"
#include "app/form_life.h"
#include "app/window/recover_form.h"
#include "comm/main_form/monitor.h"
#include "comm/transfer/download.h"
#include "comm/transfer/session.h"
#include "comm/transfer/upload.h"
#include "template/services/native_files.h"

#include <QFile>

#include <utility>

namespace zorvane {

namespace {

/// Mouse positions over the upper grid aren't recorded while a document opens or closes.
class Mouse_Track_Held {
  public:
    explicit Mouse_Track_Held(Navigation_State& state)
        : state_(state), before_(std::exchange(state.Mouse_Track_Off, true)) {}
    ~Mouse_Track_Held() { state_.Mouse_Track_Off = before_; }
    Mouse_Track_Held(const Mouse_Track_Held&) = delete;
    Mouse_Track_Held& operator=(const Mouse_Track_Held&) = delete;

  private:
    Navigation_State& state_;
    bool before_;
};

template <class File_To_Open> void openAnother(const Form_Parts& parts, File_To_Open&& opening) {
    const Mouse_Track_Held held(parts.app.grids.navigation);
    std::forward<File_To_Open>(opening)();
    parts.mainForm.timers().setInterval(Timer_Name::TMR_Forza_analogas,
                                        parts.app.document().Forza_Analogas_Ms);
}

void recover(const Form_Parts& parts) {
    const App_Context& app = parts.app;
    Recover_Form form(
        recoveryEntries(app), [&app](const Recovery_Entry& entry) { app.recovery.remove(entry); },
        parts.mainForm.ask, parts.mainForm.dialogParent());
    const bool accepted = form.exec() == QDialog::Accepted;
    refreshCopies(app);
    if (!accepted) return;
    if (const auto chosen = form.chosen()) openAnother(parts, [&] { openRecoveryCopy(app, *chosen); });
}

void openDropped(const Form_Parts& parts, const QString& file) {
    const std::string path = pathFromNative(QFile::encodeName(file).toStdString());
    if (!parts.app.files.exists(path)) return; // a folder
    openAnother(parts, [&] { openFile(parts.app, path, false); });
}

} // namespace

void Form_Parts::onChosen(const QString& entry, const std::function<void()>& handler) const {
    window().menu().onChosen(entry, [&edge = edge, handler] { edge.run(handler); });
}

void connectDocumentCommands(const Form_Parts& parts) {
    parts.onChosen("MNU_Open", [parts] { openAnother(parts, [&] { MNU_Open_Click(parts.app); }); });
    parts.onChosen("MNU_Close", [parts] {
        const Mouse_Track_Held held(parts.app.grids.navigation);
        MNU_Close_Click(parts.app);
    });
    parts.onChosen("MNU_Save", [parts] { MNU_Save_Click(parts.app); });
    parts.onChosen("MNU_Saveas", [parts] { MNU_Saveas_Click(parts.app); });
    parts.onChosen("MNU_Recover", [parts] { recover(parts); });
    parts.onChosen("MNU_Exit", [parts] { MNU_Exit_Click(parts.app); });
    parts.window().events.fileDropped = [parts](const QString& file) {
        parts.edge.run([&] { openDropped(parts, file); });
    };
}

void connectCommunicationCommands(const Form_Parts& parts) {
    const App_Context& app = parts.app;
    parts.onChosen("MNU_Upload", [&app] { MNU_Upload_Click(app.grids.comm); });
    parts.onChosen("MNU_Download", [&app] { MNU_Download_Click(app.grids.comm); });
    parts.onChosen("MNU_Disconnect", [&app] { MNU_Disconnect_Click(app.grids.comm); });
    parts.onChosen("MNU_Port_Settings", [&app] { MNU_Port_Settings_Click(app.grids.comm); });
    parts.onChosen("separador4", [&app] { separador4_Click(app.grids.comm); });
}

} // namespace zorvane
