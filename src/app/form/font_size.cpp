// SPDX-License-Identifier: MIT
#include "app/form/font_size.h"

#include "grids/fill/fill_configuration.h"
#include "grids/fill/fill_settings.h"
#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>

namespace zorvane::app {

namespace {

constexpr std::int32_t columnMargin = 270; // twips
constexpr std::int16_t lastFontIndex = static_cast<std::int16_t>(fontSizes.size() - 1);
constexpr int rowsMovedOn = 3;

const std::string settingsSection = "Settings";
const std::string fontKey = "FontSize";

/// Lays the upper grid out again and comes back to the selection.
void layOutAnew(const App_Context& app) {
    VSFlexGrid& grid = app.grids.FLX_Configuration;
    const std::int32_t row = grid.Row();
    const std::int32_t col = grid.Col();
    const std::int32_t colSel = grid.ColSel();
    ignoringFailure([&] { PRO_Arma_Configuration(app.grids); });
    ignoringFailure([&] { PRO_Llena_Configuration(app.grids); });
    ignoringFailure([&] {
        grid.setRow(row);
        grid.setCol(col);
        grid.setColSel(colSel);
    });
}

void moveToNextRow(const App_Context& app) {
    VSFlexGrid& grid = app.grids.FLX_Configuration;
    const std::int32_t next = grid.Row() + 1 < grid.Rows() ? grid.Row() + 1 : 1;
    grid.setRow(next);
    app.document().Selected_Field = next;
    PRO_Llena_Settings(app.grids, toInteger(next), false);
}

void showBoxes(const App_Context& app, bool visible) {
    app.mainForm.setPartVisible(Form_Part::Frame2, visible);
    app.mainForm.setPartVisible(Form_Part::Frame3, visible);
}

void endApplying(const App_Context& app, bool hasDocument) {
    if (hasDocument) showBoxes(app, true);
    app.mainForm.setPanel(Panel::Message, "");
}

} // namespace

void PRO_Indice_Font(const App_Context& app, std::int16_t& index) {
    index = 1;
    ignoringFailure([&] {
        const double stored =
            strictDouble(app.settings.GetSetting(applicationTitle, settingsSection, fontKey, "1"));
        index = toInteger(std::min<double>(stored, lastFontIndex));
    });
}

void PRO_Carga_Font(const App_Context& app) {
    std::int16_t index = 0;
    PRO_Indice_Font(app, index);
    const auto place = static_cast<std::size_t>(index < 0 ? lastFontIndex : index);
    app.state.Font_Size = fontSizes.at(place).applied;
    ignoringFailure([&] { PRO_Aplica_Font(app); });
}

// A field that can't be shown must not leave the window empty, so each step runs whatever became of the one
// before it.
void PRO_Aplica_Font(const App_Context& app) {
    const bool hasDocument = !app.document().File_Stem.empty();
    VSFlexGrid& upper = app.grids.FLX_Configuration;
    showBoxes(app, false);
    app.mainForm.setPanel(Panel::Message, "Processing Font size...");
    upper.setFontSize(app.state.Font_Size);
    app.grids.FLX_Settings.setFontSize(app.state.Font_Size);
    for (std::int32_t c = 0; c < upper.Cols(); ++c) {
        bool ok = false;
        ignoringFailure([&] { PRO_Ajusta_Columna(app.widths, upper, c, ok); });
    }
    if (hasDocument) layOutAnew(app);
    upper.Refresh();
    if (hasDocument && upper.Rows() > 1)
        for (int k = 0; k < rowsMovedOn; ++k)
            ignoringFailure([&] { moveToNextRow(app); });
    app.grids.FLX_Settings.Refresh();
    try {
        app.mainForm.restartPreviews(app.state.Font_Size);
    } catch (const Run_Time_Failure&) {
        endApplying(app, hasDocument);
        throw;
    }
    endApplying(app, hasDocument);
}

void FontSizeDialog_ChangeFont(const App_Context& app, double size) {
    app.state.Font_Size = size;
    PRO_Aplica_Font(app);
}

void storeFontIndex(const App_Context& app, std::int16_t index) {
    app.settings.SaveSetting(applicationTitle, settingsSection, fontKey, numberText(std::int32_t{index}));
}

void PRO_Ajusta_Columna(const Text_Widths& widths, VSFlexGrid& grid, std::int32_t column, bool& ok) {
    std::int16_t largest = 0;
    for (std::int32_t r = 0; r < grid.Rows(); ++r) {
        const std::string text = grid.TextMatrix(r, column);
        const double width = widths.textWidth(std::string(trimBlanks(text)), grid.FontSize());
        largest = std::max(largest, toInteger(width + columnMargin));
    }
    grid.setColWidth(column, largest);
    ok = true;
}

} // namespace zorvane::app
