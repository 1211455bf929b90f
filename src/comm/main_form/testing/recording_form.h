// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form.h"
#include "comm/modbus_control/testing/journal.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>

namespace zorvane::doubles {

/// A progress form that keeps what it was told and writes it to the journal.
class Recording_Progress : public Progress_Form {
  public:
    explicit Recording_Progress(Journal& journal) : journal_(journal) {}

    void setLabel(const std::string& text) override;
    void setRange(std::int32_t maximum) override;
    void setValue(std::int32_t value) override;
    [[nodiscard]] std::int32_t value() const override { return value_; }
    [[nodiscard]] std::int32_t maximum() const override { return maximum_; }
    void show() override;
    void unload() override;
    void Deshabilita_Cancelar() override;

    [[nodiscard]] const std::string& label() const noexcept { return label_; }
    [[nodiscard]] bool shown() const noexcept { return shown_; }

  private:
    Journal& journal_;
    std::string label_;
    std::int32_t value_ = 0;
    std::int32_t maximum_ = 0;
    bool shown_ = false;
};

/// Two grids of which only the texts written by the logic are kept.
class Recording_Grids : public Grid_View {
  public:
    explicit Recording_Grids(Journal& journal) : journal_(journal) {}

    // The test's side: where the user stands.
    std::int32_t rows = 1; ///< of the upper grid, with its heading row
    std::int32_t upperRow = 1;
    std::int32_t lowerRow = 1;
    std::int32_t lowerCol = 0;

    [[nodiscard]] std::int32_t configurationRows() const override { return rows; }
    [[nodiscard]] std::int32_t configurationRow() const override { return upperRow; }
    [[nodiscard]] std::int32_t settingsRow() const override { return lowerRow; }
    [[nodiscard]] std::int32_t settingsCol() const override { return lowerCol; }
    void refillSettings(std::int32_t row) override;
    void setSettingsText(std::int32_t row, std::int32_t col, const std::string& text) override;
    void setSettingsTabStop(bool on) override;
    void setSettingsRedraw(bool on) override;

    /// What stands in a cell of the lower grid; empty when nothing was written there.
    [[nodiscard]] std::string text(std::int32_t row, std::int32_t col) const;

  private:
    Journal& journal_;
    std::map<std::pair<std::int32_t, std::int32_t>, std::string> texts_;
};

/// A main form without a window. Every effect is a line of the journal, such as `panel 4 = "Ready"`,
/// `MNU_Upload disabled`, `TMR_TxRx on` or `wait 1000 ms`.
class Recording_Form : public Main_Form {
  public:
    explicit Recording_Form(Journal& journal) : progress(journal), grid(journal), journal_(journal) {}

    Recording_Progress progress;
    Recording_Grids grid;
    Bar_Lines bar; ///< what the message bar was told; it is no line of the journal
    std::string time = "14:03:22";
    std::deque<int> answers;                       ///< of the next messages; beyond them the answer is Ok
    std::function<bool()> advance;                 ///< one event during a wait; false: there is none left
    std::function<void()> duringMessage;           ///< runs while a message is up
    std::function<void()> onUnloadFrmStatus;       ///< what stands for the form; may be empty
    std::function<void(std::int32_t)> duringPause; ///< runs inside a wait for that many ms

    int Msgb_Show(const std::string& prompt, int style, const std::string& title) override;
    void setPanel(Panel panel, const std::string& text) override;
    [[nodiscard]] std::string panel(Panel panel) const override;
    void setMenuEnabled(Menu_Entry entry, bool enabled) override;
    [[nodiscard]] bool menuEnabled(Menu_Entry entry) const override;
    void setCaption(const std::string& text) override;
    void setFormEnabled(bool enabled) override;
    void setTimerEnabled(Timer_Name timer, bool enabled) override;
    [[nodiscard]] Progress_Form& Porcentaje() override { return progress; }
    [[nodiscard]] Grid_View& grids() override { return grid; }
    void setLostComShown(bool shown) override;
    void showFrmStatus(bool isUpload) override;
    void unloadFrmStatus() override;
    [[nodiscard]] Bar_Lines& messageBar() override { return bar; }
    [[nodiscard]] std::string timeOfDay() const override { return time; }
    /// Runs one scripted event after the other. A wait that nothing can end is an error of the test.
    void wait_until(const std::function<bool()>& condition) override;
    void wait_ms(std::int32_t milliseconds) override;

    [[nodiscard]] bool timerEnabled(Timer_Name timer) const { return timers_.contains(timer); }
    [[nodiscard]] bool formEnabled() const noexcept { return formEnabled_; }
    [[nodiscard]] const std::string& caption() const noexcept { return caption_; }

  private:
    Journal& journal_;
    std::map<Panel, std::string> panels_;
    std::map<Menu_Entry, bool> menus_;
    std::set<Timer_Name> timers_;
    bool formEnabled_ = true;
    std::string caption_;
};

} // namespace zorvane::doubles
