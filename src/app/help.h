// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <array>
#include <functional>
#include <string>

namespace zorvane::app {

/// The platform's shell open: a file by its name in a folder, or an address with no folder. False when
/// nothing took it.
using Shell_Execute = std::function<bool(const std::string& operation, const std::string& file,
                                         const std::string& parameters, const std::string& folder)>;

/// Where the maker is found. Whoever distributes the program puts the own ones here.
inline const std::string makerHomePage = "https://zorvane.example/";
inline const std::string makerMailLink = "mailto:contact@zorvane.example?subject=Zorvane";

inline const std::string helpFile = "Zorvane.chm";
/// The same manual as pages for a browser: the first one, and where it may lie, seen from the application
/// folder. The second place is that of the installed program.
inline const std::string helpPage = "index.html";
inline const std::array<std::string, 2> helpPagesFolders = {"help", "../../share/doc/zorvane/html"};

/// "&Index": the help file of the application folder in the desktop's viewer, where it has none the manual's
/// pages in a browser, or a message.
void MNU_HelpIndex_Click(const App_Context& app, const Shell_Execute& RunShellExecute);
/// "&Brevik Online": the maker's home page.
void MNU_OnLine_Click(const App_Context& app, const Shell_Execute& ShellExecute);
/// "Contact &Us": a new mail to the maker.
void MNU_ContactUs_Click(const App_Context& app, const Shell_Execute& ShellExecute);

} // namespace zorvane::app
