// SPDX-License-Identifier: MIT
// The whole window, driven from inside: start, documents, editing, the ways out.

#include "app/window/testing/program_fixture.h"
#include "ui/forms/msgb.h"
#include "ui/testing/control_walk.h"

#include <QCheckBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>

namespace zorvane::app {
namespace {

using doubles::Program_Fixture;
using doubles::Shown_Message;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using Words = std::vector<std::string>;

const Words documentEntries = {"MNU_Close",    "MNU_Save",       "MNU_Saveas", "MNU_Upload",
                               "MNU_Download", "MNU_Disconnect", "MNU_Print",  "MNU_PrintAll"};
const Shown_Message saveQuestion{"Do you want to save this file?", 35, "Zorvane"};
const Shown_Message cannotWrite{"The Zorvane can't write the file, please verify the read only properties...",
                                64, "Zorvane"};

class Window_Start : public Program_Fixture {
  protected:
    Window_Start() { putModels(); }
};

TEST_F(Window_Start, BeforeItsTimersNothingIsShown) {
    make();
    program->start();
    EXPECT_FALSE(program->window().isVisible());
    EXPECT_TRUE(program->window().Frame2().isHidden());
    EXPECT_TRUE(program->window().Frame3().isHidden());
    EXPECT_TRUE(program->window().PicLineHoriz().isHidden());
    EXPECT_THAT(enabledOf(documentEntries), IsEmpty());
    EXPECT_TRUE(enabled("MNU_Open"));
    const Form_Timers& timers = program->mainForm().timers();
    EXPECT_TRUE(timers.enabled(Timer_Name::TMR_Abre_ZTP));
    EXPECT_TRUE(timers.enabled(Timer_Name::TMR_Inicial_ZTP));
    EXPECT_TRUE(timers.enabled(Timer_Name::TMR_Verifica_monitor));
    EXPECT_EQ(timers.interval(Timer_Name::TMR_Abre_ZTP), 100);
    EXPECT_EQ(timers.interval(Timer_Name::TMR_Inicial_ZTP), 200);
    EXPECT_EQ(timers.interval(Timer_Name::TMR_Verifica_monitor), 500);
    EXPECT_EQ(timers.interval(Timer_Name::TMR_Actualiza_valores), 10);
    EXPECT_EQ(timers.interval(Timer_Name::TMR_Actualiza_online), 400);
    EXPECT_EQ(timers.interval(Timer_Name::TMR_TxRx), 90);
}

TEST_F(Window_Start, ItsTimersShowTheDefaultTemplateByThemselves) {
    make();
    program->start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return program->window().isVisible() && lower().Rows() > 0; }));
    EXPECT_FALSE(program->mainForm().timers().enabled(Timer_Name::TMR_Abre_ZTP));
    EXPECT_FALSE(program->mainForm().timers().enabled(Timer_Name::TMR_Inicial_ZTP));
    EXPECT_EQ(title(), "Zorvane");
    EXPECT_EQ(rowOf(upper(), 0), (Words{"No.", "Field", "Editable", "Remarks"}));
    EXPECT_EQ(rowOf(upper(), 1), (Words{"1", "Output Setup", "Yes", "Descriptions are stored offline only"}));
    EXPECT_EQ(rowOf(lower(), 0), (Words{"Output", "Value", "Description"}));
    EXPECT_EQ(rowOf(lower(), 1), (Words{"R1 function", "Raise", ""}));
    EXPECT_EQ(panel(2), "Offline");
    EXPECT_TRUE(program->window().Frame2().isVisible());
    EXPECT_TRUE(program->window().PicLineHoriz().isVisible());
    EXPECT_THAT(enabledOf(documentEntries), IsEmpty());
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(Window_Start, TheTemplatesTimerFiresOnceAndDoesNothing) {
    start();
    EXPECT_EQ(program->mainForm().timers().interval(Timer_Name::TMR_Forza_analogas), 80);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return !program->mainForm().timers().enabled(Timer_Name::TMR_Forza_analogas); }));
}

TEST_F(Window_Start, PanelThreeShowsTheUnitNumber) {
    start();
    program->mainForm().timers().fire(Timer_Name::TMR_Verifica_monitor);
    EXPECT_EQ(panel(3), "RTU: 1");
    EXPECT_TRUE(enabled("separador4"));
}

TEST_F(Window_Start, TheDefaultTemplateCanBeChangedButNotSaved) {
    start();
    type(2, 1, "0:03");
    EXPECT_EQ(lower().TextMatrix(2, 1), "0:03");
    EXPECT_FALSE(enabled("MNU_Save"));
}

