// SPDX-License-Identifier: MIT
#include "app/document/recover_command.h"

#include "app/document/document_lines.h"
#include "app/document/open_steps.h"
#include "comm/main_form/title.h"

namespace zorvane::app {

namespace {

const std::string copyGone = "This recovery copy isn't there any more.";

/// The copy goes on as the document's own, unless the document doesn't hold all that it says. A file from
/// before a save stays as it is.
void adoptCopy(const App_Context& app, const Recovery_Entry& entry, const std::string& path) {
    if (entry.beforeSave) return;
    ignoringFailure([&] {
        if (withoutHeader(app.files.read(path)) == recoveryText(app.document()))
            app.recovery.adopt(entry.file, app.document());
    });
}

} // namespace

std::vector<Recovery_Entry> recoveryEntries(const App_Context& app) { return app.recovery.list(); }

void openRecoveryCopy(const App_Context& app, const Recovery_Entry& entry) {
    const std::string path = app.recovery.path(entry);
    if (!app.files.exists(path)) {
        app.mainForm.Msgb_Show(copyGone, Msgb_Information, applicationTitle);
        return;
    }
    app.recovery.spare(entry.file);
    if (openChosen(app, {path, false, {}, entry.name})) {
        PRO_Titulo_Modificado(app.document(), app.form(), app.mainForm);
        adoptCopy(app, entry, path);
        refreshCopies(app);
    }
    app.recovery.spare("");
}

} // namespace zorvane::app
