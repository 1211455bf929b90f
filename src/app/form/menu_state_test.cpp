// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/form/menu_state.h"
#include "app/form_life.h"
#include "app/testing/app_bench.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::app {
namespace {

using doubles::App_Bench;

/// The entries that depend on the document, those that are on.
std::string enabledEntries(const App_Bench& bench) {
    using enum Menu_Entry;
    const std::vector<std::pair<Menu_Entry, const char*>> entries = {
        {MNU_Close, "Close"},       {MNU_Save, "Save"},
        {MNU_Saveas, "SaveAs"},     {MNU_Print, "Print"},
        {MNU_PrintAll, "PrintAll"}, {MNU_Upload, "Upload"},
        {MNU_Download, "Download"}, {MNU_Disconnect, "Disconnect"}};
    std::string text;
    for (const auto& [entry, name] : entries)
        if (bench.mainForm.menuEnabled(entry)) text += (text.empty() ? "" : " ") + std::string(name);
    return text;
}

struct MenuState : testing::Test, App_Bench {
    MenuState() {
        for (const Menu_Entry entry :
             {Menu_Entry::MNU_Close, Menu_Entry::MNU_Save, Menu_Entry::MNU_Disconnect})
            mainForm.setMenuEnabled(entry, true);
        Form_Load(app);
    }
    const std::string open = "Close SaveAs Print PrintAll Upload Download";
    const std::string withSave = "Close Save SaveAs Print PrintAll Upload Download";
};

TEST_F(MenuState, StartingHasNoDocumentCommands) { EXPECT_EQ(enabledEntries(*this), ""); }

TEST_F(MenuState, TheDefaultTemplateHasNoneEither) {
    files.put("/app/kvrt.ztp", doubles::smallTemplate());
    TMR_Abre_ZTP_Timer(app);
    EXPECT_EQ(enabledEntries(*this), "");
}

TEST_F(MenuState, AFileJustOpenedHasNothingToSave) {
    openFile(app, "/home/site7.abc", false);
    EXPECT_EQ(enabledEntries(*this), open);
}

TEST_F(MenuState, AChangeTurnsSaveOnAndSavingTurnsItOff) {
    openFile(app, "/home/site7.abc", false);
    edit(1, "11");
    EXPECT_EQ(enabledEntries(*this), withSave);
    MNU_Save_Click(app);
    EXPECT_EQ(enabledEntries(*this), open);
}

TEST_F(MenuState, SaveAsTurnsSaveOn) {
    openFile(app, "/home/site7.abc", false);
    choose("/home/site8.abc");
    MNU_Saveas_Click(app);
    EXPECT_EQ(enabledEntries(*this), withSave);
}

TEST_F(MenuState, ClosingTurnsAllOff) {
    openFile(app, "/home/site7.abc", false);
    MNU_Close_Click(app);
    EXPECT_EQ(enabledEntries(*this), "");
}

TEST_F(MenuState, TheUnitNumberOutlivesTheDocument) {
    mainForm.setPanel(Panel::Unit, "RTU: 7");
    PRO_Deshabilita_Menus(app);
    EXPECT_EQ(mainForm.panel(Panel::Unit), "RTU: 7");
}

TEST_F(MenuState, TheReadOnlyMark) {
    PRO_Marca_Solo_Lectura(app);
    EXPECT_TRUE(document.Read_Only);
    EXPECT_EQ(mainForm.panel(Panel::ReadOnly), "READ ONLY");
    PRO_Quita_Solo_Lectura(app);
    EXPECT_FALSE(document.Read_Only);
    EXPECT_EQ(mainForm.panel(Panel::ReadOnly), "");
}

} // namespace
} // namespace zorvane::app