TEST_F(Window_Start, NoTwoEntriesOfAMenuAnswerToOneLetter) {
    start();
    EXPECT_THAT(doubles::keyClashes(*program->window().menuBar()), IsEmpty());
    EXPECT_THAT(doubles::keyClashes(program->window()), IsEmpty());
}

class Bad_Start : public Program_Fixture {};

TEST_F(Bad_Start, AMissingDefaultTemplateGivesAMessageAndAnEmptyScreen) {
    start();
    EXPECT_THAT(messages, ElementsAre(Shown_Message{"The ZTP file (" + appFolder() +
                                                        "/kvrt.ztp) was not found in: \n" + appFolder(),
                                                    16, "Zorvane"}));
    EXPECT_TRUE(program->window().isVisible());
    EXPECT_EQ(upper().Rows(), 1);
    EXPECT_FALSE(program->edge().ended());
}

TEST_F(Bad_Start, ABadIndexInTheDefaultTemplateShowsABoxAndEndsTheProgramWithOne) {
    put("app/kvrt.ztp", "[FIELD_101_COLUMNS]\r\nCOL_1_DESC=x\r\n");
    KVRT_Principal real(
        Program_Places{appFolder(), path("recovery"), QString::fromStdString(path("settings.conf"))});
    Words seen;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, &user, [&] {
        auto* box = dynamic_cast<ui::Msgb*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        seen.push_back(box->windowTitle().toStdString());
        seen.push_back(box->findChild<QLabel*>("txt_mensaje")->text().toStdString());
        seen.emplace_back(box->findChild<QLabel*>("IMG_Critical")->isVisible() ? "critical" : "other");
        box->findChild<QPushButton*>("BOT_2")->click();
    });
    user.start(5);
    EXPECT_EQ(real.run(), 1);
    EXPECT_EQ(seen, (Words{"Zorvane", "Run-time error '9': Subscript out of range", "critical"}));
}

TEST_F(Bad_Start, ATemplateWithoutScanBlocksEndsTheProgramAtItsStart) {
    put("app/kvrt.ztp", "[CONFIGURATION_COLUMNS]\r\nCONFIGURATION_NC=2\r\n");
    start();
    EXPECT_THAT(messages,
                ElementsAre(Shown_Message{"Run-time error '9': Subscript out of range", 16, "Zorvane"}));
    EXPECT_TRUE(program->edge().ended());
    EXPECT_EQ(program->mainForm().exitCode(), 1);
}

TEST_F(Bad_Start, DownloadBlocksInTheDefaultTemplateEndTheProgramAtItsStart) {
    put("app/kvrt.ztp", "[HARDWARE]\r\nDOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=1-8\r\n"
                        "[PORT_CONFIGURATION]\r\nHOLDINGREGISTERSBLOCK_1=1-8\r\n");
    start();
    EXPECT_THAT(messages,
                ElementsAre(Shown_Message{"Run-time error '9': Subscript out of range", 16, "Zorvane"}));
    EXPECT_EQ(program->mainForm().exitCode(), 1);
}

TEST_F(Bad_Start, TheSameTemplateWithoutDownloadBlocksStarts) {
    put("app/kvrt.ztp", "[HARDWARE]\r\n[PORT_CONFIGURATION]\r\nHOLDINGREGISTERSBLOCK_1=1-8\r\n");
    start();
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_FALSE(program->edge().ended());
}

class Window_Documents : public Program_Fixture {
  protected:
    Window_Documents() {
        putModels();
        std::filesystem::copy_file(appFolder() + "/EXAMPLE.KVRT207D", path("site7.KVRT207D"));
    }
};

TEST_F(Window_Documents, OpenShowsTheDocumentAndItsCommands) {
    startWith("site7.KVRT207D");
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_EQ(title(), "site7.kvrt207d - Zorvane");
    EXPECT_EQ(enabledOf(documentEntries),
              (Words{"MNU_Close", "MNU_Saveas", "MNU_Upload", "MNU_Download", "MNU_Print", "MNU_PrintAll"}));
    selectField(3);
    EXPECT_EQ(rowOf(lower(), 1), (Words{"Set point", "1125", "Agreed with the grid office: 112.5 V"}));
    EXPECT_EQ(panel(1), "");
}

