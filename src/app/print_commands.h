// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"
#include "app/form/window_rectangles.h"
#include "app/print_form.h"
#include "reports/export/export_format.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zorvane::app {

/// What reports are made of besides the document.
struct Print_Services {
    const Text_Metrics& metrics;
    Report_Clock clock;
    std::string gridFont; ///< name of the upper grid's font
    const Page_Exporters& painted;
    /// Writes a file, over one that is there. Failures as those of `writeByteFile`.
    std::function<void(const std::string& path, const std::string& bytes)> writeFile;
};

/// The main form's commands around the reports: page set-up, the two previews, the export.
class Print_Commands : private Main_Report_Host {
  public:
    Print_Commands(const App_Context& app, Print_Form& mainForm, Print_Services services);

    /// "Pa&ge Setup...": an open preview that has pages takes the new settings over, which are stored then.
    void MNU_PageSetup_Click();
    /// "Print Pag&e": the preview of the selected field.
    void PRO_Imprime_Pagina();
    /// "P&rint All...": the preview of all fields.
    void PrintAllPages();
    /// Closes both previews, as the main form does when it closes.
    void PRO_Descarga_Reportes();

    /// Stores the four margins of `Report_Setup`, which is made if there is none.
    void SaveSettingsPrint();
    /// Reads them, at the start; one inch for those never stored, 0 for those that aren't numbers. A number
    /// too large for single precision leaves its margin as it is.
    void LoadSettingsPrint();

    void PrintAll_UnloadMe();
    void PrintGrid_UnloadMe();
    void PrintAll_ConfigurePage() { MNU_PageSetup_Click(); }
    void PrintGrid_ConfigurePage() { MNU_PageSetup_Click(); }
    void PrintAll_Refresh();
    void PrintGrid_Refresh();

    /// Gives the previews that have pages a text size in points, and makes them again.
    void applyFontSize(double size);

    /// Runs a report that has no preview and exports it as the user wants it. What became of it, a sentence
    /// that stands on the message bar too; "" when the user cancelled.
    std::string exportOther(ActiveReport& report);

    /// The open previews, or none.
    [[nodiscard]] MainRepKVRT* PrintAll() const { return PrintAll_.get(); }
    [[nodiscard]] MainRepKVRT* PrintGrid() const { return PrintGrid_.get(); }
    /// The report that is never shown: it holds the settings that each new preview copies.
    [[nodiscard]] MainRepKVRT& Report_Setup();

  private:
    using Report_Slot = std::unique_ptr<MainRepKVRT>;

    void showBusy() override { mainForm_.showBusy(); }
    void endBusy() override { mainForm_.endBusy(); }
    [[nodiscard]] bool keepsRunning() override { return mainForm_.keepsRunning(); }
    void SaveConfig(const Twips_Rect& window) override;
    void showPages(MainRepKVRT& report) override { mainForm_.showPages(report); }
    void showFontDialog(MainRepKVRT& report) override { mainForm_.showFontDialog(report); }
    void dropFontDialog(MainRepKVRT& report) override { mainForm_.dropFontDialog(report); }
    void exportReport(MainRepKVRT& report) override;

    [[nodiscard]] Report_Slot makeReport();
    void makePreview(Report_Slot& slot, const std::string& caption);
    void takeSettingsOver(MainRepKVRT& report);
    void show(MainRepKVRT& report);
    void unload(Report_Slot& slot, Menu_Entry entry);
    void disableEntry(Menu_Entry entry, Menu_Entry other);
    /// What an export is to become, as the user chose it in the dialog.
    struct Export_Choice {
        std::string path;
        Export_Format format;
    };
    [[nodiscard]] std::optional<Export_Choice> chosenExport();
    void writeExport(ActiveReport& report, const Export_Choice& choice);
    void tellExported(const std::string& path);

    const App_Context& app_;
    Print_Form& mainForm_;
    Print_Services services_;
    Report_Slot Report_Setup_;
    Report_Slot PrintAll_;
    Report_Slot PrintGrid_;
    /// Left, top, width and height read for a new preview.
    std::array<double, 4> Print_Setup_Window_{fallbackRectangle.left, fallbackRectangle.top,
                                              fallbackRectangle.width, fallbackRectangle.height};
};

/// The topic of the bar's line about an export.
inline const std::string exportTopic = "export";

inline const std::string exportFilter =
    "Excel file (*.xls)|*.xls|PDF File(*.pdf)|*.pdf|RTF File(*.rtf)|*.rtf|Text File(*.txt)|*.rtf|"
    "TIF File(*.tif)|*.tif|HTML File(*.html)|*.html";

} // namespace zorvane::app
