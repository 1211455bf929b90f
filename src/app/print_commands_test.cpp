// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/print_commands.h"
#include "app/testing/app_bench.h"
#include "app/testing/recording_print_form.h"
#include "reports/testing/even_metrics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using doubles::App_Bench;
using doubles::Even_Metrics;
using doubles::Recording_Print_Form;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

using Lines = std::vector<std::string>;

/// Tells which of the two it was asked for.
class Named_Pages : public Page_Exporters {
  public:
    [[nodiscard]] std::string pdf(const Page_Document& pages, const std::string& title) const override {
        return "pdf of " + std::to_string(pages.pages.size()) + ", " + title;
    }
    [[nodiscard]] std::string tiff(const Page_Document& pages) const override {
        return "tif of " + std::to_string(pages.pages.size());
    }
};

/// A document of two fields is open, and the first one is selected.
struct PrintCommands : testing::Test, App_Bench {
    PrintCommands() {
        openDocument();
        journal.clear();
    }
    void openDocument() {
        choose("/home/site7.abc");
        MNU_Open_Click(app);
        upper.setRow(1);
        mainForm.setMenuEnabled(Menu_Entry::MNU_PrintPage, true);
    }
    void confirm(double margin) {
        printForm.setUp = [margin](Page_Settings& page, Report_Printer& printer) {
            page.LeftMargin = page.RightMargin = page.TopMargin = page.BottomMargin = margin;
            printer.DeviceName = "laser";
            return true;
        };
    }
    [[nodiscard]] Lines stored() const { return journal.beginningWith("setting Settings/"); }
    void exportTo(const std::string& path, int filterIndex) {
        printForm.dialog.answers.push_back({path, filterIndex});
        MainRepKVRT& report = *print.PrintGrid();
        report.ActiveReport_ToolbarClick(report.Tools.Item(2));
    }

    Even_Metrics textMetrics;
    Named_Pages painted;
    Recording_Print_Form printForm{journal};
    std::map<std::string, std::string> written;
    bool full = false;
    Print_Commands print{app,
                         printForm,
                         {textMetrics,
                          [] {
                              return Report_Time{"11/21/2026", 9, 5};
                          },
                          "Grid Font", painted,
                          [this](const std::string& path, const std::string& bytes) {
                              if (full) throw Run_Time_Failure(Failure::DiskFull);
                              written[path] = bytes;
                          }}};
};

const Lines marginsOf720 = {
    "setting Settings/PrintLeftMargin = 720", "setting Settings/PrintRigthMargin = 720",
    "setting Settings/PrinttopMargin = 720", "setting Settings/PrintbottonMargin = 720"};

TEST_F(PrintCommands, ThePreviewOfTheSelectedField) {
    state.Font_Size = 10.5;
    upper.setRow(2);
    mainForm.setMenuChecked(Menu_Entry::MNU_Grid, true);
    settings.texts["Zorvane/PrintDialog/Left"] = "100";
    settings.texts["Zorvane/PrintDialog/Top"] = "200";
    settings.texts["Zorvane/PrintDialog/Width"] = "5000";
    settings.texts["Zorvane/PrintDialog/Height"] = "6000";
    journal.clear();
    print.PRO_Imprime_Pagina();
    EXPECT_EQ(journal.lines(),
              (Lines{"MNU_PrintPage disabled",
                     "\"Preview Print Page\" at 100,200 5000x6000, zoom -2", //
                     "Mensaje shown", "Mensaje unloaded", "\"Preview Print Page\" has pages: 1"}));
    const MainRepKVRT& report = *print.PrintGrid();
    EXPECT_TRUE(report.OnePage);
    EXPECT_EQ(report.Opcion, 2);
    EXPECT_TRUE(report.HaveGrid);
    EXPECT_EQ(report.FontSize, 10.5);
    EXPECT_EQ(report.PrintWidth, 12240 - 2880);
}

