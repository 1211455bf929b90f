// SPDX-License-Identifier: MIT
// Previews, page set-up, printing and export in the whole program, driven from inside.

#include "app/window/report_windows.h"
#include "app/window/testing/program_fixture.h"
#include "template/testing/file_size_limit_linux.h"
#include "ui/report/page_setup_dialog.h"
#include "ui/report/preview_window.h"

#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>

namespace zorvane::app {
namespace {

using doubles::Program_Fixture;
using doubles::Shown_Message;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class Window_Reports : public Program_Fixture {
  protected:
    Window_Reports() { putModels(); }

    void startReports() {
        startWith("app/EXAMPLE.KVRT100");
        reports().prompts.yesNo = [this](const QString& text) {
            questions.push_back(text.toStdString());
            return yes;
        };
        reports().prompts.exportFile = [this](QFileDialog& dialog) {
            if (exportFile.empty()) return false;
            dialog.selectNameFilter(dialog.nameFilters().at(exportIndex - 1));
            dialog.selectFile(QString::fromStdString(exportFile));
            return true;
        };
    }
    [[nodiscard]] Report_Windows& reports() const { return program->reports(); }
    [[nodiscard]] Print_Commands& commands() const { return reports().commands(); }
    [[nodiscard]] ui::Preview_Window* allWindow() const { return reports().window(commands().PrintAll()); }
    [[nodiscard]] ui::Preview_Window* oneWindow() const { return reports().window(commands().PrintGrid()); }
    static void click(ui::Preview_Window& window, int tool) {
        window.findChild<QToolButton*>(QStringLiteral("Tool%1").arg(tool))->click();
        QApplication::processEvents();
    }
    void setMargins(double inches) {
        reports().prompts.pageSetup = [inches](ui::Page_Setup_Dialog& dialog) {
            for (auto* box : dialog.findChildren<QDoubleSpinBox*>())
                box->setValue(box->suffix() == " mm" ? inches * 25.4 : inches);
            return true;
        };
    }
    [[nodiscard]] std::string stored(const char* section, const char* key) const {
        return program->app().settings.GetSetting("Zorvane", section, key, "");
    }
    void exportTo(const std::string& file, int index) {
        exportFile = path(file);
        exportIndex = index;
        click(*allWindow(), 2);
    }
    /// A document whose report is so many rows long.
    void makeLong(std::int16_t rows) const {
        Declara_Zorvane& document = program->app().document();
        document.Field_Count = 1;
        Field_Rec& field = document.Fields(1);
        field.Rows = rows;
        std::vector<Cell_Rec> columns;
        for (std::int32_t column = 1; column <= field.Columns; ++column)
            columns.push_back(field.Cells(0, column));
        field.Cells.redim(rows, field.Columns);
        for (std::int32_t column = 1; column <= field.Columns; ++column)
            field.Cells(0, column) = columns.at(static_cast<std::size_t>(column) - 1);
    }

    std::vector<std::string> questions;
    bool yes = true;
    std::string exportFile; ///< empty for Cancel
    int exportIndex = 1;
};

TEST_F(Window_Reports, EntriesFollowTheDocumentAndTheOpenPreviews) {
    start();
    EXPECT_TRUE(enabled("MNU_PageSetup"));
    EXPECT_FALSE(enabled("MNU_Print"));
    EXPECT_FALSE(enabled("MNU_PrintPage"));
    open("app/EXAMPLE.KVRT100");
    EXPECT_THAT(enabledOf({"MNU_Print", "MNU_PrintPage", "MNU_PrintAll"}),
                ElementsAre("MNU_Print", "MNU_PrintPage", "MNU_PrintAll"));
    choose("MNU_PrintAll");
    EXPECT_THAT(enabledOf({"MNU_Print", "MNU_PrintPage", "MNU_PrintAll"}),
                ElementsAre("MNU_Print", "MNU_PrintPage"));
    choose("MNU_PrintPage");
    EXPECT_THAT(enabledOf({"MNU_Print", "MNU_PrintPage", "MNU_PrintAll"}), IsEmpty());
    allWindow()->close();
    EXPECT_THAT(enabledOf({"MNU_Print", "MNU_PrintPage", "MNU_PrintAll"}),
                ElementsAre("MNU_Print", "MNU_PrintAll"));
    oneWindow()->close();
    EXPECT_THAT(enabledOf({"MNU_Print", "MNU_PrintPage", "MNU_PrintAll"}),
                ElementsAre("MNU_Print", "MNU_PrintPage", "MNU_PrintAll"));
    EXPECT_EQ(commands().PrintAll(), nullptr);
    EXPECT_EQ(commands().PrintGrid(), nullptr);
}

TEST_F(Window_Reports, AnotherDocumentLeavesTheEntryOfAnOpenPreviewDisabled) {
    startReports();
    choose("MNU_PrintPage");
    open("app/EXAMPLE.KVRT100");
    ASSERT_NE(commands().PrintGrid(), nullptr);
    EXPECT_TRUE(enabled("MNU_Print"));
    EXPECT_FALSE(enabled("MNU_PrintPage"));
    oneWindow()->close();
    EXPECT_TRUE(enabled("MNU_PrintPage"));
}

TEST_F(Window_Reports, ThePreviewShowsAllFieldsAsAWholePage) {
    startReports();
    choose("MNU_PrintAll");
    ui::Preview_Window& window = *allWindow();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), "Preview Print All Pages");
    EXPECT_EQ(window.view().zoom(), ui::zoomWholePage);
    EXPECT_EQ(window.view().pageCount(), 2);
    EXPECT_EQ(window.place().width, 6990);
    EXPECT_EQ(commands().PrintAll()->Pages.document.contents.size(), 6U);
}

