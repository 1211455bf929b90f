// SPDX-License-Identifier: MIT
#include "app/document/recovery_keeper.h"

#include "app/document/document_lines.h"
#include "template/services/file_names.h"

namespace zorvane::app {

namespace {

/// A change just after a copy waits for the next due tick, and that may come a tick late.
constexpr std::int32_t copyEveryMs = recoveryIntervalMs - 2 * recoveryTickMs;

/// The template that a file belongs to: the one that its extension names, where there is such a one.
std::string typeOfFile(const App_Context& app, const std::string& path) {
    const std::string named = app.applicationFolder + folderSeparator + templateName(path);
    return app.files.exists(named) ? lastExtension(path) : app.state.documentType;
}

/// Told once, however often it is tried: who takes the line away has read it.
void noteCopy(const App_Context& app, bool kept) {
    if (kept) withdrawNoCopy(app);
    if (!kept && !app.state.noCopyTold) tellNoCopy(app);
    app.state.noCopyTold = !kept;
}

} // namespace

bool hasChanges(const App_Context& app) {
    return app.form().Dirty || (!app.state.modelEmptied && app.recovery.changed(app.document()));
}

bool keepCopy(const App_Context& app, std::string_view why) {
    if (app.state.modelEmptied || !app.form().Document_Open) return true;
    return app.recovery.keep(app.document(), app.state.documentType, why);
}

bool keepFailedSave(const App_Context& app, std::string_view why) {
    const bool kept = keepCopy(app, why);
    app.recovery.offer();
    return kept;
}

void settleDocument(const App_Context& app) {
    app.recovery.settle(app.document());
    app.state.changed.take(app.document());
    app.state.history.noteWritten();
    app.state.lastCopyMs.reset();
    noteCopy(app, true);
}

void settleCopy(const App_Context& app) {
    if (app.recovery.changed(app.document()))
        keepCopy(app, "changed while saving");
    else
        app.recovery.drop();
}

bool keepFileBefore(const App_Context& app, const std::string& path, std::string_view text) {
    std::optional<std::string> bytes = app.files.bytes(path);
    if (!bytes) return !app.files.exists(path);
    if (bytes->empty() || *bytes == text) return true;
    const std::string type = typeOfFile(app, path);
    const std::string& model = app.document().Controller_Model;
    return app.recovery.keepFile({path.substr(path.rfind(folderSeparator) + 1), type,
                                  type == app.state.documentType ? model : "", std::move(*bytes)});
}

Leaving::Leaving(const App_Context& app, std::string_view why)
    : app_(app), name_(copyName(app.document(), app.state.documentType)), changes_(hasChanges(app)),
      kept_(!changes_ || keepCopy(app, why)) {
    if (app.state.modelEmptied) kept_ = app.state.keptBeforeOpen;
    app.state.keptBeforeOpen = kept_;
}

void Leaving::tell() const {
    const bool nobodySaid =
        app_.state.left == Leave_Outcome::NotAsked || app_.state.left == Leave_Outcome::NotSaved;
    if (changes_ && nobodySaid) tellLeftUnsaved(app_, name_, kept_);
}

void TMR_Copia_Timer(const App_Context& app, std::int64_t nowMs) {
    std::optional<std::int64_t>& last = app.state.lastCopyMs;
    if (last && nowMs - *last < copyEveryMs) return;
    if (app.state.modelEmptied || !app.form().Document_Open || !app.recovery.due(app.document())) return;
    // A copy that couldn't be written is tried again after a tick.
    const bool kept = keepCopy(app, "changed");
    last = kept ? nowMs : nowMs - copyEveryMs + recoveryTickMs;
    noteCopy(app, kept);
}

} // namespace zorvane::app