TEST_F(PrintCommands, AStoredPlaceTooLargeForAWindowDoesNotStopThePreview) {
    settings.texts["Zorvane/PrintDialog/Left"] = "3e388";
    print.PrintAllPages();
    EXPECT_THAT(journal.lines(),
                testing::Contains("\"Preview Print All Pages\" at 3210,3075 6990x7380, zoom -2"));
    EXPECT_EQ(print.PrintAll()->Pages.Count(), 1);
}

TEST_F(PrintCommands, ThePreviewOfAllFields) {
    print.PrintAllPages();
    EXPECT_EQ(journal.lines(),
              (Lines{"MNU_PrintAll disabled", "\"Preview Print All Pages\" at 3210,3075 6990x7380, zoom -2",
                     "Mensaje shown", "Mensaje unloaded", "\"Preview Print All Pages\" has pages: 1"}));
    EXPECT_FALSE(print.PrintAll()->OnePage);
    EXPECT_EQ(print.PrintAll()->Opcion, 0);
    EXPECT_EQ(print.PrintAll()->Pages.document.contents.size(), 2U);
}

TEST_F(PrintCommands, WithBothPreviewsOpenTheParentMenuIsDisabled) {
    print.PrintAllPages();
    EXPECT_TRUE(mainForm.menuEnabled(Menu_Entry::MNU_Print));
    print.PRO_Imprime_Pagina();
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_Print));
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_PrintPage));
    print.PrintGrid()->ActiveReport_Terminate();
    EXPECT_TRUE(mainForm.menuEnabled(Menu_Entry::MNU_Print));
    EXPECT_TRUE(mainForm.menuEnabled(Menu_Entry::MNU_PrintPage));
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_PrintAll));
}

TEST_F(PrintCommands, ClosingThePreviewOfAllLeavesTheEntryOfTheOtherDisabled) {
    print.PrintAllPages();
    print.PRO_Imprime_Pagina();
    journal.clear();
    print.PrintAll()->ActiveReport_Terminate();
    const Lines lines = journal.lines();
    EXPECT_THAT(Lines(lines.end() - 3, lines.end()), ElementsAre("MNU_PrintAll enabled", "MNU_Print enabled",
                                                                 "\"Preview Print All Pages\" closed"));
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_PrintPage));
}

TEST_F(PrintCommands, ClosingAPreviewStoresItsPlaceAndEnablesItsEntry) {
    print.PRO_Imprime_Pagina();
    print.PrintGrid()->Window = {10, 20, 30, 40};
    journal.clear();
    print.PrintGrid()->ActiveReport_Terminate();
    EXPECT_EQ(journal.lines(),
              (Lines{"setting PrintDialog/Top = 20", "setting PrintDialog/Left = 10",
                     "setting PrintDialog/Width = 30", "setting PrintDialog/Height = 40",
                     "MNU_PrintPage enabled", "MNU_Print enabled", "\"Preview Print Page\" closed"}));
    EXPECT_EQ(print.PrintGrid(), nullptr);
}

TEST_F(PrintCommands, NoRowSelectedPrintsNoField) {
    upper.setRow(0);
    print.PRO_Imprime_Pagina();
    EXPECT_EQ(print.PrintGrid()->Opcion, 0);
    EXPECT_EQ(print.PrintGrid()->Pages.Count(), 1);
}

TEST_F(PrintCommands, PageSetUpWithoutAPreviewStoresNothing) {
    confirm(720);
    print.MNU_PageSetup_Click();
    EXPECT_EQ(journal.lines(), Lines{"page set-up"});
    EXPECT_EQ(print.Report_Setup().PageSettings.LeftMargin, 720);
}

TEST_F(PrintCommands, ACancelledPageSetUpChangesNoPreview) {
    print.PrintAllPages();
    journal.clear();
    print.MNU_PageSetup_Click();
    EXPECT_EQ(journal.lines(), Lines{"page set-up"});
}