TEST_F(Window_Reports, ThePreviewOfTheSelectedField) {
    startReports();
    selectField(2);
    choose("MNU_PrintPage");
    EXPECT_EQ(oneWindow()->windowTitle(), "Preview Print Page");
    EXPECT_EQ(commands().PrintGrid()->Pages.document.contents.front().title, "Channel Setup");
}

TEST_F(Window_Reports, NoRowSelectedPrintsNoField) {
    startReports();
    upper().setRow(0);
    choose("MNU_PrintPage");
    EXPECT_EQ(commands().PrintGrid()->Opcion, 0);
    EXPECT_EQ(commands().PrintGrid()->Pages.document.contents.front().title, "");
}

TEST_F(Window_Reports, AClosedPreviewLeavesItsPlaceToTheNextOne) {
    startReports();
    choose("MNU_PrintAll");
    allWindow()->setPlace({1500, 3000, 9000, 12000});
    QApplication::processEvents();
    allWindow()->close();
    EXPECT_EQ(stored("PrintDialog", "Left"), "1500");
    EXPECT_EQ(stored("PrintDialog", "Top"), "3000");
    EXPECT_EQ(stored("PrintDialog", "Width"), "9000");
    EXPECT_EQ(stored("PrintDialog", "Height"), "12000");
    choose("MNU_PrintPage");
    EXPECT_EQ(oneWindow()->place(), (Twips_Rect{1500, 3000, 9000, 12000}));
}

TEST_F(Window_Reports, PageSetUpWithoutAPreviewStoresNothing) {
    startReports();
    setMargins(0.5);
    choose("MNU_PageSetup");
    EXPECT_EQ(commands().Report_Setup().PageSettings.LeftMargin, 720);
    for (const char* key : {"PrintLeftMargin", "PrintRigthMargin", "PrinttopMargin", "PrintbottonMargin"})
        EXPECT_EQ(stored("Settings", key), "") << key;
}