TEST_F(Window_Documents, TheChosenFileTypeIsOfferedFirstNextTime) {
    startWith("site7.KVRT207D");
    EXPECT_EQ(program->app().settings.GetSetting("Zorvane", "MainWindow", "filtro", ""),
              "kvrt Configuration (*.kvrt)|*.kvrt|");
    chosenType = "KVRT207D";
    open("site7.KVRT207D");
    program.reset();
    EXPECT_THAT(text("settings.conf"), HasSubstr("filtro=KVRT207D Configuration (*.KVRT207D)|*.KVRT207D|"));
    start();
    chosenFile.clear();
    chosenType.clear();
    choose("MNU_Open");
    EXPECT_EQ(program->mainForm().dialog().FilterIndex, 3);
}

TEST_F(Window_Documents, ACancelledDialogLeavesTheDocumentUntouched) {
    startWith("site7.KVRT207D");
    chosenFile.clear();
    choose("MNU_Open");
    EXPECT_EQ(title(), "site7.kvrt207d - Zorvane");
    EXPECT_EQ(rowOf(upper(), 1)[1], "Output Setup");
}

TEST_F(Window_Documents, TheReadOnlyTickWorksAlsoAfterSaveAs) {
    startWith("site7.KVRT207D");
    chosenFile.clear();
    choose("MNU_Saveas");
    EXPECT_EQ(program->mainForm().dialog().Flags, 4);
    readOnlyTicked = true;
    open("site7.KVRT207D");
    EXPECT_EQ(panel(1), "READ ONLY");
    EXPECT_TRUE(enabled("MNU_Saveas"));
}

TEST_F(Window_Documents, ATickForOneFileIsNoneForTheNext) {
    readOnlyTicked = true;
    startWith("site7.KVRT207D");
    ASSERT_EQ(panel(1), "READ ONLY");
    bool ticked = true;
    program->mainForm().dialog().run = [this, &ticked](QFileDialog& dialog) {
        ticked = dialog.findChild<QCheckBox*>("CHK_ReadOnly")->isChecked();
        dialog.selectFile(QString::fromStdString(path("site7.KVRT207D")));
        return true;
    };
    choose("MNU_Open");
    EXPECT_FALSE(ticked);
    EXPECT_EQ(panel(1), "");
}

TEST_F(Window_Documents, AReadOnlyDocumentRefusesEveryEdit) {
    readOnlyTicked = true;
    startWith("site7.KVRT207D");
    selectField(3);
    lower().view().setFocus();
    QTest::keyClick(&lower().view(), Qt::Key_Up);
    EXPECT_EQ(panel(4), "READ ONLY FILE. Can't modify the value.");
    QTest::keyClick(&lower().view(), Qt::Key_F2);
    EXPECT_FALSE(lower().view().isEditing());
}

TEST_F(Window_Documents, AnEditMarksTheTitleAndSaveWritesTheFile) {
    startWith("site7.KVRT207D");
    selectField(3);
    type(1, 1, "1130");
    EXPECT_EQ(title(), "* site7.kvrt207d - Zorvane");
    ASSERT_TRUE(enabled("MNU_Save"));
    choose("MNU_Save");
    EXPECT_EQ(title(), "site7.kvrt207d - Zorvane");
    EXPECT_FALSE(enabled("MNU_Save"));
    EXPECT_THAT(text("site7.KVRT207D"), HasSubstr("ROW_1=Set point,1130,"));
}

TEST_F(Window_Documents, SaveAsGivesANameWithoutAnExtensionThatOfTheDocument) {
    startWith("site7.KVRT207D");
    chosenFile = path("site8");
    choose("MNU_Saveas");
    EXPECT_EQ(title(), "site8.kvrt207d - Zorvane");
    EXPECT_EQ(text("site8.KVRT207D").size(), text("site7.KVRT207D").size());
}

TEST_F(Window_Documents, AFailureInACommitStopsItWithAMessageAndTheProgramGoesOn) {
    put("app/ODD.ZTP",
        "[PORT_CONFIGURATION]\r\nHOLDINGREGISTERSBLOCK_1=1-2\r\n[CONFIGURATION_COLUMNS]\r\n"
        "CONFIGURATION_NC=2\r\n[CONFIGURATION_FIELDS]\r\nFIELD_1_DESC=Odd\r\nFIELD_1_RC=1,1\r\n"
        "[CONFIGURATION_DEFAULT]\r\nFIELD_1=,Odd\r\n[FIELD_1_COLUMNS]\r\nCOL_1_DESC=Value\r\n"
        "COL_1_MODIFIABLE=YES\r\nCOL_1_TYPE=NUMERIC\r\n[FIELD_1_ADDRESS]\r\nROW_1=1\r\n");
    put("site1.ODD", "[FIELD_1_DEFAULT]\r\nROW_1=none\r\n");
    startWith("site1.ODD");
    ASSERT_EQ(lower().TextMatrix(1, 0), "none");
    type(1, 0, "5");
    EXPECT_THAT(messages, ElementsAre(Shown_Message{"Run-time error '13': Type mismatch", 16, "Zorvane"}));
    EXPECT_FALSE(program->edge().ended());
}