TEST_F(PrintCommands, PageSetUpReachesThePreviewOfAllFields) {
    print.PrintAllPages();
    confirm(720);
    journal.clear();
    print.PrintAll()->ActiveReport_ToolbarClick(print.PrintAll()->Tools.Item(1));
    EXPECT_EQ(stored(), marginsOf720);
    EXPECT_EQ(journal.lines().back(), "\"Preview Print All Pages\" has pages: 1");
    const MainRepKVRT& report = *print.PrintAll();
    EXPECT_EQ(report.Printer.DeviceName, "laser");
    EXPECT_EQ(report.PageSettings.TopMargin, 720);
    EXPECT_EQ(report.PrintWidth, 12240 - 1440);
    EXPECT_EQ(report.PageSettings.Gutter, 0);
    EXPECT_FALSE(report.PageSettings.MirrorMargins);
}

TEST_F(PrintCommands, PageSetUpGivesThePreviewOfOneFieldRoomForItsBinding) {
    print.PRO_Imprime_Pagina();
    confirm(720);
    journal.clear();
    print.MNU_PageSetup_Click();
    EXPECT_EQ(stored(), marginsOf720);
    EXPECT_EQ(print.PrintGrid()->PageSettings.LeftMargin, 720);
    EXPECT_EQ(print.PrintGrid()->PageSettings.Gutter, 720);
    EXPECT_TRUE(print.PrintGrid()->PageSettings.MirrorMargins);
}

TEST_F(PrintCommands, PageSetUpDoesNotRestartThePreviewOfAnEmptyDocument) {
    document.Field_Count = 0;
    print.PrintAllPages();
    ASSERT_EQ(print.PrintAll()->Pages.Count(), 0);
    confirm(720);
    journal.clear();
    print.MNU_PageSetup_Click();
    EXPECT_EQ(journal.lines(), Lines{"page set-up"});
    EXPECT_EQ(print.PrintAll()->PageSettings.LeftMargin, 1440);
}