TEST_F(Window_Reports, PageSetUpWithAPreviewStoresTheMarginsAndRestartsIt) {
    startReports();
    choose("MNU_PrintAll");
    setMargins(0.5);
    click(*allWindow(), 1);
    for (const char* key : {"PrintLeftMargin", "PrintRigthMargin", "PrinttopMargin", "PrintbottonMargin"})
        EXPECT_EQ(stored("Settings", key), "720") << key;
    EXPECT_EQ(commands().PrintAll()->PageSettings.LeftMargin, 720);
    EXPECT_EQ(commands().PrintAll()->PrintWidth, 12240 - 1440);
}

TEST_F(Window_Reports, PageSetUpDoesNotRestartThePreviewOfAnEmptyDocument) {
    startReports();
    program->app().document().Field_Count = 0;
    choose("MNU_PrintAll");
    EXPECT_EQ(allWindow()->view().pageCount(), 0);
    setMargins(0.5);
    choose("MNU_PageSetup");
    EXPECT_EQ(stored("Settings", "PrintLeftMargin"), "");
    EXPECT_EQ(commands().PrintAll()->PageSettings.LeftMargin, 1440);
}

TEST_F(Window_Reports, StoredMarginsAreThoseOfTheNextStart) {
    make();
    program->app().settings.SaveSetting("Zorvane", "Settings", "PrintLeftMargin", "1000");
    program->app().settings.SaveSetting("Zorvane", "Settings", "PrinttopMargin", "one inch");
    start();
    EXPECT_EQ(commands().Report_Setup().PageSettings.LeftMargin, 1000);
    EXPECT_EQ(commands().Report_Setup().PageSettings.TopMargin, 0);
    EXPECT_EQ(commands().Report_Setup().PageSettings.BottomMargin, 1440);
}

TEST_F(Window_Reports, ANewPaperReachesThePreview) {
    startReports();
    choose("MNU_PrintAll");
    reports().prompts.pageSetup = [](ui::Page_Setup_Dialog& dialog) {
        dialog.findChild<QWidget*>("Landscape")->setProperty("checked", true);
        return true;
    };
    click(*allWindow(), 1);
    EXPECT_EQ(commands().PrintAll()->Pages.document.paperWidth, 15840);
    EXPECT_EQ(commands().PrintAll()->PrintWidth, 15840 - 2880);
}

TEST_F(Window_Reports, RefreshShowsNewValuesOnThePageShown) {
    startReports();
    choose("MNU_PrintAll");
    allWindow()->view().setPage(2);
    program->app().document().Fields(1).Description = "Renamed";
    click(*allWindow(), 3);
    EXPECT_EQ(allWindow()->view().page(), 2);
    EXPECT_EQ(commands().PrintAll()->Pages.document.contents.front().title, "Renamed");
}

TEST_F(Window_Reports, AFontSizeOfTheWindowReachesThePreviews) {
    startReports();
    choose("MNU_PrintAll");
    program->mainForm().restartPreviews(12);
    EXPECT_EQ(commands().PrintAll()->FontSize, 12);
    EXPECT_EQ(stored("Settings", "FontSize"), "");
}

TEST_F(Window_Reports, ThePreviewsOwnFontDialogChangesOnlyThatPreview) {
    startReports();
    choose("MNU_PrintAll");
    choose("MNU_PrintPage");
    click(*allWindow(), 4);
    const QPointer<QDialog> dialog = allWindow()->findChild<QDialog*>("FontDialog");
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(dialog->isModal());
    click(*allWindow(), 4);
    EXPECT_EQ(allWindow()->findChildren<QDialog*>("FontDialog").size(), 1);
    dialog->findChild<QListWidget*>("List1")->setCurrentRow(6);
    dialog->findChild<QPushButton*>("OKButton")->click();
    EXPECT_FALSE(dialog && dialog->isVisible());
    EXPECT_EQ(commands().PrintAll()->FontSize, 12);
    EXPECT_EQ(commands().PrintGrid()->FontSize, 8.25);
    EXPECT_EQ(stored("Settings", "FontSize"), "");
}

