// SPDX-License-Identifier: MIT
// Transfers in the window, with the simulated controller at the other end of the line.

#include "app/window/testing/program_fixture.h"
#include "ui/forms/frm_debug.h"

#include <QPlainTextEdit>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QTcpServer>

#include <csignal>

namespace zorvane::app {
namespace {

using doubles::Shown_Message;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

using Words = std::vector<std::string>;

class Window_Transfer : public doubles::Program_Fixture {
  protected:
    Window_Transfer() {
        putModels();
        std::filesystem::copy_file(appFolder() + "/DEFAULT.KVRT207D", path("site7.KVRT207D"));
    }
    ~Window_Transfer() override {
        controller.terminate();
        controller.waitForFinished();
    }
    /// A controller with the values of the example, and the document with the factory's.
    void connectController(const QStringList& options = {}) {
        controller.start(ZORVANE_SIM, QStringList{"--template", named("app/KVRT207D.ZTP"), "--config",
                                                  named("app/EXAMPLE.KVRT207D"), "--pty", named("port")} +
                                          options);
        ASSERT_TRUE(controller.waitForReadyRead());
        startWith("site7.KVRT207D");
        usePort(path("port"));
    }
    void usePort(const std::string& port) {
        Port_Settings settings;
        settings.port = port;
        settings.line.baud = 115200;
        settings.retries = 0;
        settings.timeOutMs = 200;
        program->link().setPortSettings(settings);
    }
    [[nodiscard]] QString named(const char* name) const { return QString::fromStdString(path(name)); }
    [[nodiscard]] bool waitForPanel(int number, const std::string& words) {
        return QTest::qWaitFor([&] { return panel(number) == words; }, 20'000);
    }
    template <class Widget> Widget& part(const char* name) {
        return *program->window().findChild<Widget*>(name);
    }

    QProcess controller;
};

TEST_F(Window_Transfer, AnUploadFillsTheDocumentAndGoesOnline) {
    connectController();
    choose("MNU_Upload");
    EXPECT_FALSE(program->window().formEnabled());
    EXPECT_TRUE(part<QWidget>("Porcentaje").isVisible());
    ASSERT_TRUE(waitForPanel(2, "Online")) << panel(2) << ", " << panel(4);
    EXPECT_TRUE(program->window().formEnabled());
    EXPECT_FALSE(part<QWidget>("Porcentaje").isVisible());
    EXPECT_EQ(title(), "* site7.kvrt207d - Zorvane");
    selectField(3);
    EXPECT_EQ(lower().TextMatrix(1, 1), "1125");
    EXPECT_EQ(enabledOf({"MNU_Upload", "MNU_Download", "MNU_Disconnect", "MNU_Save"}),
              (Words{"MNU_Disconnect", "MNU_Save"}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return panel(5) == "Tx"; }));
    choose("MNU_Disconnect");
    EXPECT_EQ(panel(2), "Offline");
    EXPECT_EQ(panel(5), "");
    EXPECT_EQ(enabledOf({"MNU_Upload", "MNU_Download", "MNU_Disconnect"}),
              (Words{"MNU_Upload", "MNU_Download"}));
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(Window_Transfer, AnEditOnlineGoesToTheController) {
    connectController();
    choose("MNU_Upload");
    ASSERT_TRUE(waitForPanel(2, "Online"));
    selectField(3);
    type(1, 1, "1131");
    EXPECT_EQ(panel(4), "Write: 1131 @250 ...Completed");
    choose("MNU_Disconnect");
    type(1, 1, "1000");
    choose("MNU_Upload");
    ASSERT_TRUE(waitForPanel(2, "Online"));
    EXPECT_EQ(lower().TextMatrix(1, 1), "1131");
}

TEST_F(Window_Transfer, ADownloadWritesTheDocumentToTheControllerAndLeavesItsRecords) {
    connectController();
    selectField(3);
    type(1, 1, "1077");
    choose("MNU_Download");
    ASSERT_TRUE(waitForPanel(4, "Ready")) << panel(2) << ", " << panel(4);
    EXPECT_TRUE(program->window().formEnabled());
    EXPECT_THAT(program->app().form().Transfer_Errors, Not(IsEmpty()));
    EXPECT_EQ(enabledOf({"MNU_Upload", "MNU_Download", "MNU_Disconnect"}),
              (Words{"MNU_Upload", "MNU_Download"}));
    type(1, 1, "1000");
    choose("MNU_Upload");
    ASSERT_TRUE(waitForPanel(2, "Online"));
    EXPECT_EQ(lower().TextMatrix(1, 1), "1077");
}

TEST_F(Window_Transfer, CancelAsksAndEndsTheTransfer) {
    connectController({"--pace", "300"});
    choose("MNU_Upload");
    answers = {Msgb_Code_Yes};
    part<QPushButton>("BOT_Cancel").click();
    ASSERT_TRUE(waitForPanel(4, "Upload cancelled..."));
    EXPECT_THAT(messages, ElementsAre(Shown_Message{
                              "The transfer is not complete. Do you want to abort anyway?", 36, "Zorvane"}));
    EXPECT_EQ(panel(2), "Offline");
    EXPECT_TRUE(program->window().formEnabled());
    EXPECT_FALSE(part<QWidget>("Porcentaje").isVisible());
    EXPECT_EQ(title(), "site7.kvrt207d - Zorvane");
}

TEST_F(Window_Transfer, ASilentControllerLeavesTheProgressFormWithItsOk) {
    connectController({"--fault", "silent"});
    choose("MNU_Upload");
    ASSERT_TRUE(waitForPanel(4, "Error. The controller does not respond."));
    EXPECT_EQ(panel(2), "Offline");
    EXPECT_TRUE(part<QPushButton>("Bot_Ok").isVisible());
    EXPECT_EQ(part<QProgressBar>("Progress_Bar").value(), 0);
    part<QPushButton>("Bot_Ok").click();
    EXPECT_FALSE(part<QWidget>("Porcentaje").isVisible());
}

TEST_F(Window_Transfer, ALostControllerIsToldUntilItIsBack) {
    connectController();
    choose("MNU_Upload");
    ASSERT_TRUE(waitForPanel(2, "Online"));
    const auto pid = static_cast<pid_t>(controller.processId());
    ::kill(pid, SIGSTOP);
    ASSERT_TRUE(waitForPanel(2, "Retrying"));
    EXPECT_EQ(panel(4), "The controller does not respond...");
    EXPECT_TRUE(part<QWidget>("LostCom").isVisible());
    ::kill(pid, SIGCONT);
    ASSERT_TRUE(waitForPanel(2, "Online"));
    EXPECT_EQ(panel(4), "");
    EXPECT_FALSE(part<QWidget>("LostCom").isVisible());
}

TEST_F(Window_Transfer, APortThatIsNotThereIsToldInWords) {
    startWith("site7.KVRT207D");
    usePort("/nonexistent/port");
    choose("MNU_Upload");
    ASSERT_TRUE(waitForPanel(4, "Error. The controller does not respond."));
    ASSERT_THAT(messages, SizeIs(1));
    EXPECT_EQ(messages[0].style, 16);
    EXPECT_THAT(messages[0].text, HasSubstr("The serial port /nonexistent/port can't be opened."));
}

TEST_F(Window_Transfer, ADownloadOverARefusedConnectionSendsNothingAndEndsAsBeforeASilentController) {
    startWith("site7.KVRT207D");
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    const std::string place = "127.0.0.1:" + std::to_string(server.serverPort());
    server.close();
    usePort("tcp:" + place);
    choose("MNU_Download");
    ASSERT_TRUE(waitForPanel(4, "Error. The controller does not respond."));
    EXPECT_EQ(panel(2), "Offline");
    EXPECT_TRUE(part<QPushButton>("Bot_Ok").isVisible());
    ASSERT_THAT(messages, SizeIs(1));
    EXPECT_EQ(messages[0].style, 16);
    EXPECT_THAT(messages[0].text, HasSubstr("No connection to " + place + " (Modbus TCP)."));
    const Download_Result& result = program->app().form().Last_Download;
    EXPECT_GT(result.values, 0);
    EXPECT_EQ(result.notReached(), result.values) << "not one of them was tried";
}

TEST_F(Window_Transfer, TheLinesOfATransferGoToTheTestForm) {
    connectController();
    choose("MNU_Upload");
    ASSERT_TRUE(waitForPanel(2, "Online"));
    const std::string lines = program->mainForm().FrmDebug().EDT_Prueba().toPlainText().toStdString();
    EXPECT_THAT(lines, testing::StartsWith("Tx: 01 03"));
    EXPECT_THAT(lines, testing::EndsWith("\n")) << "the last line, too, has its end";
}

} // namespace
} // namespace zorvane::app
