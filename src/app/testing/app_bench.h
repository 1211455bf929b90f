// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"
#include "app/testing/memory_recovery_folder.h"
#include "app/testing/memory_settings.h"
#include "app/testing/recording_document_form.h"
#include "app/testing/recording_files.h"
#include "comm/main_form/title.h"
#include "comm/modbus_control/testing/scripted_link.h"
#include "grids/fill/memory_grid.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace zorvane::doubles {

/// Ten twips a character and point.
class Fixed_Widths : public app::Text_Widths {
  public:
    [[nodiscard]] double textWidth(const std::string& text, double points) const override {
        return 10.0 * points * static_cast<double>(text.size());
    }
};

class Still_Windows : public Grid_Windows {
  public:
    void showFrmDebug() override {}
    void updateColumnTip() override {}
    [[nodiscard]] Mouse_Place mousePlace() const override { return {}; }
};

/// Lines of a file.
[[nodiscard]] inline std::string fileText(std::initializer_list<const char*> lines) {
    std::string text;
    for (const char* line : lines)
        text += std::string(line) + "\r\n";
    return text;
}

/// Two fields: two rows and one row, of a free text and a number.
[[nodiscard]] inline std::string smallTemplate() {
    return fileText({"[HARDWARE]",
                     "CONTROLLER=abc 100",
                     "[PORT_CONFIGURATION]",
                     "HOLDINGREGISTERSBLOCK_1=1-8",
                     "HOLDINGREQUESTBLOCK_1=ALWAYS",
                     "[CONFIGURATION_COLUMNS]",
                     "NUMERIC_ROWS=YES",
                     "CONFIGURATION_NC=2",
                     "COL_1_DESC=No.",
                     "COL_1_WIDTH=450",
                     "COL_2_DESC=Field",
                     "COL_2_WIDTH=1600",
                     "[CONFIGURATION_FIELDS]",
                     "FIELD_1_DESC=Inputs",
                     "FIELD_1_RC=2,2",
                     "FIELD_2_DESC=Outputs",
                     "FIELD_2_RC=1,2",
                     "[CONFIGURATION_DEFAULT]",
                     "FIELD_1=,Inputs",
                     "FIELD_2=,Outputs",
                     "[FIELD_1_COLUMNS]",
                     "COL_1_DESC=Name",
                     "COL_1_WIDTH=1100",
                     "COL_2_DESC=Value",
                     "COL_2_WIDTH=800",
                     "COL_2_MODIFIABLE=YES",
                     "[FIELD_2_COLUMNS]",
                     "COL_1_DESC=Name",
                     "COL_1_WIDTH=900",
                     "COL_2_DESC=Value",
                     "COL_2_WIDTH=700",
                     "[FIELD_1_DEFAULT]",
                     "ROW_1=low,1",
                     "ROW_2=high,2",
                     "[FIELD_2_DEFAULT]",
                     "ROW_1=all,3"});
}

/// The document with these values in its field 1, as the writer writes it.
[[nodiscard]] inline std::string smallDocument(const std::string& low, const std::string& high) {
    return "[Configuration_Default]\r\nFIELD_1=,Inputs\r\nFIELD_2=,Outputs\r\n\r\n[Field_1_Default]\r\nROW_1="
           "low," +
           low + "\r\nROW_2=high," + high +
           "\r\n\r\n[Field_2_Default]\r\nROW_1=all,3\r\n\r\n[Default_1_Columns]\r\nCOL_1_WIDTH=1100\r\nCOL_2_"
           "WIDTH="
           "800\r\n\r\n[Default_2_Columns]\r\nCOL_1_WIDTH=900\r\nCOL_2_WIDTH=700\r\n\r\n";
}

/// Everything that the commands work on, on one journal. The application folder "/app" offers the type ABC,
/// and "/home/site7.abc" is a document of it.
struct App_Bench {
    App_Bench() {
        PRO_Limpia_Modelo(document);
        PRO_Prepara_Lectura(document);
        document.Holding_Blocks.redim(0);
        files.put("/app/ABC.ZTP", smallTemplate());
        files.put("/home/site7.abc", smallDocument("10", "20"));
    }
    App_Bench(const App_Bench&) = delete;
    App_Bench& operator=(const App_Bench&) = delete;
    ~App_Bench() = default;

    Journal journal;
    Declara_Zorvane document;
    Main_Form_State form;
    Scripted_Link link{journal};
    Memory_Grid upper;
    Memory_Grid lower;
    Recording_Document_Form mainForm{journal, upper, lower};
    Navigation_State navigation;
    Hidden_Editors editors;
    Still_Windows windows;
    Recording_Files files{journal};
    Memory_Settings settings{journal};
    Memory_Recovery_Folder folder{journal};
    Journal unheard;
    Memory_Recovery_Folder filesBefore{unheard}; ///< as they were before a save
    Fixed_Widths widths;
    std::string time = "2026-11-21 03:20:05";
    Recovery recovery{folder, [this] { return time; }, "1", &filesBefore};
    app::App_State state;
    app::App_Context app{{{document, form, link, mainForm}, upper, lower, navigation, editors, windows},
                         mainForm,
                         files,
                         settings,
                         widths,
                         recovery,
                         state,
                         "/app"};

    /// The user types a value into field 1.
    void edit(std::int32_t row, const std::string& value) {
        document.Fields(1).Cells(row, 2).Value = value;
        PRO_Titulo_Modificado(document, form, mainForm);
        applySaveRule(document, mainForm);
    }
    [[nodiscard]] std::string value(std::int32_t row) const { return document.Fields(1).Cells(row, 2).Value; }
    /// The user answers the next message.
    void answer(int code) { mainForm.base.answers.push_back(code); }
    /// The user answers the next file dialog.
    void choose(const std::string& path, bool readOnly = false) {
        mainForm.scriptedDialog.answers.push_back({path, 0, readOnly});
    }
    [[nodiscard]] std::vector<std::string> messages() const { return journal.beginningWith("Msgb"); }
};

} // namespace zorvane::doubles
