// SPDX-License-Identifier: MIT
#include "app/print_commands.h"

#include "app/form_life.h"
#include "values/numbers.h"

#include <cmath>
#include <limits>

namespace zorvane::app {

namespace {

const std::string marginSection = "Settings";
constexpr int wholePageZoom = -2;
constexpr double bindingRoom = 720; ///< twips

struct Margin_Key {
    const char* key; ///< spelt as it has always been stored
    double Page_Settings::*margin;
};

constexpr std::array<Margin_Key, 4> marginKeys = {{{"PrintLeftMargin", &Page_Settings::LeftMargin},
                                                   {"PrintRigthMargin", &Page_Settings::RightMargin},
                                                   {"PrinttopMargin", &Page_Settings::TopMargin},
                                                   {"PrintbottonMargin", &Page_Settings::BottomMargin}}};

void copyMargins(const Page_Settings& from, Page_Settings& to) {
    for (const Margin_Key& key : marginKeys)
        to.*key.margin = from.*key.margin;
}

double widthBetweenMargins(const Page_Settings& page) {
    return page.PaperWidth - (page.LeftMargin + page.RightMargin);
}

/// The busy form stands for the whole of an export, whose writing may take longer than its run.
class Busy {
  public:
    explicit Busy(Print_Form& mainForm) : mainForm_(mainForm) { mainForm_.showBusy(); }
    ~Busy() { mainForm_.endBusy(); }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    Print_Form& mainForm_;
};

/// What to do about an export that failed.
std::string exportAdvice(int failure) {
    switch (failure) {
    case static_cast<int>(Failure::DiskFull):
        return "Make room on that disk, or export to another one.";
    case static_cast<int>(Failure::PermissionDenied):
        return "Export to a folder where you may write.";
    case static_cast<int>(Failure::PathNotFound):
        return "Export to a folder that is there.";
    default:
        return "Export to another file.";
    }
}

std::string failedExport(const std::string& path, const Run_Time_Failure& failure) {
    return "The report was not exported to " + path + ": " + failure.description() + ". " +
           exportAdvice(failure.number());
}

std::string exportedText(const std::string& path) { return "The report was exported to " + path; }

bool hasPages(const MainRepKVRT* report) { return report != nullptr && report->Pages.Count() > 0; }

} // namespace

Print_Commands::Print_Commands(const App_Context& app, Print_Form& mainForm, Print_Services services)
    : app_(app), mainForm_(mainForm), services_(std::move(services)) {}

std::unique_ptr<MainRepKVRT> Print_Commands::makeReport() {
    const Document_Report_Sources sources{app_.document(), services_.metrics, services_.gridFont};
    Main_Report_Host& host = *this;
    return std::make_unique<MainRepKVRT>(sources, services_.clock, host);
}

MainRepKVRT& Print_Commands::Report_Setup() {
    if (!Report_Setup_) Report_Setup_ = makeReport();
    return *Report_Setup_;
}

void Print_Commands::MNU_PageSetup_Click() {
    MainRepKVRT& setup = Report_Setup();
    if (!mainForm_.PageSetup(setup.PageSettings, setup.Printer)) return;
    if (hasPages(PrintAll())) {
        takeSettingsOver(*PrintAll_);
        SaveSettingsPrint();
        PrintAll_->PrintWidth = widthBetweenMargins(setup.PageSettings);
        PrintAll_->Restart();
    }
    if (hasPages(PrintGrid())) {
        takeSettingsOver(*PrintGrid_);
        PrintGrid_->PageSettings.Gutter = bindingRoom;
        PrintGrid_->PageSettings.MirrorMargins = true;
        SaveSettingsPrint();
        PrintGrid_->PrintWidth = widthBetweenMargins(setup.PageSettings);
        PrintGrid_->Restart();
    }
}

/// The paper is the printer's, so it comes along.
void Print_Commands::takeSettingsOver(MainRepKVRT& report) {
    report.Printer = Report_Setup().Printer;
    report.PageSettings.PaperWidth = Report_Setup().PageSettings.PaperWidth;
    report.PageSettings.PaperHeight = Report_Setup().PageSettings.PaperHeight;
    copyMargins(Report_Setup().PageSettings, report.PageSettings);
}

void Print_Commands::PRO_Imprime_Pagina() {
    disableEntry(Menu_Entry::MNU_PrintPage, Menu_Entry::MNU_PrintAll);
    if (!PrintGrid_) {
        makePreview(PrintGrid_, "Preview Print Page");
        PrintGrid_->UnloadMe = [this] { PrintGrid_UnloadMe(); };
        PrintGrid_->ConfigurePage = [this] { PrintGrid_ConfigurePage(); };
        PrintGrid_->Refresh = [this] { PrintGrid_Refresh(); };
    }
    PrintGrid_->OnePage = true;
    PrintGrid_->Opcion = app_.grids.FLX_Configuration.RowSel();
    show(*PrintGrid_);
}

void Print_Commands::PrintAllPages() {
    disableEntry(Menu_Entry::MNU_PrintAll, Menu_Entry::MNU_PrintPage);
    if (!PrintAll_) {
        makePreview(PrintAll_, "Preview Print All Pages");
        PrintAll_->UnloadMe = [this] { PrintAll_UnloadMe(); };
        PrintAll_->ConfigurePage = [this] { PrintAll_ConfigurePage(); };
        PrintAll_->Refresh = [this] { PrintAll_Refresh(); };
    }
    PrintAll_->OnePage = false;
    PrintAll_->Opcion = 0;
    show(*PrintAll_);
}

void Print_Commands::disableEntry(Menu_Entry entry, Menu_Entry other) {
    app_.mainForm.setMenuEnabled(entry, false);
    if (!app_.mainForm.menuEnabled(other)) app_.mainForm.setMenuEnabled(Menu_Entry::MNU_Print, false);
}

void Print_Commands::makePreview(Report_Slot& slot, const std::string& caption) {
    slot = makeReport();
    auto& [left, top, width, height] = Print_Setup_Window_;
    PRO_Lee_Dialogos(app_, Stored_Dialog::Preview, top, left, width, height);
    slot->Window = {left, top, width, height};
    takeSettingsOver(*slot);
    slot->PrintWidth = widthBetweenMargins(Report_Setup().PageSettings);
    slot->Caption = caption;
}

void Print_Commands::show(MainRepKVRT& report) {
    report.FontSize = app_.state.Font_Size;
    report.HaveGrid = app_.mainForm.menuChecked(Menu_Entry::MNU_Grid);
    mainForm_.showPreview(report, wholePageZoom);
    report.Run();
}

void Print_Commands::PRO_Descarga_Reportes() {
    if (PrintAll_) PrintAll_->ActiveReport_Terminate();
    if (PrintGrid_) PrintGrid_->ActiveReport_Terminate();
}

void Print_Commands::PrintAll_UnloadMe() { unload(PrintAll_, Menu_Entry::MNU_PrintAll); }

void Print_Commands::PrintGrid_UnloadMe() { unload(PrintGrid_, Menu_Entry::MNU_PrintPage); }

void Print_Commands::unload(Report_Slot& slot, Menu_Entry entry) {
    app_.mainForm.setMenuEnabled(entry, true);
    app_.mainForm.setMenuEnabled(Menu_Entry::MNU_Print, true);
    if (!slot) return;
    if (slot->Pages.Count() > 0) slot->Pages.Clear();
    mainForm_.releasePreview(*slot);
    slot.reset();
}

void Print_Commands::PrintAll_Refresh() {
    if (hasPages(PrintAll())) PrintAll_->Restart();
}

void Print_Commands::PrintGrid_Refresh() {
    if (hasPages(PrintGrid())) PrintGrid_->Restart();
}

void Print_Commands::applyFontSize(double size) {
    for (MainRepKVRT* report : {PrintAll(), PrintGrid()}) {
        if (!hasPages(report)) continue;
        report->FontSize = size;
        report->Restart();
    }
}

void Print_Commands::SaveSettingsPrint() {
    const Page_Settings& page = Report_Setup().PageSettings;
    for (const auto& [key, margin] : marginKeys)
        app_.settings.SaveSetting(applicationTitle, marginSection, key, singleText(page.*margin));
}

void Print_Commands::LoadSettingsPrint() {
    Page_Settings& page = Report_Setup().PageSettings;
    for (const auto& [key, margin] : marginKeys) {
        const double stored = Val(app_.settings.GetSetting(applicationTitle, marginSection, key, "1440"));
        if (std::abs(stored) <= std::numeric_limits<float>::max()) page.*margin = stored;
    }
}

void Print_Commands::SaveConfig(const Twips_Rect& window) {
    storeRectangle(app_.settings, previewSection, window);
}

/// The dialog is cancelled by a failure, which ends the export quietly. So does each failure of the export,
/// for the boxes; the bar tells of it.
void Print_Commands::exportReport(MainRepKVRT& report) { (void)exportOther(report); }

std::string Print_Commands::exportOther(ActiveReport& report) {
    std::optional<Export_Choice> choice;
    ignoringFailure([&] { choice = chosenExport(); });
    if (!choice) return {};
    const Busy busy(mainForm_);
    try {
        writeExport(report, *choice);
        return report.Canceled() ? "" : exportedText(choice->path);
    } catch (const Run_Time_Failure& failure) {
        if (!mainForm_.keepsRunning()) return {}; // the user has ended it
        const std::string told = failedExport(choice->path, failure);
        app_.mainForm.messageBar().tell({exportTopic, Bar_Kind::Warning, told, {}, false});
        return told;
    }
}

std::optional<Print_Commands::Export_Choice> Print_Commands::chosenExport() {
    CommonDialog& dialog = mainForm_.OpenFile();
    dialog.FileName.clear();
    dialog.DialogTitle = "Export as...";
    dialog.Filter = exportFilter;
    dialog.CancelError = true;
    dialog.InitDir = app_.applicationFolder;
    dialog.ShowSave();
    if (app_.files.exists(dialog.FileName) &&
        !mainForm_.platformQuestion("File " + dialog.FileName + " exist overwrite it?"))
        return std::nullopt;
    const auto format = formatOfFilter(dialog.FilterIndex);
    if (!format) return std::nullopt;
    return Export_Choice{dialog.FileName, *format};
}

void Print_Commands::writeExport(ActiveReport& report, const Export_Choice& choice) {
    const std::string bytes = zorvane::exportReport(report, choice.format, services_.painted);
    if (report.Canceled()) return;
    services_.writeFile(choice.path, bytes);
    tellExported(choice.path);
}

void Print_Commands::tellExported(const std::string& path) {
    Bar_Button folder{"Open folder", [&mainForm = mainForm_, path] { mainForm.openFolderOf(path); }};
    app_.mainForm.messageBar().tell(
        {exportTopic, Bar_Kind::Note, exportedText(path), {std::move(folder)}, false});
}

} // namespace zorvane::app
