// SPDX-License-Identifier: MIT
#include "app/document/document_lines.h"

#include <algorithm>

namespace zorvane::app {

namespace {

const std::string saveTopic = "save";
const std::string copiesTopic = "copies";
const std::string halfWayTopic = "half-way";
const std::string noCopyTopic = "no copy";

Bar_Button chooses(const App_Context& app, const std::string& caption, const std::string& entry) {
    return {caption, [&mainForm = app.mainForm, entry] { mainForm.choose(entry); }};
}

Bar_Button saveAs(const App_Context& app) { return chooses(app, "Save As...", "MNU_Saveas"); }
Bar_Button recover(const App_Context& app) { return chooses(app, "Recover...", "MNU_Recover"); }

/// What became of the file of a save that failed.
std::string fileAfter(const App_Context& app, const Failed_Save& save) {
    const std::optional<std::string> now = app.files.bytes(save.path);
    if (now == save.before)
        return app.files.exists(save.path) ? " The file is as it was." : " No file was made.";
    const std::string cut = " The file holds only the beginning of it.";
    return save.fileKept ? cut + " The file as it was before is kept." : cut;
}

std::string copyAfter(const Failed_Save& save) {
    return save.copyKept ? " A whole copy of the document is kept."
                         : " No copy of the document could be kept: save it elsewhere.";
}

std::vector<Recovery_Entry> unsavedCopies(const App_Context& app) {
    std::vector<Recovery_Entry> entries = app.recovery.list();
    std::erase_if(entries, [](const Recovery_Entry& entry) { return entry.beforeSave; });
    return entries;
}

} // namespace

void tellSaveFailed(const App_Context& app, const Failed_Save& save) {
    std::string text = save.path + " could not be saved: " + save.reason + "." + fileAfter(app, save);
    text +=
        app.state.modelEmptied ? " The document in the window was emptied when Open began." : copyAfter(save);
    if (save.renamed) text += " The document in the window has that file's name now, and Save writes there.";
    std::vector<Bar_Button> buttons;
    if (!app.state.modelEmptied) buttons.push_back(saveAs(app));
    buttons.push_back(recover(app));
    app.mainForm.messageBar().tell({saveTopic, Bar_Kind::Warning, text, std::move(buttons), true});
}

void withdrawSaveFailed(const App_Context& app) { app.mainForm.messageBar().withdraw(saveTopic); }

void tellEmptied(const App_Context& app, const std::string& name) {
    const std::string kept = app.state.keptBeforeOpen ? "All of it is kept in the copy \"before Open\"."
                                                      : "No copy of it could be kept.";
    app.mainForm.messageBar().tell(
        {halfWayTopic,
         Bar_Kind::Warning,
         "Open was cancelled when it had emptied " + name +
             " already: the window still shows its values, but they can't be saved or "
             "sent any more. " +
             kept,
         {recover(app)},
         true});
}

void tellRenamed(const App_Context& app, const std::string& path) {
    app.mainForm.messageBar().tell(
        {halfWayTopic,
         Bar_Kind::Warning,
         "Save As was refused, and " + path +
             " is as it was. The document in the window has that name now: Save stays "
             "off until Save As gives it another.",
         {saveAs(app), recover(app)},
         true});
}

void tellLeftUnsaved(const App_Context& app, const std::string& name, bool copyKept) {
    const std::string kept = copyKept ? "They are kept in a copy." : "No copy of them could be kept.";
    app.mainForm.messageBar().tell({halfWayTopic,
                                    Bar_Kind::Warning,
                                    name + " was closed with changes that no file has. " + kept,
                                    {recover(app)},
                                    false});
}

void tellNoCopy(const App_Context& app) {
    app.mainForm.messageBar().tell({noCopyTopic,
                                    Bar_Kind::Warning,
                                    "No copy of the unsaved changes can be kept in " + app.recovery.place() +
                                        ": a crash would lose them. Save the document, and see whether there "
                                        "is room and leave to write.",
                                    {saveAs(app)},
                                    true});
}

void withdrawNoCopy(const App_Context& app) { app.mainForm.messageBar().withdraw(noCopyTopic); }

void tellCopies(const App_Context& app) {
    const std::vector<Recovery_Entry> entries = unsavedCopies(app);
    if (entries.empty()) return;
    const std::string newest = entries.front().name + ", " + entries.front().time;
    const std::string text = entries.size() == 1
                                 ? "A copy of unsaved changes is kept: " + newest + "."
                                 : std::to_string(entries.size()) +
                                       " copies of unsaved changes are kept, the newest: " + newest + ".";
    app.mainForm.messageBar().tell({copiesTopic, Bar_Kind::Note, text, {recover(app)}, false});
}

void refreshCopies(const App_Context& app) {
    if (unsavedCopies(app).empty()) app.mainForm.messageBar().withdraw(copiesTopic);
}

} // namespace zorvane::app
