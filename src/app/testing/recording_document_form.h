// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/document_form.h"
#include "app/testing/scripted_dialog.h"
#include "comm/main_form/testing/recording_form.h"
#include "grids/rules/vsflexgrid.h"

#include <map>
#include <string>

namespace zorvane::doubles {

/// A main form without a window, in which the two grids lie. Effects go to the journal as those of
/// `Recording_Form` do, and those of the document commands beside them: `Frame2 hidden`, `form shown`. What
/// became of a grid since the last effect stands before the next one: `FLX_Settings 3x2 at row 1`.
class Recording_Document_Form : public app::Document_Form {
  public:
    Recording_Document_Form(Journal& journal, const VSFlexGrid& upper, const VSFlexGrid& lower)
        : base(journal), scriptedDialog(journal), journal_(journal), upper_(upper), lower_(lower) {}

    Recording_Form base;
    Scripted_Dialog scriptedDialog;
    Twips_Rect place{.left = 2000, .top = 1000, .width = 6990, .height = 7380}; ///< of the form
    Twips_Rect screenSize{.left = 0, .top = 0, .width = 28800, .height = 16200};
    bool ended = false;
    bool previewsFail = false; ///< with failure 9, when they are made again

    int Msgb_Show(const std::string& prompt, int style, const std::string& title) override;
    void setPanel(Panel panel, const std::string& text) override;
    [[nodiscard]] std::string panel(Panel panel) const override { return base.panel(panel); }
    void setMenuEnabled(Menu_Entry entry, bool enabled) override;
    [[nodiscard]] bool menuEnabled(Menu_Entry entry) const override { return base.menuEnabled(entry); }
    void setCaption(const std::string& text) override;
    void setFormEnabled(bool enabled) override;
    void setTimerEnabled(Timer_Name timer, bool enabled) override;
    [[nodiscard]] Progress_Form& Porcentaje() override { return base.Porcentaje(); }
    [[nodiscard]] Grid_View& grids() override { return base.grids(); }
    void setLostComShown(bool shown) override { base.setLostComShown(shown); }
    void showFrmStatus(bool isUpload) override { base.showFrmStatus(isUpload); }
    void unloadFrmStatus() override { base.unloadFrmStatus(); }
    [[nodiscard]] Bar_Lines& messageBar() override { return base.messageBar(); }
    [[nodiscard]] std::string timeOfDay() const override { return base.timeOfDay(); }
    void wait_until(const std::function<bool()>& condition) override { base.wait_until(condition); }
    void wait_ms(std::int32_t milliseconds) override;

    void setPartVisible(app::Form_Part part, bool visible) override;
    void setPartEnabled(app::Form_Part part, bool enabled) override;
    void setMenuChecked(Menu_Entry entry, bool checked) override;
    [[nodiscard]] bool menuChecked(Menu_Entry entry) const override;
    [[nodiscard]] Twips_Rect formRectangle() const override { return place; }
    void moveForm(const Twips_Rect& rectangle) override;
    [[nodiscard]] Twips_Rect screen() const override { return screenSize; }
    void showForm() override { note("form shown"); }
    void loadFrmDebug() override { note("FrmDebug loaded"); }
    void removeTrayIcon() override { note("tray icon removed"); }
    void removeColumnTip() override { note("column tip removed"); }
    void openAsText(const std::string& path) override { note("opened as text " + path); }
    void closePreviews() override { note("previews closed"); }
    void restartPreviews(double fontSize) override;
    void endProgram() override;
    void choose(const std::string& entry) override { note("chosen " + entry); }
    [[nodiscard]] app::CommonDialog& dialog() override { return scriptedDialog; }

    [[nodiscard]] bool visible(app::Form_Part part) const;

  private:
    /// A grid as the journal last had it.
    struct Grid_Seen {
        std::string layout = "0x0 at row -1";
        bool visible = true;
    };

    void watch();
    void watch(const char* name, const VSFlexGrid& grid, Grid_Seen& seen);
    void note(const std::string& line);

    Journal& journal_;
    const VSFlexGrid& upper_;
    const VSFlexGrid& lower_;
    Grid_Seen upperSeen_;
    Grid_Seen lowerSeen_;
    std::map<app::Form_Part, bool> visible_;
    std::map<Menu_Entry, bool> checked_;
};

} // namespace zorvane::doubles