TEST_F(Window_Documents, AScreenReaderIsToldWhatTheColoursSay) {
    startWith("site7.KVRT207D");
    selectField(3);
    const auto described = [&](int row, int col) {
        const ui::Flex_Grid_Model& cells = lower().view().cells();
        return cells.data(cells.index(row - 1, col), Qt::AccessibleDescriptionRole).toString().toStdString();
    };
    EXPECT_EQ(described(1, 0), "Fixed");
    EXPECT_EQ(described(1, 1), "Modifiable");
}

TEST_F(Window_Documents, CloseHidesTheGridsAndClosesTheDocument) {
    startWith("site7.KVRT207D");
    choose("MNU_Close");
    EXPECT_EQ(title(), "Zorvane");
    EXPECT_TRUE(program->window().Frame2().isHidden());
    EXPECT_TRUE(program->window().PicLineHoriz().isHidden());
    EXPECT_THAT(enabledOf(documentEntries), IsEmpty());
    EXPECT_EQ(upper().Rows(), 0);
}

TEST_F(Window_Documents, AnApplicationFolderWithoutTemplatesGivesAMessageAndNoDialog) {
    startWith("site7.KVRT207D");
    for (const auto& entry : std::filesystem::directory_iterator(appFolder()))
        if (entry.path().extension() == ".ZTP" || entry.path().extension() == ".ztp")
            std::filesystem::remove(entry.path());
    program->mainForm().dialog().run = [](QFileDialog&) -> bool { throw std::logic_error("a dialog"); };
    choose("MNU_Open");
    EXPECT_THAT(messages,
                ElementsAre(Shown_Message{"Does not exist any .ZTP file in this directory: \n" + appFolder(),
                                          64, "Zorvane"}));
}

TEST_F(Window_Documents, ADroppedFileOpens) {
    start();
    program->window().events.fileDropped(QString::fromStdString(path("site7.KVRT207D")));
    EXPECT_EQ(title(), "site7.kvrt207d - Zorvane");
}