TEST_F(Window_Reports, APreviewTakesItsFontDialogAlong) {
    startReports();
    choose("MNU_PrintAll");
    click(*allWindow(), 4);
    const QPointer<QDialog> dialog = allWindow()->findChild<QDialog*>("FontDialog");
    ASSERT_TRUE(dialog && dialog->isVisible());
    allWindow()->close();
    EXPECT_FALSE(dialog && dialog->isVisible());
}

TEST_F(Window_Reports, ClosingTheDocumentClosesThePreviews) {
    startReports();
    choose("MNU_PrintAll");
    const QPointer<ui::Preview_Window> window = allWindow();
    choose("MNU_Close");
    EXPECT_EQ(commands().PrintAll(), nullptr);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window);
    EXPECT_FALSE(enabled("MNU_Print"));
}

TEST_F(Window_Reports, ExitStoresThePlaceOfAnOpenPreview) {
    startReports();
    choose("MNU_PrintAll");
    allWindow()->setPlace({1500, 3000, 9000, 12000});
    QApplication::processEvents();
    choose("MNU_Exit");
    EXPECT_EQ(stored("PrintDialog", "Width"), "9000");
    EXPECT_EQ(commands().PrintAll(), nullptr);
    EXPECT_TRUE(program->edge().ended());
}

TEST_F(Window_Reports, GridInTheReport) {
    startReports();
    choose("MNU_Grid");
    EXPECT_EQ(stored("Settings", "Grid"), "1");
    choose("MNU_PrintPage");
    EXPECT_TRUE(commands().PrintGrid()->HaveGrid);
    choose("MNU_Grid");
    EXPECT_EQ(stored("Settings", "Grid"), "0");
}

TEST_F(Window_Reports, AllSixFormatsThroughTheFileDialog) {
    startReports();
    choose("MNU_PrintAll");
    exportTo("a.xls", 1);
    EXPECT_THAT(text("a.xls"), StartsWith("\xD0\xCF\x11\xE0"));
    exportTo("a.pdf", 2);
    EXPECT_THAT(text("a.pdf"), StartsWith("%PDF-"));
    exportTo("a.rtf", 3);
    EXPECT_THAT(text("a.rtf"), StartsWith("{\\rtf1"));
    exportTo("a.txt", 4);
    EXPECT_THAT(text("a.txt"), StartsWith("Zorvane\r\n"));
    exportTo("a.tif", 5);
    EXPECT_THAT(text("a.tif"), StartsWith("II*"));
    exportTo("a.html", 6);
    EXPECT_THAT(text("a.html"), StartsWith("<!DOCTYPE html>"));
    EXPECT_THAT(questions, IsEmpty());
}

TEST_F(Window_Reports, ANameWithoutAnExtensionGetsThatOfItsType) {
    startReports();
    choose("MNU_PrintAll");
    exportTo("b", 2);
    EXPECT_THAT(text("b.pdf"), StartsWith("%PDF-"));
    exportTo("b", 4);
    EXPECT_THAT(text("b.txt"), StartsWith("Zorvane\r\n"));
}

TEST_F(Window_Reports, AnExistingFileIsAskedAbout) {
    startReports();
    choose("MNU_PrintAll");
    put("a.txt", "old");
    yes = false;
    exportTo("a.txt", 4);
    EXPECT_THAT(questions, ElementsAre("File " + path("a.txt") + " exist overwrite it?"));
    EXPECT_EQ(text("a.txt"), "old");
    yes = true;
    exportTo("a.txt", 4);
    EXPECT_THAT(text("a.txt"), HasSubstr("Description: Output Setup"));
}

TEST_F(Window_Reports, AFileInOtherLettersIsTheOneOverwritten) {
    startReports();
    choose("MNU_PrintAll");
    put("REPORT.TXT", "old");
    exportTo("report.txt", 4);
    EXPECT_THAT(questions, ElementsAre("File " + path("report.txt") + " exist overwrite it?"));
    EXPECT_THAT(text("REPORT.TXT"), HasSubstr("Description: Output Setup"));
    EXPECT_FALSE(std::filesystem::exists(path("report.txt")));
}

