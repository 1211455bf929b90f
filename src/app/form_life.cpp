// SPDX-License-Identifier: MIT
#include "app/form_life.h"

#include "app/document/document_commands.h"
#include "app/document/document_lines.h"
#include "app/document/recovery_keeper.h"
#include "app/form/font_size.h"
#include "app/form/menu_state.h"
#include "app/form/window_rectangles.h"
#include "grids/fill/fill_configuration.h"
#include "grids/fill/flx_configuration.h"
#include "values/numbers.h"

namespace zorvane::app {

namespace {

constexpr double normalWidth = 6855; // twips
constexpr double normalHeight = 7410;

/// What came of the question about unsaved changes on the way out.
enum class Exit_Answer { Leave, Stay };

Exit_Answer askBeforeExit(const App_Context& app) {
    if (hasChanges(app)) keepCopy(app, "before exit");
    if (!app.form().Dirty) return Exit_Answer::Leave;
    const int answer = app.mainForm.Msgb_Show(saveQuestion, saveQuestionStyle, applicationTitle);
    if (answer == Msgb_Code_Cancel) return Exit_Answer::Stay;
    if (answer != Msgb_Code_Yes) return Exit_Answer::Leave;
    app.document().Save_Failed = false;
    MNU_Saveas_Click(app);
    if (!app.document().Save_Failed) return Exit_Answer::Leave;
    app.form().Dirty = true;
    app.mainForm.Msgb_Show(cannotWrite, Msgb_Information, applicationTitle);
    return Exit_Answer::Stay;
}

Twips_Rect monitorRectangle(const Link_Monitor& link) {
    return {.left = static_cast<double>(link.MonitorLeft()),
            .top = static_cast<double>(link.MonitorTop()),
            .width = static_cast<double>(link.MonitorWidth()),
            .height = static_cast<double>(link.MonitorHeight())};
}

const std::string& sectionOf(Stored_Dialog which) {
    return which == Stored_Dialog::Monitor ? monitorSection : previewSection;
}

} // namespace

void Form_Load(const App_Context& app) {
    app.form() = Main_Form_State{};
    app.state = App_State{};
    PRO_Deshabilita_Menus(app);
    app.document().Colors = Colour_Words{};
    app.mainForm.setTimerEnabled(Timer_Name::TMR_Verifica_monitor, true);
    app.document().Selected_Field = app.grids.FLX_Configuration.Row();
    PRO_Lee_Ventanas(app);
    app.mainForm.setMenuChecked(Menu_Entry::MNU_Grid,
                                Val(app.settings.GetSetting(applicationTitle, "Settings", "Grid", "0")) != 0);
    PRO_Carga_Font(app);
    app.mainForm.loadFrmDebug();
}

void TMR_Abre_ZTP_Timer(const App_Context& app) {
    app.mainForm.setTimerEnabled(Timer_Name::TMR_Abre_ZTP, false);
    app.mainForm.setPartVisible(Form_Part::Frame2, true);
    app.mainForm.setPartVisible(Form_Part::Frame3, true);
    app.document().Fields.redimPreserve(highestField);
    PRO_Leer_INIFIle(app.document(), app.reading(),
                     app.applicationFolder + folderSeparator + defaultTemplate);
    app.state.documentType = defaultType;
    app.document().No_Place = true;
    PRO_Arma_Configuration(app.grids);
    // Texts of the upper grid are a document's, and here is none: a template that lacks some is shown, too.
    ignoringFailure([&] { PRO_Llena_Configuration(app.grids); });
    app.form().Document_Open = true;
    settleDocument(app);
    if (app.grids.FLX_Configuration.Rows() <= 1) return; // the default template isn't there
    app.grids.FLX_Configuration.setRow(1);
    FLX_Configuration_RowColChange(app.grids);
}

void TMR_Inicial_ZTP_Timer(const App_Context& app) {
    app.mainForm.setTimerEnabled(Timer_Name::TMR_Inicial_ZTP, false);
    app.mainForm.showForm();
    tellCopies(app);
}

void TIM_Tamaño_normal_Timer(const App_Context& app) {
    app.mainForm.setTimerEnabled(Timer_Name::TIM_Tamaño_normal, false);
    Twips_Rect place = app.mainForm.formRectangle();
    place.width = normalWidth;
    place.height = normalHeight;
    app.mainForm.moveForm(place);
}

void Form_QueryUnload(const App_Context& app, std::int16_t& Cancel, std::int16_t /*UnloadMode*/) {
    if (askBeforeExit(app) == Exit_Answer::Stay)
        Cancel = 1;
    else
        app.mainForm.removeTrayIcon();
    PRO_Guarda_Ventanas(app);
    if (Cancel != 1) Form_Unload(app);
}

void Form_Unload(const App_Context& app) {
    PRO_Guarda_Ventanas(app);
    app.link().UnloadMonitor();
    app.mainForm.removeTrayIcon();
    if (transferRuns(app.form()) || app.form().Online) {
        app.link().StopScan();
        app.link().ClosePort();
    }
    app.mainForm.removeColumnTip();
    app.mainForm.closePreviews();
    app.mainForm.endProgram();
}

bool transferRuns(const Main_Form_State& form) {
    return form.Comm_Active || form.Upload_Active || form.Download_Active;
}

void prepareSystemEnd(const App_Context& app) {
    app.form().Cancel_Requested = true;
    if (hasChanges(app)) ignoringFailure([&] { keepCopy(app, "ended by the system"); });
}

void MNU_Exit_Click(const App_Context& app) {
    if (askBeforeExit(app) == Exit_Answer::Stay) return;
    app.mainForm.removeTrayIcon();
    Form_Unload(app);
}

void PRO_Lee_Ventanas(const App_Context& app) {
    ignoringFailure([&] {
        const Twips_Rect screen = app.mainForm.screen();
        app.mainForm.moveForm(
            storedRectangle(app.settings, mainWindowSection, app.mainForm.formRectangle(), screen));
        if (!hasStoredRectangle(app.settings, monitorSection)) return;
        const Twips_Rect monitor =
            storedRectangle(app.settings, monitorSection, monitorRectangle(app.link()), screen);
        app.form().Monitor_Place = {toLong(monitor.left), toLong(monitor.top), toLong(monitor.width),
                                    toLong(monitor.height)};
    });
}

void PRO_Guarda_Ventanas(const App_Context& app) {
    storeRectangle(app.settings, mainWindowSection, app.mainForm.formRectangle());
    storeWholeRectangle(app.settings, monitorSection, monitorRectangle(app.link()));
}

void PRO_Lee_Dialogos(const App_Context& app, Stored_Dialog which, double& top, double& left, double& width,
                      double& height) {
    ignoringFailure([&] {
        const Twips_Rect place = storedRectangle(app.settings, sectionOf(which),
                                                 {.left = left, .top = top, .width = width, .height = height},
                                                 app.mainForm.screen());
        top = place.top;
        left = place.left;
        width = place.width;
        height = place.height;
    });
}

} // namespace zorvane::app