TEST_F(Window_Documents, ADroppedFolderIsPassedOver) {
    startWith("site7.KVRT207D");
    program->window().events.fileDropped(QString::fromStdString(appFolder()));
    EXPECT_EQ(title(), "site7.kvrt207d - Zorvane");
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(Window_Documents, ADroppedFileAsksAboutTheDocumentAtHandFirst) {
    startWith("site7.KVRT207D");
    selectField(3);
    type(1, 1, "1130");
    answers = {Msgb_Code_No};
    std::filesystem::copy_file(appFolder() + "/EXAMPLE.KVRT100", path("b.KVRT100"));
    program->window().events.fileDropped(QString::fromStdString(path("b.KVRT100")));
    EXPECT_THAT(messages, ElementsAre(saveQuestion));
    EXPECT_EQ(title(), "b.kvrt100 - Zorvane");
}

class Window_Exit : public Window_Documents {
  protected:
    void openAndEdit() {
        startWith("site7.KVRT207D");
        selectField(3);
        type(1, 1, "1130");
    }
    [[nodiscard]] std::string setting(const char* key) const {
        return program->app().settings.GetSetting("Zorvane", "MainWindow", key, "none");
    }
};

TEST_F(Window_Exit, ExitEndsTheProgramAtOnceWithoutChanges) {
    startWith("site7.KVRT207D");
    choose("MNU_Exit");
    EXPECT_TRUE(program->edge().ended());
    EXPECT_EQ(program->mainForm().exitCode(), 0);
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(Window_Exit, ClosingWithCancelStaysAndStoresTheWindowsPlace) {
    openAndEdit();
    answers = {Msgb_Code_Cancel};
    program->mainForm().moveForm({.left = 3000, .top = 1500, .width = 9000, .height = 9750});
    EXPECT_FALSE(program->window().close());
    EXPECT_FALSE(program->edge().ended());
    EXPECT_THAT(messages, ElementsAre(saveQuestion));
    EXPECT_EQ(Words({setting("Top"), setting("Left"), setting("Width"), setting("Height")}),
              (Words{"1500", "3000", "9000", "9750"}));
}

TEST_F(Window_Exit, ClosingWithNoEndsTheProgram) {
    openAndEdit();
    answers = {Msgb_Code_No};
    EXPECT_TRUE(program->window().close());
    EXPECT_TRUE(program->edge().ended());
}

TEST_F(Window_Exit, AFailingSaveOnTheWayOutKeepsTheProgramOpen) {
    openAndEdit();
    answers = {Msgb_Code_Yes};
    chosenFile = path("no such folder/site7.KVRT207D");
    choose("MNU_Exit");
    EXPECT_FALSE(program->edge().ended());
    ASSERT_EQ(messages.size(), 3U);
    EXPECT_EQ(messages[0], saveQuestion);
    EXPECT_THAT(messages[1].text,
                HasSubstr("Can't Save file : path/file error or directory is read only.\nExtra info: "));
    EXPECT_EQ(messages[2], cannotWrite);
    EXPECT_TRUE(program->app().form().Dirty);
}

TEST_F(Window_Exit, TheNextStartStandsWhereTheLastOneEnded) {
    start();
    program->mainForm().moveForm({.left = 3000, .top = 1500, .width = 9000, .height = 9750});
    choose("MNU_Exit");
    program.reset();
    start();
    EXPECT_EQ(program->mainForm().formRectangle(),
              (Twips_Rect{.left = 3000, .top = 1500, .width = 9000, .height = 9750}));
}

TEST_F(Window_Exit, AFirstRunHasTheDesignSize) {
    make();
    const Twips_Rect design = program->mainForm().formRectangle();
    start();
    EXPECT_EQ(program->mainForm().formRectangle(), design);
    EXPECT_EQ(design.width, 6840);
}

TEST_F(Window_Exit, AStoredTopOfAbcGivesTheFallbackPlace) {
    put("settings.conf", "[MainWindow]\nTop=abc\nLeft=1\nWidth=9000\nHeight=9000\n");
    start();
    EXPECT_EQ(program->mainForm().formRectangle(),
              (Twips_Rect{.left = 3210, .top = 3075, .width = 6990, .height = 7380}));
}

TEST_F(Window_Exit, AMonitorThatWasntOpenedKeepsItsStoredPlace) {
    put("settings.conf", "[ModbusDialog]\nTop=1000\nLeft=2000\nWidth=12000\nHeight=6000\n");
    start();
    choose("MNU_Exit");
    const auto stored = [this](const char* key) {
        return program->app().settings.GetSetting("Zorvane", "ModbusDialog", key, "none");
    };
    EXPECT_EQ(Words({stored("Top"), stored("Left"), stored("Width"), stored("Height")}),
              (Words{"1000", "2000", "12000", "6000"}));
}

TEST_F(Window_Exit, AnExitInTheMiddleOfAWaitUnwindsIt) {
    start();
    bool wentOn = false;
    QTimer::singleShot(0, &program->window(), [&] { choose("MNU_Exit"); });
    program->edge().run([&] {
        program->mainForm().wait_until([] { return false; });
        wentOn = true;
    });
    EXPECT_TRUE(program->edge().ended());
    EXPECT_FALSE(wentOn);
}

TEST_F(Window_Exit, AFailureOutsideOfACommitKeepsACopyAndEndsTheProgram) {
    openAndEdit();
    program->app().document().Fields.redim(0);
    program->app().state.modelEmptied = false;
    QTest::keyClick(&upper().view(), Qt::Key_Up);
    EXPECT_THAT(messages,
                ElementsAre(Shown_Message{"Run-time error '9': Subscript out of range", 16, "Zorvane"}));
    EXPECT_EQ(program->mainForm().exitCode(), 1);
    std::vector<std::string> copies;
    for (const auto& entry : std::filesystem::directory_iterator(path("recovery")))
        copies.push_back(text("recovery/" + entry.path().filename().string()));
    EXPECT_THAT(copies, ElementsAre(testing::HasSubstr(";kept=run-time error\r\n")));
}

class Window_Recovery : public Window_Exit {};

TEST_F(Window_Recovery, TheTimerKeepsACopyOfAChangedDocument) {
    openAndEdit();
    EXPECT_TRUE(program->TMR_Copia().isActive());
    EXPECT_EQ(program->TMR_Copia().interval(), 500);
    ASSERT_TRUE(QMetaObject::invokeMethod(&program->TMR_Copia(), "timeout"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path("recovery")), {}), 1);
}

} // namespace
} // namespace zorvane::app