TEST_F(PrintCommands, RefreshRestartsAPreviewWithPages) {
    print.PrintAllPages();
    journal.clear();
    print.PrintAll()->ActiveReport_ToolbarClick(print.PrintAll()->Tools.Item(3));
    EXPECT_THAT(journal.lines(),
                ElementsAre("Mensaje shown", "Mensaje unloaded", "\"Preview Print All Pages\" has pages: 1"));
    print.PrintAll()->Pages.Clear();
    journal.clear();
    print.PrintAll_Refresh();
    print.PrintGrid_Refresh();
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(PrintCommands, AFontSizeReachesPreviewsWithPages) {
    print.PrintAllPages();
    print.PRO_Imprime_Pagina();
    print.PrintGrid()->Pages.Clear();
    journal.clear();
    print.applyFontSize(12);
    EXPECT_EQ(print.PrintAll()->FontSize, 12);
    EXPECT_EQ(print.PrintGrid()->FontSize, 8.25);
    EXPECT_EQ(journal.lines().back(), "\"Preview Print All Pages\" has pages: 1");
}

TEST_F(PrintCommands, TheMainFormsEndClosesBothPreviews) {
    print.PrintAllPages();
    print.PRO_Imprime_Pagina();
    print.PRO_Descarga_Reportes();
    EXPECT_EQ(print.PrintAll(), nullptr);
    EXPECT_EQ(print.PrintGrid(), nullptr);
    journal.clear();
    print.PRO_Descarga_Reportes();
    EXPECT_THAT(journal.lines(), IsEmpty());
}

TEST_F(PrintCommands, MarginsAreReadUnderTheKeysAsTheyHaveAlwaysBeenSpelt) {
    settings.texts["Zorvane/Settings/PrintLeftMargin"] = "100";
    settings.texts["Zorvane/Settings/PrintRigthMargin"] = "200.5";
    settings.texts["Zorvane/Settings/PrinttopMargin"] = "one inch";
    print.LoadSettingsPrint();
    const Page_Settings& page = print.Report_Setup().PageSettings;
    EXPECT_EQ(page.LeftMargin, 100);
    EXPECT_EQ(page.RightMargin, 200.5);
    EXPECT_EQ(page.TopMargin, 0); // not a number
    EXPECT_EQ(page.BottomMargin, 1440);
    print.SaveSettingsPrint();
    EXPECT_EQ(settings.texts["Zorvane/Settings/PrintRigthMargin"], "200.5");
    EXPECT_EQ(settings.texts["Zorvane/Settings/PrintbottonMargin"], "1440");
}

TEST_F(PrintCommands, AMarginBeyondSinglePrecisionIsLeftAside) {
    settings.texts["Zorvane/Settings/PrinttopMargin"] = "1e400";
    settings.texts["Zorvane/Settings/PrintbottonMargin"] = "-1e39";
    print.LoadSettingsPrint();
    EXPECT_EQ(print.Report_Setup().PageSettings.TopMargin, 1440);
    EXPECT_EQ(print.Report_Setup().PageSettings.BottomMargin, 1440);
}

TEST_F(PrintCommands, ANewPreviewCopiesTheSetUp) {
    confirm(1000);
    print.MNU_PageSetup_Click();
    print.PRO_Imprime_Pagina();
    EXPECT_EQ(print.PrintGrid()->PageSettings.BottomMargin, 1000);
    EXPECT_EQ(print.PrintGrid()->Printer.DeviceName, "laser");
    EXPECT_EQ(print.PrintGrid()->PrintWidth, 10240);
}

TEST_F(PrintCommands, TheExportDialogOffersSixFormats) {
    print.PRO_Imprime_Pagina();
    journal.clear();
    exportTo("/home/a.txt", 4);
    EXPECT_EQ(journal.lines().front(),
              "ShowSave \"Export as...\" Excel file (*.xls)|*.xls|PDF File(*.pdf)|*.pdf|RTF "
              "File(*.rtf)|*.rtf|Text File(*.txt)|*.rtf|TIF File(*.tif)|*.tif|HTML File(*.html)|*.html at 1, "
              "flags 0");
    EXPECT_EQ(printForm.dialog.InitDir, "/app");
}

TEST_F(PrintCommands, TheFilterIndexTellsTheFormatWhateverTheName) {
    print.PRO_Imprime_Pagina();
    exportTo("/home/a.txt", 4);
    EXPECT_THAT(written["/home/a.txt"], StartsWith("Zorvane\r\n\r\nDescription: Inputs\r\n"));
    exportTo("/home/b.txt", 1);
    EXPECT_THAT(written["/home/b.txt"], StartsWith("\xD0\xCF\x11\xE0"));
    exportTo("/home/c", 2);
    EXPECT_EQ(written["/home/c"], "pdf of 1, Preview Print Page");
    exportTo("/home/d", 3);
    EXPECT_THAT(written["/home/d"], StartsWith("{\\rtf1"));
    exportTo("/home/e", 5);
    EXPECT_EQ(written["/home/e"], "tif of 1");
    exportTo("/home/f", 6);
    EXPECT_THAT(written["/home/f"], StartsWith("<!DOCTYPE html>"));
    exportTo("/home/g", 7);
    EXPECT_EQ(written.count("/home/g"), 0U);
}

TEST_F(PrintCommands, AnExistingFileIsOverwrittenOnlyAfterYes) {
    files.put("/home/a.txt", "old");
    print.PRO_Imprime_Pagina();
    printForm.yes = false;
    exportTo("/home/a.txt", 4);
    EXPECT_THAT(journal.lines(), Contains("question \"File /home/a.txt exist overwrite it?\""));
    EXPECT_THAT(written, IsEmpty());
    printForm.yes = true;
    exportTo("/home/a.txt", 4);
    EXPECT_EQ(written.count("/home/a.txt"), 1U);
}

TEST_F(PrintCommands, ARunCancelledByTheUserKeepsThePagesMade) {
    printForm.cancelsAfter = 3;
    print.PrintAllPages();
    EXPECT_TRUE(print.PrintAll()->Canceled());
    EXPECT_EQ(print.PrintAll()->Pages.Count(), 1);
    EXPECT_EQ(print.PrintAll()->Pages.document.contents.size(), 1U);
    printForm.cancelsAfter.reset();
    print.PrintAll_Refresh();
    EXPECT_FALSE(print.PrintAll()->Canceled());
    EXPECT_EQ(print.PrintAll()->Pages.document.contents.size(), 2U);
}

TEST_F(PrintCommands, AnExportCancelledByTheUserWritesNothing) {
    print.PRO_Imprime_Pagina();
    printForm.cancelsAfter = 2;
    exportTo("/home/a.txt", 4);
    EXPECT_THAT(written, IsEmpty());
    EXPECT_EQ(journal.lines().back(), "Mensaje unloaded");
}

TEST_F(PrintCommands, TheBusyFormStandsForTheWholeOfAnExport) {
    print.PRO_Imprime_Pagina();
    journal.clear();
    exportTo("/home/a.txt", 4);
    EXPECT_THAT(Lines(journal.lines().begin() + 1, journal.lines().end()),
                ElementsAre("Mensaje shown", "Mensaje shown", "Mensaje unloaded",
                            "\"Preview Print Page\" has pages: 1", "Mensaje unloaded"));
}

TEST_F(PrintCommands, APaperChosenInThePageSetUpReachesThePreviews) {
    print.PrintAllPages();
    printForm.setUp = [](Page_Settings& page, Report_Printer&) {
        std::swap(page.PaperWidth, page.PaperHeight);
        return true;
    };
    print.MNU_PageSetup_Click();
    EXPECT_EQ(print.PrintAll()->PageSettings.PaperWidth, 15840);
    EXPECT_EQ(print.PrintAll()->PrintWidth, 15840 - 2880);
    EXPECT_EQ(print.PrintAll()->Pages.document.paperHeight, 12240);
}

TEST_F(PrintCommands, TheBarTellsOfAnExport) {
    print.PRO_Imprime_Pagina();
    exportTo("/home/a.txt", 4);
    const Bar_Line* told = mainForm.messageBar().find("export");
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->kind, Bar_Kind::Note);
    EXPECT_EQ(told->text, "The report was exported to /home/a.txt");
    EXPECT_FALSE(told->ofDocument);
    ASSERT_EQ(told->buttons.size(), 1U);
    EXPECT_EQ(told->buttons[0].caption, "Open folder");
    journal.clear();
    told->buttons[0].press();
    EXPECT_EQ(journal.lines(), Lines{"folder of /home/a.txt opened"});
}

