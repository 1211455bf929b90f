// SPDX-License-Identifier: MIT
#include "comm/main_form/testing/comm_bench.h"
#include "ui/forms/transfer_status_window.h"
#include "ui/main/status_bar.h"
#include "ui/testing/control_walk.h"
#include "ui/testing/twips_rect.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

using doubles::twips;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// The form after an upload with one failed block.
struct Frm_Status_Test : ::testing::Test, doubles::Comm_Bench {
    Frm_Status_Test() {
        link.parameters = {"7", "9600,E,8,1", "3", "2", "500", "0"};
        document.File_Folder = folder.path().toStdString() + "/";
        form.Transfer_Errors = {{"100", "109", "FC 3", "", "", "No response", 1}};
        Info_Rec_Errors exchange;
        exchange.End_Address = "Tx: 07 03 00 64 00 0A";
        exchange.Start_Address = "Rx: no answer";
        form.Transfer_Log = {exchange};
    }

    Frm_Status& open(bool isUpload = true) {
        mainForm.onUnloadFrmStatus = [this] { status.unload(); };
        return status.PRO_Muestra_Status(isUpload);
    }
    template <class Widget> Widget& at(const char* name) {
        auto* widget = status.Status()->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    void press(const char* name) { QTest::mouseClick(&at<QPushButton>(name), Qt::LeftButton); }

    /// Save As to that name with that filter, from 1.
    void saveAs(const QString& name, int filter) {
        status.Status()->OpenFile.FilterIndex = filter;
        status.Status()->OpenFile.run = [name](QFileDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Save Modbus Monitor log as...");
            EXPECT_EQ(dialog.nameFilters(), (QStringList{"Modbus Monitor Log file (*.log)",
                                                         "Modbus Monitor Log RTF file (*.rtf)"}));
            dialog.show();
            auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
            edit->setText(name);
            QTest::keyClick(edit, Qt::Key_Return);
            return dialog.result() == QDialog::Accepted;
        };
        press("BtnSaveAs");
    }
    std::string bytes(const QString& name) const {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(no file)";
    }

    QTemporaryDir folder;
    QStringList asked;
    int answer = 6;
    QString printed;
    Transfer_Status_Window status{
        comm,
        nullptr,
        {[this](const QString& prompt, int style, const QString& title) {
             asked += QStringLiteral("%1/%2/%3").arg(prompt).arg(style).arg(title);
             return answer;
         },
         [this](QTextEdit& text, const QString& name) { printed = name + "|" + text.toPlainText().left(15); },
         {}}};
    static constexpr const char* report =
        "Transfer Method: Upload to PC\r\nTarget Slave Number: 7\r\nPort: Com 3\r\n"
        "Baud: 9600 Parity: Event Format: 8,1 stop\r\n"
        "Control RTS/TX Delay(ms): 0\r\nTimeOut(ms): 500\r\nRetries: 2\r\n\r\n"
        "Retry: 1 (2)\r\nRead Holding Register:: FC 3\r\nResponse: No response\r\n"
        "Start Address: 100 End Address: 109\r\n\r\n";
    static constexpr const char* monitor =
        "----------------------------------------------------------\r\n"
        "MODBUS MONITOR DATA\r\nTx: 07 03 00 64 00 0A\r\nRx: no answer\r\n";
};

TEST_F(Frm_Status_Test, IsUsableByKeyboardAndScreenReader) {
    open();
    EXPECT_EQ(doubles::controlFaults(*status.Status()), std::vector<std::string>{});
    EXPECT_EQ(doubles::keyClashes(*status.Status()), std::vector<std::string>{"Alt+C: BtnConnect BtnCancel"})
        << "both captions are required; Esc cancels";
}

TEST_F(Frm_Status_Test, TextsAndTips) {
    Frm_Status& shown = open();
    EXPECT_EQ(shown.objectName(), "FrmStatus");
    EXPECT_EQ(shown.windowTitle(), "Zorvane Transfer Status");
    EXPECT_FALSE(shown.isModal());
    EXPECT_TRUE(shown.isVisible());
    EXPECT_EQ(at<QLabel>("lblDialogMessage").text(),
              "There were errors and/or warnings during the transfer. It is recommended that you review the "
              "communications log.");
    const auto button = [this](const char* name) {
        return at<QPushButton>(name).text().toStdString() + "/" +
               at<QPushButton>(name).toolTip().toStdString();
    };
    EXPECT_EQ(button("BtnConnect"), "&Connect/You want to continue communication");
    EXPECT_EQ(button("BtnRetry"), "&Retry/Retry download or upload");
    EXPECT_EQ(button("BtnSaveAs"), "&Save As.../Save file in txt format or rtf format");
    EXPECT_EQ(button("btnPrint"), "&Print Log.../Print all datas or selected text");
    EXPECT_EQ(button("BtnCancel"), "&Cancel/cancel and close dialog");
    EXPECT_EQ(at<QTextEdit>("RtbStatus").accessibleName(), "Report of the transfer");
}

TEST_F(Frm_Status_Test, LayoutInTwips) {
    Frm_Status& shown = open();
    EXPECT_EQ(at<QTextEdit>("RtbStatus").geometry(), twips(90, 750, 6135, 3735));
    EXPECT_FALSE(at<QTextEdit>("rtbSave").isVisible());
    const QPushButton* before = nullptr;
    for (const char* name : {"BtnConnect", "BtnRetry", "BtnSaveAs", "btnPrint", "BtnCancel"}) {
        const QPushButton& button = at<QPushButton>(name);
        if (before != nullptr) {
            EXPECT_NEAR(button.x(), before->x() + before->width() + 40, 1) << name; // 600 twips
            EXPECT_EQ(button.y(), before->y());
        }
        EXPECT_LE(button.geometry().right(), shown.width());
        before = &button;
    }
    EXPECT_EQ(at<QPushButton>("BtnConnect").x(), 6);
}

TEST_F(Frm_Status_Test, TheWindowShowsTheReportAloneWhileTheFileHasTheMonitorDataToo) {
    open();
    QString text = at<QTextEdit>("RtbStatus").toPlainText();
    EXPECT_EQ(text.replace("\n", "\r\n").toStdString(), report);
    saveAs(folder.filePath("site7.log"), 1);
    EXPECT_EQ(bytes("site7.log"), std::string(report) + monitor);
    EXPECT_TRUE(asked.isEmpty());
}

/// As in "1 000", which a spreadsheet writes with one.
TEST_F(Frm_Status_Test, ABlankThatDoesntBreakIsSavedAsItself) {
    form.Transfer_Errors = {{"Tx: 07 06", "Rx: no answer", "FC-6", "100",
                             "1\xA0"
                             "000 \x80",
                             "No Response", 1}};
    open(false);
    saveAs(folder.filePath("site7.log"), 1);
    EXPECT_THAT(bytes("site7.log"), HasSubstr("Register: 100 Value: 1\xA0"
                                              "000 \x80\r\nResponse: No Response\r\n"));
}

TEST_F(Frm_Status_Test, SavesAsRtfThatAnotherProgramReads) {
    open();
    saveAs(folder.filePath("site7.rtf"), 2);
    EXPECT_EQ(bytes("site7.rtf").substr(0, 6), "{\\rtf1");
    const QString unrtf = QStandardPaths::findExecutable("unrtf");
    if (unrtf.isEmpty()) GTEST_SKIP() << "unrtf isn't installed";
    QProcess reader;
    reader.start(unrtf, {"--text", "--quiet", folder.filePath("site7.rtf")});
    ASSERT_TRUE(reader.waitForFinished());
    const std::string read = reader.readAllStandardOutput().toStdString();
    EXPECT_THAT(read, HasSubstr("Transfer Method: Upload to PC\nTarget Slave Number: 7\nPort: Com 3\n"));
    EXPECT_THAT(read, HasSubstr("MODBUS MONITOR DATA\nTx: 07 03 00 64 00 0A\nRx: no answer\n"));
}

TEST_F(Frm_Status_Test, AFileThatExistsIsAskedFor) {
    open();
    const QString path = folder.filePath("site7.log");
    saveAs(path, 1);
    status.Status()->OpenFile.FilterIndex = 1;
    QFile::remove(path);
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.close();
    answer = 7;
    saveAs(path, 1);
    EXPECT_EQ(asked, QStringList{"File " + path + " exist overwrite it?/36/Zorvane"});
    EXPECT_EQ(bytes("site7.log"), "");
    answer = 6;
    saveAs(path, 1);
    EXPECT_EQ(bytes("site7.log"), std::string(report) + monitor);
}

TEST_F(Frm_Status_Test, ANameWithoutAnExtensionGetsThatOfTheFilter) {
    open();
    saveAs(folder.filePath("plain"), 1);
    EXPECT_EQ(bytes("plain.log"), std::string(report) + monitor);
}

TEST_F(Frm_Status_Test, ACancelledDialogAndAFileThatCantBeSavedSayNothing) {
    open();
    status.Status()->OpenFile.run = [](QFileDialog&) { return false; };
    press("BtnSaveAs");
    saveAs(folder.filePath("missing/site7.log"), 1);
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_TRUE(status.Status()->isVisible());
}

TEST_F(Frm_Status_Test, ConnectGoesOnline) {
    document.Always_Block_Count = 1;
    open();
    press("BtnConnect");
    EXPECT_EQ(status.Status(), nullptr);
    EXPECT_TRUE(form.Online);
    EXPECT_THAT(form.Transfer_Errors, IsEmpty());
    EXPECT_THAT(journal.lines(), Contains("link SetScanMode ALWAYS"));
}

TEST_F(Frm_Status_Test, ConnectOnATemplateWithoutAlwaysBlocksClosesTheFormAndStaysOffline) {
    open();
    press("BtnConnect");
    EXPECT_EQ(status.Status(), nullptr);
    EXPECT_FALSE(form.Online);
    EXPECT_THAT(journal.lines(), Not(Contains("link SetScanMode ALWAYS")));
    EXPECT_EQ(form.Transfer_Errors.size(), 1U);
}

TEST_F(Frm_Status_Test, RetryRunsTheSameTransferAgain) {
    addScanBlock(100, 109);
    open(true);
    press("BtnRetry");
    EXPECT_EQ(status.Status(), nullptr);
    EXPECT_THAT(journal.lines(), Contains("panel 2 = \"Upload\""));
    open(false);
    press("BtnRetry");
    EXPECT_THAT(journal.lines(), Contains("panel 2 = \"Download\""));
}

TEST_F(Frm_Status_Test, CancelAndTheWindowsBoxLeaveTheRecordsAndEnableTheMainForm) {
    mainForm.setFormEnabled(false);
    open();
    press("BtnCancel");
    EXPECT_EQ(status.Status(), nullptr);
    EXPECT_TRUE(mainForm.formEnabled());
    mainForm.setFormEnabled(false);
    Frm_Status& again = open();
    again.close();
    EXPECT_EQ(status.Status(), nullptr);
    EXPECT_TRUE(mainForm.formEnabled());
    open();
    QTest::keyClick(status.Status(), Qt::Key_Escape);
    EXPECT_EQ(status.Status(), nullptr);
    EXPECT_EQ(form.Transfer_Errors.size(), 1U);
}

TEST_F(Frm_Status_Test, ASecondCallReplacesTheForm) {
    open(true);
    open(false);
    EXPECT_TRUE(at<QTextEdit>("RtbStatus").toPlainText().startsWith("Transfer Method: Download to Device\n"));
    int forms = 0;
    for (const QWidget* widget : QApplication::topLevelWidgets())
        forms += widget->objectName() == "FrmStatus" && widget->isVisible() ? 1 : 0;
    EXPECT_EQ(forms, 1);
}

TEST_F(Frm_Status_Test, PrintHandsOverTheReportAndTheFilesName) {
    open();
    saveAs(folder.filePath("site7.log"), 1);
    press("btnPrint");
    EXPECT_EQ(printed, folder.filePath("site7.log") + "|Transfer Method");
}

/// The form alone: what it tells its owner.
TEST(Frm_Status_Events_Test, EachWayOutInItsOrder) {
    std::vector<std::string> told;
    const auto made = [&told](bool isUpload, std::int32_t always) {
        told.clear();
        const auto note = [&told](const char* name) {
            return [&told, name](std::int16_t& upload) {
                told.push_back(name + (" " + std::to_string(upload)));
            };
        };
        return std::make_unique<Frm_Status>(
            Frm_Status_Services{{isUpload ? "Upload to PC" : " download to DEVICE ", {}, {}, {}},
                                [always] { return always; },
                                {},
                                {},
                                {}},
            Frm_Status_Events{note("Connect"), note("Retry"), [&told] { told.push_back("UnloadMe"); },
                              note("CancelProg")},
            nullptr);
    };
    const auto pressed = [&](bool isUpload, std::int32_t always, const char* button) {
        const auto form = made(isUpload, always);
        form->show();
        QTest::mouseClick(form->findChild<QPushButton*>(QString::fromLatin1(button)), Qt::LeftButton);
        return told;
    };
    EXPECT_THAT(pressed(true, 1, "BtnConnect"), ElementsAre("Connect 1"));
    EXPECT_THAT(pressed(false, 1, "BtnConnect"), ElementsAre("Connect 0"));
    EXPECT_THAT(pressed(true, 0, "BtnConnect"), ElementsAre("CancelProg 1", "CancelProg 1", "UnloadMe"));
    EXPECT_THAT(pressed(true, 1, "BtnRetry"), ElementsAre("Retry 1"));
    EXPECT_THAT(pressed(false, 1, "BtnCancel"), ElementsAre("CancelProg 0"));
    const auto form = made(true, 1);
    form->show();
    form->close();
    EXPECT_THAT(told, ElementsAre("CancelProg 1", "CancelProg 1", "UnloadMe"));
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(form->findChild<QPushButton*>("btnPrint")->isEnabled()); // nothing to print with
}

TEST(TransferLogOffered, WhenATransferWithRecordsIsOver) {
    Main_Form_State form;
    EXPECT_FALSE(transferLogOffered(form));
    form.Transfer_Errors.resize(1);
    EXPECT_TRUE(transferLogOffered(form));
    form.Upload_Active = true;
    EXPECT_FALSE(transferLogOffered(form));
    form.Upload_Active = false;
    form.Download_Active = true;
    EXPECT_FALSE(transferLogOffered(form));
}

TEST(StatusBarLog, TheButtonStandsInTheMessagePanelAndLeavesItsText) {
    Status_Bar bar(nullptr);
    bar.resize(800, bar.height());
    bar.show();
    bar.setText(4, "Ready");
    auto& button = *bar.findChild<QPushButton*>("BOT_Log");
    EXPECT_FALSE(button.isVisible());
    const QRect before = bar.findChild<QWidget*>("StatusBar1_4")->geometry();
    int chosen = 0;
    bar.logChosen = [&chosen] { ++chosen; };
    bar.setLogOffered(true);
    EXPECT_TRUE(button.isVisible());
    EXPECT_EQ(button.text(), "&Log...");
    EXPECT_EQ(button.toolTip(), "Show the log of the last transfer");
    EXPECT_TRUE(before.contains(button.geometry().adjusted(0, 0, -1, 0)));
    EXPECT_LT(bar.findChild<QWidget*>("StatusBar1_4")->geometry().right(), button.geometry().left());
    EXPECT_EQ(bar.text(4), "Ready");
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(chosen, 1);
    bar.setLogOffered(false);
    EXPECT_FALSE(button.isVisible());
    EXPECT_EQ(bar.findChild<QWidget*>("StatusBar1_4")->geometry(), before);
}

TEST(StatusBarLog, InAWindowTooNarrowForMessagesItCoversNoTextOfTheLink) {
    Status_Bar bar(nullptr);
    bar.resize(456, bar.height()); // as designed
    bar.setPanelWidths({1852, 1587, 1852, 0, 661, 661, 450});
    bar.show();
    bar.setLogOffered(true);
    const QRect button = bar.findChild<QPushButton*>("BOT_Log")->geometry();
    EXPECT_FALSE(button.intersects(bar.findChild<QWidget*>("StatusBar1_3")->geometry()));
    EXPECT_TRUE(bar.rect().contains(button));
}

} // namespace
} // namespace zorvane::ui
