// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace zorvane {

/// A text box of the main form that is never shown. Its height in twips is the row height of its grid.
struct Hidden_Text_Editor {
    std::int32_t Height = 285;
    std::string Text;
    bool Visible = false;
};

/// A combo box of the main form that is never shown or filled, so that none of its entries is ever chosen.
struct Hidden_Combo_Editor {
    std::int32_t ListIndex = -1;
    bool Visible = false;
};

/// The three editors beside the grids. All editing happens in the grid's own in-cell editor.
struct Hidden_Editors {
    Hidden_Text_Editor EDT_Modifica_Configuration;
    Hidden_Text_Editor EDT_Modifica_Settings;
    Hidden_Combo_Editor EDT_Modifica_Combo;
};

/// Empties and hides the text box of a grid.
inline void PRO_Oculta_EDT_Configuration(Hidden_Editors& editors) {
    editors.EDT_Modifica_Configuration.Text.clear();
    editors.EDT_Modifica_Configuration.Visible = false;
}
inline void PRO_Oculta_EDT_Settings(Hidden_Editors& editors) {
    editors.EDT_Modifica_Settings.Text.clear();
    editors.EDT_Modifica_Settings.Visible = false;
}

} // namespace zorvane