TEST_F(PrintCommands, TheBarTellsOfAnExportThatFailed) {
    print.PRO_Imprime_Pagina();
    exportTo("/home/a.txt", 4);
    full = true;
    exportTo("/home/a.txt", 4);
    ASSERT_EQ(mainForm.messageBar().lines().size(), 1U);
    const Bar_Line& told = mainForm.messageBar().lines().front();
    EXPECT_EQ(told.kind, Bar_Kind::Warning);
    EXPECT_EQ(told.text,
              "The report was not exported to /home/a.txt: Disk full. Make room on that disk, or export "
              "to another one.");
    EXPECT_THAT(told.buttons, IsEmpty());
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(PrintCommands, TheBarIsSilentAboutWhatTheUserCancelled) {
    print.PrintAllPages();
    MainRepKVRT& report = *print.PrintAll();
    report.ActiveReport_ToolbarClick(report.Tools.Item(2)); // in the dialog
    printForm.cancelsAfter = 2;                             // in the busy form
    printForm.dialog.answers.push_back({"/home/a.txt", 4});
    report.ActiveReport_ToolbarClick(report.Tools.Item(2));
    printForm.yes = false; // by No
    files.put("/home/a.txt", "old");
    printForm.dialog.answers.push_back({"/home/a.txt", 4});
    report.ActiveReport_ToolbarClick(report.Tools.Item(2));
    EXPECT_THAT(mainForm.messageBar().lines(), IsEmpty());
}

TEST_F(PrintCommands, ACancelledOrFailingExportEndsQuietly) {
    print.PRO_Imprime_Pagina();
    journal.clear();
    MainRepKVRT& report = *print.PrintGrid();
    report.ActiveReport_ToolbarClick(report.Tools.Item(2)); // the user cancels
    EXPECT_EQ(journal.lines().size(), 1U);
    full = true;
    exportTo("/home/a.txt", 4);
    EXPECT_THAT(written, IsEmpty());
    EXPECT_THAT(messages(), IsEmpty());
}

} // namespace
} // namespace zorvane::app
