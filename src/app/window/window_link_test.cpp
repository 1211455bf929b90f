// SPDX-License-Identifier: MIT
// The link's windows in the whole program, with the simulated controller as its port.

#include "app/form/port_store.h"
#include "app/window/testing/program_fixture.h"

#include <QComboBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>

namespace zorvane::app {
namespace {

using doubles::Program_Fixture;
using testing::IsEmpty;
using testing::StartsWith;

class Window_Line : public Program_Fixture {
  protected:
    Window_Line() {
        putModels();
        std::filesystem::copy_file(ZORVANE_SIM, appFolder() + "/zorvane-sim");
        make();
        std::filesystem::copy_file(appFolder() + "/EXAMPLE.KVRT207D", path("site.KVRT207D"));
        startWith("site.KVRT207D");
    }

    void use(const std::string& port) {
        Port_Settings settings;
        settings.port = port;
        settings.retries = 0;
        program->link().setPortSettings(settings);
    }
    bool transferOver() {
        return QTest::qWaitFor([this] { return !program->app().form().Upload_Active; }, 30000);
    }
    QPushButton& logButton() {
        return *program->window().StatusBar1().findChild<QPushButton*>(QStringLiteral("BOT_Log"));
    }
};

TEST_F(Window_Line, TheSimulatedControllerIsAPortThatGoesUpAndOnline) {
    use(simulatedPortName);
    choose("MNU_Upload");
    ASSERT_TRUE(transferOver());
    EXPECT_EQ(panel(4), "Ready");
    EXPECT_TRUE(QTest::qWaitFor([this] { return panel(2) == "Online"; }));
    EXPECT_TRUE(logButton().isHidden());
    choose("MNU_Disconnect");
    EXPECT_EQ(panel(2), "Offline");
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(Window_Line, TheSimulatedControllerFollowsTheDocument) {
    use(simulatedPortName);
    choose("MNU_Upload");
    ASSERT_TRUE(transferOver());
    choose("MNU_Disconnect");
    const std::int64_t first = program->line().simulator().processId();
    std::filesystem::copy_file(appFolder() + "/EXAMPLE.KVRT100", path("site.KVRT100"));
    answers = {Msgb_Code_No}; // what came up isn't kept
    chosenType = "KVRT100";
    open("site.KVRT100");
    choose("MNU_Upload");
    ASSERT_TRUE(transferOver());
    EXPECT_EQ(panel(4), "Ready");
    EXPECT_NE(program->line().simulator().processId(), first);
}

TEST_F(Window_Line, AfterAFailedUploadThePanelKeepsItsTextAndTheLogIsOffered) {
    use(path("gone"));
    EXPECT_TRUE(logButton().isHidden());
    choose("MNU_Upload");
    ASSERT_TRUE(transferOver());
    QApplication::processEvents();
    EXPECT_EQ(panel(4), "Error. The controller does not respond.");
    EXPECT_TRUE(logButton().isHidden()); // a port that isn't there has no exchanges
    program->app().form().Transfer_Errors.resize(1);
    program->mainForm().setFormEnabled(true);
    QApplication::processEvents();
    EXPECT_TRUE(logButton().isVisible());
    EXPECT_EQ(panel(4), "Error. The controller does not respond.");
    EXPECT_EQ(program->transferLog().status().Status(), nullptr); // nothing opens by itself
    QTest::mouseClick(&logButton(), Qt::LeftButton);
    ui::Frm_Status* form = program->transferLog().status().Status();
    ASSERT_NE(form, nullptr);
    EXPECT_THAT(form->findChild<QTextEdit*>(QStringLiteral("RtbStatus"))->toPlainText().toStdString(),
                StartsWith("Transfer Method: Upload to PC\n"));
    QTest::mouseClick(form->findChild<QPushButton*>(QStringLiteral("BtnCancel")), Qt::LeftButton);
    EXPECT_EQ(program->transferLog().status().Status(), nullptr);
    EXPECT_TRUE(program->window().formEnabled());
}

TEST_F(Window_Line, TheLogTakesNoInputDuringATransfer) {
    ui::Frm_Status& form = program->transferLog().status().PRO_Muestra_Status(true);
    use(simulatedPortName);
    choose("MNU_Upload");
    EXPECT_FALSE(form.isEnabled());
    form.close();
    form.reject();
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(program->window().formEnabled());
    ASSERT_TRUE(transferOver());
    EXPECT_TRUE(form.isEnabled());
    form.close();
    EXPECT_EQ(program->transferLog().status().Status(), nullptr);
}

TEST_F(Window_Line, TheReportOfATransferTakesNoInputWhileTheFormTakesNone) {
    program->app().form().Transfer_Errors.resize(1);
    ui::Frm_Status& form = program->transferLog().status().PRO_Muestra_Status(true);
    program->mainForm().setFormEnabled(false);
    QApplication::processEvents();
    EXPECT_FALSE(form.isEnabled()) << "its Connect and Retry would cut into a transfer";
    EXPECT_FALSE(logButton().isEnabled());
    program->mainForm().setFormEnabled(true);
    QApplication::processEvents();
    EXPECT_TRUE(form.isEnabled());
    EXPECT_TRUE(logButton().isEnabled());
}

TEST_F(Window_Line, ATemplatesPortKeysLeaveThePortAndTheUnitNumber) {
    put("app/PORTS.ZTP", text("app/KVRT207D.ZTP") +
                             "\r\n[PORT_CONFIGURATION]\r\nPORT=4\r\nSETTINGS=300,o,7,2\r\nRTU=99\r\n"
                             "RETRIES=17\r\n");
    std::filesystem::copy_file(path("site.KVRT207D"), path("site.PORTS"));
    Port_Settings own;
    own.port = "/tmp/relay";
    own.slave = 12;
    program->link().setPortSettings(own);
    chosenType = "PORTS";
    open("site.PORTS");
    EXPECT_EQ(program->app().document().File_Extension, "PORTS");
    EXPECT_EQ(program->link().portSettings(), own);
    EXPECT_EQ(program->app().form().Unit_Id, 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return panel(3) == "RTU: 12"; }, 2000));
}

TEST_F(Window_Line, ThePortDialogOpensWhileTheLinkIsOnline) {
    use(simulatedPortName);
    choose("MNU_Upload");
    ASSERT_TRUE(transferOver());
    EXPECT_TRUE(program->app().form().Online);
    QTimer::singleShot(0, [this] {
        ASSERT_NE(program->line().windows().portDialog(), nullptr);
        program->line().windows().portDialog()->reject();
    });
    choose("MNU_Port_Settings");
    EXPECT_TRUE(program->app().form().Online);
    EXPECT_TRUE(program->link().portOpen());
}

TEST_F(Window_Line, PortSettingsAreKeptForTheNextTime) {
    QTimer::singleShot(0, [this] {
        ui::Port_Dialog* dialog = program->line().windows().portDialog();
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QComboBox*>(QStringLiteral("CMB_Port"))->setEditText("/tmp/relay");
        QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("BOT_Ok")), Qt::LeftButton);
    });
    choose("MNU_Port_Settings");
    EXPECT_EQ(program->link().portSettings().port, "/tmp/relay");
    EXPECT_EQ(storedPortSettings(program->app().settings).port, "/tmp/relay");
}

TEST_F(Window_Line, TheTestReadsTheTemplatesFirstRegister) {
    use(simulatedPortName);
    QTimer::singleShot(0, [this] {
        ui::Port_Dialog* dialog = program->line().windows().portDialog();
        ASSERT_NE(dialog, nullptr);
        auto& verdict = *dialog->findChild<QPlainTextEdit*>(QStringLiteral("TXT_Verdict"));
        QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("BOT_Test")), Qt::LeftButton);
        EXPECT_TRUE(QTest::qWaitFor([&verdict] { return verdict.toPlainText() != "Testing..."; }));
        EXPECT_THAT(verdict.toPlainText().toStdString(), StartsWith("Good: Unit 1 answered after "));
        dialog->reject();
    });
    choose("MNU_Port_Settings");
}

TEST_F(Window_Line, TheMonitorsEntryIsGreyWhileItIsOnScreen) {
    choose("separador4");
    EXPECT_TRUE(program->link().MonitorVisible());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !enabled("separador4"); }, 2000));
    program->line().windows().monitor()->close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return enabled("separador4"); }, 2000));
}

} // namespace
} // namespace zorvane::app
