// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/message_bar.h"
#include "template/services/asker.h"

#include <cstdint>
#include <functional>
#include <string>

namespace zorvane {

/// Entries of the menu that the logic switches.
enum class Menu_Entry {
    MNU_Open,
    MNU_Close,
    MNU_Save,
    MNU_Saveas,
    MNU_Print,
    MNU_PrintPage,
    MNU_PrintAll,
    MNU_Grid,
    MNU_Upload,
    MNU_Download,
    MNU_Disconnect,
    separador4, ///< "&Modbus Monitor"
};

/// Timers that the logic starts and stops. Their intervals are in ms.
enum class Timer_Name {
    TMR_Abre_ZTP,          ///< 100, once
    TMR_Inicial_ZTP,       ///< 200, once
    TMR_Verifica_monitor,  ///< 500
    TMR_Actualiza_valores, ///< 10
    TMR_Actualiza_online,  ///< 400
    TMR_TxRx,              ///< 90
    TMR_Forza_analogas,    ///< set by the template
    TIM_Tamaño_normal,     ///< 100, once
};

/// Panels of the status bar, by number.
enum class Panel : int {
    ReadOnly = 1,
    LinkState = 2,
    Unit = 3,
    Message = 4,
    Tx = 5,
    Rx = 6,
};

/// The progress form `Porcentaje`: a label, a bar, and Cancel, or Ok once it is closing.
class Progress_Form {
  public:
    virtual ~Progress_Form() = default;
    virtual void setLabel(const std::string& text) = 0;
    /// Bar from 0 to `maximum`, standing at 0.
    virtual void setRange(std::int32_t maximum) = 0;
    virtual void setValue(std::int32_t value) = 0;
    [[nodiscard]] virtual std::int32_t value() const = 0;
    [[nodiscard]] virtual std::int32_t maximum() const = 0;
    /// Shown without blocking, above the main form.
    virtual void show() = 0;
    virtual void unload() = 0;
    /// The closing state: Ok in place of Cancel, the bar at 0.
    virtual void Deshabilita_Cancelar() = 0;
};

/// What the transfers ask of the two grids.
class Grid_View {
  public:
    virtual ~Grid_View() = default;
    /// Rows of FLX_Configuration, the heading row included.
    [[nodiscard]] virtual std::int32_t configurationRows() const = 0;
    /// The current row of FLX_Configuration, which is the number of the field shown.
    [[nodiscard]] virtual std::int32_t configurationRow() const = 0;
    /// The current cell of FLX_Settings, from 0.
    [[nodiscard]] virtual std::int32_t settingsRow() const = 0;
    [[nodiscard]] virtual std::int32_t settingsCol() const = 0;
    /// Fills FLX_Settings again with the field of that row (`PRO_Llena_Settings`).
    virtual void refillSettings(std::int32_t row) = 0;
    virtual void setSettingsText(std::int32_t row, std::int32_t col, const std::string& text) = 0;
    virtual void setSettingsTabStop(bool on) = 0;
    virtual void setSettingsRedraw(bool on) = 0;
};

/// What the logic asks of the main form. The window, the terminal program and the tests each implement it.
class Main_Form : public Asker {
  public:
    virtual void setPanel(Panel panel, const std::string& text) = 0;
    [[nodiscard]] virtual std::string panel(Panel panel) const = 0;
    virtual void setMenuEnabled(Menu_Entry entry, bool enabled) = 0;
    [[nodiscard]] virtual bool menuEnabled(Menu_Entry entry) const = 0;
    virtual void setCaption(const std::string& text) = 0;
    virtual void setFormEnabled(bool enabled) = 0;
    virtual void setTimerEnabled(Timer_Name timer, bool enabled) = 0;
    [[nodiscard]] virtual Progress_Form& Porcentaje() = 0;
    [[nodiscard]] virtual Grid_View& grids() = 0;
    virtual void setLostComShown(bool shown) = 0;
    /// Opens the transfer status form on the records of the last transfer.
    virtual void showFrmStatus(bool isUpload) = 0;
    /// Takes the transfer status form away, if there is one.
    virtual void unloadFrmStatus() = 0;
    [[nodiscard]] virtual Message_Bar& messageBar() = 0;
    /// "14:03:22", as the clock on the wall shows it.
    [[nodiscard]] virtual std::string timeOfDay() const = 0;

    /// Serves events until the condition holds. It is asked again after each event; no time passes spinning.
    virtual void wait_until(const std::function<bool()>& condition) = 0;
    /// Serves events for that long.
    virtual void wait_ms(std::int32_t milliseconds) = 0;
};

} // namespace zorvane