TEST_F(Window_Reports, ACancelledOrImpossibleExportSaysNothing) {
    startReports();
    choose("MNU_PrintAll");
    click(*allWindow(), 2);
    exportTo("no such folder/a.txt", 4);
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_THAT(questions, IsEmpty());
    EXPECT_FALSE(reports().busy().active());
}

TEST_F(Window_Reports, AnExportThatFailsKeepsTheOldFileAndIsToldByTheBar) {
    startReports();
    choose("MNU_PrintAll");
    for (const auto& [name, index] : std::map<std::string, int>{{"a.tif", 5}, {"a.xls", 1}}) {
        put(name, "old");
        {
            const doubles::File_Size_Limit disk(4096);
            exportTo(name, index);
        }
        EXPECT_EQ(text(name), "old");
        const Bar_Line* told = program->mainForm().messageBar().find("export");
        ASSERT_NE(told, nullptr);
        EXPECT_EQ(told->kind, Bar_Kind::Warning);
        EXPECT_EQ(told->text, "The report was not exported to " + path(name) +
                                  ": Path/File access error. Export to another file.");
    }
    EXPECT_THAT(messages, IsEmpty());
    for (const auto& entry : std::filesystem::directory_iterator(path("")))
        EXPECT_NE(entry.path().extension(), ".part");
}

TEST_F(Window_Reports, TheBarOpensTheFolderOfAnExport) {
    startReports();
    QString shown;
    reports().prompts.openFolder = [&shown](const QString& folder) { shown = folder; };
    choose("MNU_PrintAll");
    exportTo("a.txt", 4);
    const Bar_Line* told = program->mainForm().messageBar().find("export");
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->text, "The report was exported to " + path("a.txt"));
    ASSERT_EQ(told->buttons.size(), 1U);
    told->buttons.front().press();
    EXPECT_EQ(shown.toStdString(), folder.path());
}

TEST_F(Window_Reports, ThePagesGoToAPdfThroughThePrintDialog) {
    startReports();
    choose("MNU_PrintAll");
    reports().prompts.print = [&](QPrintDialog& dialog) {
        EXPECT_EQ(dialog.printer()->docName(), "EXAMPLE.KVRT100");
        EXPECT_EQ(dialog.printer()->pageLayout().pageSize().id(), QPageSize::Letter);
        EXPECT_EQ(dialog.maxPage(), 2);
        dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
        dialog.printer()->setOutputFileName(QString::fromStdString(path("printed.pdf")));
        dialog.printer()->setPrintRange(QPrinter::PageRange);
        dialog.printer()->setFromTo(2, 2);
        return true;
    };
    QApplication::setActiveWindow(allWindow());
    QTest::keyClick(allWindow(), Qt::Key_P, Qt::ControlModifier);
    QProcess pdftotext;
    pdftotext.start("pdftotext", {QString::fromStdString(path("printed.pdf")), "-"});
    ASSERT_TRUE(pdftotext.waitForFinished());
    const std::string printed = pdftotext.readAllStandardOutput().toStdString();
    EXPECT_THAT(printed, HasSubstr("Page: 2 /"));
    EXPECT_THAT(printed, testing::Not(HasSubstr("Page: 1 /")));
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(Window_Reports, APrintThatFailsIsTold) {
    startReports();
    choose("MNU_PrintAll");
    reports().prompts.print = [&](QPrintDialog& dialog) {
        dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
        dialog.printer()->setOutputFileName(QString::fromStdString(path("no such folder/printed.pdf")));
        return true;
    };
    allWindow()->events.print();
    EXPECT_THAT(messages, ElementsAre(Shown_Message{
                              "The report can't be printed. Please verify the printer...", 16, "Zorvane"}));
}

TEST_F(Window_Reports, TheLogIsPrintedAfterAChoice) {
    startReports();
    int asked = 0;
    reports().prompts.print = [&](QPrintDialog& dialog) {
        ++asked;
        EXPECT_EQ(dialog.printer()->docName(), "monitor.log");
        dialog.printer()->setOutputFormat(QPrinter::PdfFormat);
        dialog.printer()->setOutputFileName(QString::fromStdString(path("log.pdf")));
        return true;
    };
    QTextEdit log;
    for (int line = 0; line < 200; ++line)
        log.append("Tx: 01 03");
    reports().printLog(log, "monitor.log");
    EXPECT_EQ(asked, 1);
    EXPECT_GT(reports().log().report()->Pages.Count(), 1);
    EXPECT_THAT(text("log.pdf"), StartsWith("%PDF-"));
}

TEST_F(Window_Reports, TheQuestionAboutAFileShowsItsNameAsItStands) {
    startWith("app/EXAMPLE.KVRT100");
    const QString question = QStringLiteral("File /site/<b>old</b>.txt exist overwrite it?");
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->windowTitle(), "Zorvane");
            EXPECT_EQ(box->text(), question);
            EXPECT_EQ(box->textFormat(), Qt::PlainText);
            box->button(answer)->click();
        });
        EXPECT_EQ(reports().prompts.yesNo(question), answer == QMessageBox::Yes);
    }
}

