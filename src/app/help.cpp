#include "app/help.h"

namespace zorvane {

namespace {

/// A desktop that can't open something is told of, since nothing else would be seen.
void openOrTell(const App_Context& app, const Shell_Execute& execute, const std::string& file,
                const std::string& folder) {
    if (execute("Open", file, "", folder)) return;
    const std::string what = folder.empty() ? file : folder + folderSeparator + file;
    app.frame.Msgb_Show("No program of this desktop opens " + what, Msgb_Information, applicationTitle);
}

} // namespace

void MNU_HelpIndex_Click(const App_Context& app, const Shell_Execute& RunShellExecute) {
    if (app.files.exists(app.applicationFolder + folderSeparator + helpFile))
        openOrTell(app, RunShellExecute, helpFile, app.applicationFolder);
    else
        app.frame.Msgb_Show("Zorvane.hlp file doesn't exist!", Msgb_Information, applicationTitle);
}

void MNU_OnLine_Click(const App_Context& app, const Shell_Execute& ShellExecute) {
    openOrTell(app, ShellExecute, makerHomePage, {});
}

void MNU_ContactUs_Click(const App_Context& app, const Shell_Execute& ShellExecute) {
    openOrTell(app, ShellExecute, makerMailLink, {});
}

} // namespace zorvane
