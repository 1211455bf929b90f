// SPDX-License-Identifier: MIT
#pragma once

#include "app/desktop/event_edge.h"
#include "app/form/document_form.h"
#include "app/window/form/form_timers.h"
#include "app/window/form/window_dialog.h"
#include "app/window/form/window_grids.h"
#include "app/window/form/window_progress.h"
#include "commission/plan/chosen_cells.h"
#include "ui/main/main_window.h"

#include <functional>

namespace zorvane::ui {
class Frm_Debug;
class Lost_Com;
} // namespace zorvane::ui

namespace zorvane::app {

/// What the tray, the column tip, the previews and the status form do when the main form is asked for them.
/// Each may be empty: then there is none.
struct Window_Extras {
    std::function<void()> removeTrayIcon;
    std::function<void()> updateColumnTip;
    std::function<void()> removeColumnTip;
    std::function<void()> closePreviews;
    std::function<void(double fontSize)> restartPreviews;
    std::function<void(bool isUpload)> showFrmStatus;
    std::function<void()> unloadFrmStatus;
    std::function<void()> stateChanged;   ///< the title or an entry of the menu may stand differently
    std::function<void()> formEnabledSet; ///< the form was enabled or disabled
    std::function<void()> documentOpened; ///< another document is in the window, or none
    std::function<void()> documentSaved;  ///< Save or Save As has ended, well or not
    std::function<void(const std::string& path)> openAsText;
    /// Opens "Send Changes" with these cells ticked; with all that differ when none is named.
    std::function<void(const commission::Chosen_Cells& chosen)> sendChanges;
    /// Opens "Compare" with that file; with the controller when the path is empty.
    std::function<void(const std::string& path)> compare;
};

/// The main form on the screen, as the logic knows it.
class Window_Form final : public Document_Form {
  public:
    /// Both outlive it.
    Window_Form(ui::Main_Window& window, Event_Edge& edge);

    Window_Extras extras;
    /// Shows a message and waits for the answer; whatever drives the program in a test replaces this.
    std::function<int(const QString& prompt, int style, const QString& title)> ask;

    int Msgb_Show(const std::string& prompt, int style, const std::string& title) override;
    void setPanel(Panel panel, const std::string& text) override;
    [[nodiscard]] std::string panel(Panel panel) const override;
    void setMenuEnabled(Menu_Entry entry, bool enabled) override;
    [[nodiscard]] bool menuEnabled(Menu_Entry entry) const override;
    void setCaption(const std::string& text) override;
    void setFormEnabled(bool enabled) override;
    void setTimerEnabled(Timer_Name timer, bool enabled) override { timers_.setEnabled(timer, enabled); }
    [[nodiscard]] Window_Progress& Porcentaje() override { return progress_; }
    [[nodiscard]] Window_Grids& grids() override { return grids_; }
    void setLostComShown(bool shown) override;
    void showFrmStatus(bool isUpload) override;
    void unloadFrmStatus() override;
    [[nodiscard]] Bar_Lines& messageBar() override { return bar_; }
    [[nodiscard]] std::string timeOfDay() const override;
    /// A wait ends by `Program_Ended` when the program ends meanwhile.
    void wait_until(const std::function<bool()>& condition) override;
    void wait_ms(std::int32_t milliseconds) override;

    /// The splitter is there when both boxes are.
    void setPartVisible(Form_Part part, bool visible) override;
    void setPartEnabled(Form_Part part, bool enabled) override;
    void setMenuChecked(Menu_Entry entry, bool checked) override;
    [[nodiscard]] bool menuChecked(Menu_Entry entry) const override;
    [[nodiscard]] Twips_Rect formRectangle() const override;
    /// A place where the form couldn't be reached is moved to where it can, and no form is larger than the
    /// screen.
    void moveForm(const Twips_Rect& place) override;
    [[nodiscard]] Twips_Rect screen() const override;
    void showForm() override;
    void loadFrmDebug() override;
    void removeTrayIcon() override;
    void removeColumnTip() override;
    void closePreviews() override;
    void restartPreviews(double fontSize) override;
    void openAsText(const std::string& path) override;
    void endProgram() override { endProgram(0); }
    void choose(const std::string& entry) override;
    [[nodiscard]] Window_Dialog& dialog() override { return dialog_; }

    /// Opens the comparison of the document with a file, or with the controller where the path is empty.
    /// Nothing while the menu's entry is disabled.
    void compareWith(const std::string& path);

    /// Closes what waits for an answer, and from now on answers every question with Cancel, without a box.
    void endQuestions();
    /// Ends the event loops, all of them, with that exit code.
    void endProgram(int exitCode);
    [[nodiscard]] int exitCode() const noexcept { return exitCode_; }

    [[nodiscard]] Form_Timers& timers() { return timers_; }
    [[nodiscard]] ui::Main_Window& window() { return window_; }
    /// Loads it first if need be.
    [[nodiscard]] ui::Frm_Debug& FrmDebug();
    /// The window that a new dialog belongs to; none before the main form is shown.
    [[nodiscard]] QWidget* dialogParent() const;

  private:
    [[nodiscard]] QWidget& part(Form_Part part) const;
    void giveFocusBack();

    ui::Main_Window& window_;
    Event_Edge& edge_;
    Form_Timers timers_;
    Window_Progress progress_;
    Window_Grids grids_;
    Window_Dialog dialog_;
    Bar_Lines bar_;
    ui::Frm_Debug* frmDebug_ = nullptr; ///< this and the next belong to the window
    ui::Lost_Com* lostCom_ = nullptr;
    bool printPageEnabled_ = true; ///< by itself, whatever its menu is
    bool asksNobody_ = false;
    int exitCode_ = 0;
};

/// A text of the core as people read it: names of files as the desktop has them, and plain line ends.
[[nodiscard]] QString shownText(const std::string& text);

/// A window's place on a screen of that size, both in twips, so that its title can be reached and it is
/// neither larger than the screen nor too small to be seen.
[[nodiscard]] Twips_Rect reachable(Twips_Rect place, const Twips_Rect& screen);

} // namespace zorvane::app
