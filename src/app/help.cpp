// SPDX-License-Identifier: MIT
#include "app/help.h"

namespace zorvane::app {

namespace {

/// A desktop that can't open something is told of, since nothing else would be seen.
void tellUnopened(const App_Context& app, const std::string& what) {
    app.mainForm.Msgb_Show("No program of this desktop opens " + what, Msgb_Information, applicationTitle);
}

void openOrTell(const App_Context& app, const Shell_Execute& execute, const std::string& address) {
    if (!execute("Open", address, "", {})) tellUnopened(app, address);
}

} // namespace

void MNU_HelpIndex_Click(const App_Context& app, const Shell_Execute& RunShellExecute) {
    const std::string& folder = app.applicationFolder;
    if (!app.files.exists(folder + folderSeparator + helpFile)) {
        app.mainForm.Msgb_Show("Zorvane.hlp file doesn't exist!", Msgb_Information, applicationTitle);
        return;
    }
    if (RunShellExecute("Open", helpFile, "", folder)) return;
    for (const std::string& place : helpPagesFolders) {
        const std::string pages = folder + folderSeparator + place;
        const bool hasPages = app.files.exists(pages + folderSeparator + helpPage);
        if (hasPages && RunShellExecute("Open", helpPage, "", pages)) return;
    }
    tellUnopened(app, folder + folderSeparator + helpFile);
}

void MNU_OnLine_Click(const App_Context& app, const Shell_Execute& ShellExecute) {
    openOrTell(app, ShellExecute, makerHomePage);
}

void MNU_ContactUs_Click(const App_Context& app, const Shell_Execute& ShellExecute) {
    openOrTell(app, ShellExecute, makerMailLink);
}

} // namespace zorvane::app
