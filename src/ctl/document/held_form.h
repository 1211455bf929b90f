// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form.h"
#include "comm/transfer/requests/download_request.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// How the progress form of a transfer stands.
enum class Progress_State {
    Waiting,  ///< not shown yet
    Shown,    ///< the transfer runs
    Unloaded, ///< it ended by itself or was cancelled
    Closing,  ///< it failed, and the form would wait for its Ok
};

/// The progress form without a window.
class Held_Progress : public Progress_Form {
  public:
    void setLabel(const std::string& text) override;
    void setRange(std::int32_t maximum) override;
    void setValue(std::int32_t value) override;
    [[nodiscard]] std::int32_t value() const override { return value_; }
    [[nodiscard]] std::int32_t maximum() const override { return maximum_; }
    void show() override;
    void unload() override;
    void Deshabilita_Cancelar() override;

    std::function<void()> changed; ///< called after each change; may be empty

    [[nodiscard]] const std::string& label() const noexcept { return label_; }
    [[nodiscard]] Progress_State state() const noexcept { return state_; }

  private:
    void tell() const;

    std::string label_;
    std::int32_t value_ = 0;
    std::int32_t maximum_ = 0;
    Progress_State state_ = Progress_State::Waiting;
};

/// Where the user of the window would stand before choosing anything.
inline constexpr Grid_Selection firstField{1, 0, 0};

/// Two grids that show nothing: they have the document's rows and a current cell.
class Held_Grids : public Grid_View {
  public:
    Held_Grids(std::int32_t fields, const Grid_Selection& selection)
        : rows_(fields + 1), selection_(selection) {}

    [[nodiscard]] std::int32_t configurationRows() const override { return rows_; }
    [[nodiscard]] std::int32_t configurationRow() const override { return selection_.configurationRow; }
    [[nodiscard]] std::int32_t settingsRow() const override { return selection_.settingsRow; }
    [[nodiscard]] std::int32_t settingsCol() const override { return selection_.settingsCol; }
    void refillSettings(std::int32_t /*row*/) override {}
    void setSettingsText(std::int32_t row, std::int32_t col, const std::string& text) override {
        if (onText) onText(row, col, text);
    }
    void setSettingsTabStop(bool /*on*/) override {}
    void setSettingsRedraw(bool /*on*/) override {}

    /// What a refresh writes into the lower grid; may be empty.
    std::function<void(std::int32_t row, std::int32_t col, const std::string& text)> onText;

  private:
    std::int32_t rows_;
    Grid_Selection selection_;
};

/// A main form without a window: it keeps what is shown. Waits are left to those who have events.
class Held_Form : public Main_Form {
  public:
    Held_Form(std::int32_t fields, const Grid_Selection& selection) : grids_(fields, selection) {}

    int Msgb_Show(const std::string& prompt, int style, const std::string& title) override;
    void setPanel(Panel panel, const std::string& text) override;
    [[nodiscard]] std::string panel(Panel panel) const override;
    void setMenuEnabled(Menu_Entry entry, bool enabled) override { menus_[entry] = enabled; }
    [[nodiscard]] bool menuEnabled(Menu_Entry entry) const override;
    void setCaption(const std::string& /*text*/) override {}
    void setFormEnabled(bool /*enabled*/) override {}
    void setTimerEnabled(Timer_Name /*timer*/, bool /*enabled*/) override {}
    [[nodiscard]] Held_Progress& Porcentaje() override { return progress_; }
    [[nodiscard]] const Held_Progress& Porcentaje() const { return progress_; }
    [[nodiscard]] Grid_View& grids() override { return grids_; }
    [[nodiscard]] Held_Grids& held() { return grids_; }
    void setLostComShown(bool /*shown*/) override {}
    void showFrmStatus(bool /*isUpload*/) override {}
    void unloadFrmStatus() override {}
    [[nodiscard]] Bar_Lines& messageBar() override { return bar_; }
    /// Nobody reads it: a terminal shows no bar.
    [[nodiscard]] std::string timeOfDay() const override { return {}; }
    void wait_until(const std::function<bool()>& /*condition*/) override {}
    void wait_ms(std::int32_t /*milliseconds*/) override {}

    std::function<void(Timer_Name)> onTimer; ///< one tick of a timer, for forms that have any; may be empty

    /// Every text that panel 4 was given, in order.
    [[nodiscard]] const std::vector<std::string>& messages() const noexcept { return messages_; }

    [[nodiscard]] std::string lastMessage() const { return messages_.empty() ? "" : messages_.back(); }

  private:
    Held_Progress progress_;
    Held_Grids grids_;
    std::map<Panel, std::string> panels_;
    std::map<Menu_Entry, bool> menus_;
    Bar_Lines bar_;
    std::vector<std::string> messages_;
};

} // namespace zorvane::ctl
