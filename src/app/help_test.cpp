// SPDX-License-Identifier: MIT
#include "app/help.h"
#include "app/testing/app_bench.h"

#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using doubles::App_Bench;
using Lines = std::vector<std::string>;

struct Help : testing::Test, App_Bench {
    Shell_Execute shell = [this](const std::string& operation, const std::string& file,
                                 const std::string& parameters, const std::string& folder) {
        journal.add(operation + " '" + file + "' '" + parameters + "' '" + folder + "'");
        return opens && file != unknown;
    };
    bool opens = true;
    std::string unknown; ///< a file that no program of the desktop takes
};

TEST_F(Help, TheIndexOpensTheHelpFileOfTheApplicationFolder) {
    files.put("/app/Zorvane.chm", "ITSF");
    MNU_HelpIndex_Click(app, shell);
    EXPECT_EQ(journal.lines(), Lines{"Open 'Zorvane.chm' '' '/app'"});
}

TEST_F(Help, AMissingHelpFileGivesAMessageNamingTheHlpFile) {
    MNU_HelpIndex_Click(app, shell);
    EXPECT_EQ(journal.lines(), Lines{R"(Msgb 64 "Zorvane": "Zorvane.hlp file doesn't exist!")"});
}

TEST_F(Help, WhereNoProgramTakesTheHelpFileTheManualsPagesOpen) {
    files.put("/app/Zorvane.chm", "ITSF");
    files.put("/app/help/index.html", "<html>");
    unknown = "Zorvane.chm";
    MNU_HelpIndex_Click(app, shell);
    EXPECT_EQ(journal.lines(), (Lines{"Open 'Zorvane.chm' '' '/app'", "Open 'index.html' '' '/app/help'"}));
}

TEST_F(Help, TheInstalledProgramsPagesOpenTheSameWay) {
    files.put("/app/Zorvane.chm", "ITSF");
    files.put("/app/../../share/doc/zorvane/html/index.html", "<html>");
    unknown = "Zorvane.chm";
    MNU_HelpIndex_Click(app, shell);
    EXPECT_EQ(journal.lines(), (Lines{"Open 'Zorvane.chm' '' '/app'",
                                      "Open 'index.html' '' '/app/../../share/doc/zorvane/html'"}));
}

TEST_F(Help, PagesWithoutTheHelpFileDontTakeItsPlace) {
    files.put("/app/help/index.html", "<html>");
    MNU_HelpIndex_Click(app, shell);
    EXPECT_EQ(journal.lines(), Lines{R"(Msgb 64 "Zorvane": "Zorvane.hlp file doesn't exist!")"});
}

TEST_F(Help, OnlineOpensTheMakersHomePage) {
    MNU_OnLine_Click(app, shell);
    EXPECT_EQ(journal.lines(), Lines{"Open 'https://zorvane.example/' '' ''"});
}

TEST_F(Help, ContactUsOpensAMailWithTheSubjectZorvane) {
    MNU_ContactUs_Click(app, shell);
    EXPECT_EQ(journal.lines(), Lines{"Open 'mailto:contact@zorvane.example?subject=Zorvane' '' ''"});
}

TEST_F(Help, ADesktopThatOpensNothingIsToldOf) {
    opens = false;
    files.put("/app/Zorvane.chm", "ITSF");
    MNU_HelpIndex_Click(app, shell);
    MNU_OnLine_Click(app, shell);
    EXPECT_EQ(messages(),
              (Lines{R"(Msgb 64 "Zorvane": "No program of this desktop opens /app/Zorvane.chm")",
                     R"(Msgb 64 "Zorvane": "No program of this desktop opens https://zorvane.example/")"}));
}

TEST_F(Help, ADesktopThatOpensNeitherFileNorPagesIsToldOfTheFile) {
    opens = false;
    files.put("/app/Zorvane.chm", "ITSF");
    files.put("/app/help/index.html", "<html>");
    MNU_HelpIndex_Click(app, shell);
    EXPECT_EQ(messages(), Lines{R"(Msgb 64 "Zorvane": "No program of this desktop opens /app/Zorvane.chm")"});
}

} // namespace
} // namespace zorvane::app