TEST_F(Window_Reports, TheBusyFormShowsDotsWithoutTheAnimation) {
    startReports();
    reports().busy().show();
    const auto* form = program->window().findChild<QWidget*>("Mensaje");
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->findChild<QLabel*>("Label1")->isVisible());
    reports().busy().end();
    EXPECT_EQ(program->window().findChild<QWidget*>("Mensaje"), nullptr);
    put("app/BARRA.AVI", "");
    reports().busy().show();
    EXPECT_FALSE(program->window().findChild<QLabel*>("Label1")->isVisible());
    EXPECT_TRUE(program->window().findChild<QWidget*>("Anima")->isVisible());
    reports().busy().end();
}

TEST_F(Window_Reports, ALongRunCanBeCancelledAndKeepsThePagesMade) {
    startReports();
    makeLong(30'000);
    int ticks = 0;
    bool pressed = false;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, &user, [&] {
        if (++ticks < 3) return;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* button = widget->findChild<QPushButton*>("BOT_Cancel"))
                if (widget->objectName() == "Mensaje") button->click(), pressed = true;
    });
    user.start(1);
    choose("MNU_PrintAll");
    user.stop();
    EXPECT_TRUE(pressed);
    EXPECT_TRUE(commands().PrintAll()->Canceled());
    EXPECT_GT(allWindow()->view().pageCount(), 0);
    EXPECT_LT(allWindow()->view().pageCount(), 700);
    EXPECT_FALSE(reports().busy().active());
    click(*allWindow(), 3);
    EXPECT_FALSE(commands().PrintAll()->Canceled());
    EXPECT_GT(allWindow()->view().pageCount(), 700);
}

TEST_F(Window_Reports, WhileAReportRunsOnlyItsFormTakesInput) {
    startReports();
    choose("MNU_PrintAll");
    makeLong(30'000);
    int served = 0;
    QTimer user;
    user.setSingleShot(true); // a simulated click serves events itself
    QObject::connect(&user, &QTimer::timeout, &user, [&] {
        ++served;
        QTest::keyClick(&program->window(), Qt::Key_Q, Qt::ControlModifier);
        QTest::mouseClick(allWindow()->findChild<QToolButton*>("Tool3"), Qt::LeftButton);
        program->window().close();
        allWindow()->close();
    });
    user.start(1);
    click(*allWindow(), 3);
    user.stop();
    EXPECT_GT(served, 0);
    EXPECT_FALSE(program->edge().ended());
    EXPECT_TRUE(program->window().isVisible());
    ASSERT_NE(commands().PrintAll(), nullptr);
    EXPECT_TRUE(allWindow()->isVisible());
    EXPECT_FALSE(commands().PrintAll()->Canceled());
}

} // namespace
} // namespace zorvane::app
