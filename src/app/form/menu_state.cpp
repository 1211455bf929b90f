// SPDX-License-Identifier: MIT
#include "app/form/menu_state.h"

namespace zorvane::app {

void PRO_Habilita_Menus(const App_Context& app) {
    using enum Menu_Entry;
    for (const Menu_Entry entry : {MNU_Download, MNU_Upload, MNU_Close, MNU_Saveas, MNU_Print, MNU_PrintAll})
        app.mainForm.setMenuEnabled(entry, true);
}

void PRO_Deshabilita_Menus(const App_Context& app) {
    using enum Menu_Entry;
    for (const Menu_Entry entry :
         {MNU_Download, MNU_Upload, MNU_Close, MNU_Save, MNU_Saveas, MNU_Disconnect, MNU_Print, MNU_PrintAll})
        app.mainForm.setMenuEnabled(entry, false);
    app.mainForm.setPartVisible(Form_Part::PicLineHoriz, false);
    for (const Panel panel : {Panel::ReadOnly, Panel::LinkState, Panel::Message, Panel::Tx, Panel::Rx})
        app.mainForm.setPanel(panel, "");
}

void MNU_Grid_Click(const App_Context& app) {
    const bool checked = !app.mainForm.menuChecked(Menu_Entry::MNU_Grid);
    app.mainForm.setMenuChecked(Menu_Entry::MNU_Grid, checked);
    app.settings.SaveSetting(applicationTitle, "Settings", "Grid", checked ? "1" : "0");
}

void PRO_Marca_Solo_Lectura(const App_Context& app) {
    app.document().Read_Only = true;
    app.mainForm.setPanel(Panel::ReadOnly, "READ ONLY");
}

void PRO_Quita_Solo_Lectura(const App_Context& app) {
    app.document().Read_Only = false;
    app.mainForm.setPanel(Panel::ReadOnly, "");
}

} // namespace zorvane::app
