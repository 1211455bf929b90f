// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/common_dialog.h"
#include "comm/main_form/main_form.h"
#include "values/twips.h"

namespace zorvane::app {

/// Parts of the main form that the document commands show, hide and disable.
enum class Form_Part { Frame2, Frame3, PicLineHoriz };

/// What the commands ask of the main form beyond what the transfers do.
class Document_Form : public Main_Form {
  public:
    virtual void setPartVisible(Form_Part part, bool visible) = 0;
    virtual void setPartEnabled(Form_Part part, bool enabled) = 0;
    virtual void setMenuChecked(Menu_Entry entry, bool checked) = 0;
    [[nodiscard]] virtual bool menuChecked(Menu_Entry entry) const = 0;

    [[nodiscard]] virtual Twips_Rect formRectangle() const = 0;
    virtual void moveForm(const Twips_Rect& place) = 0;
    /// The screen's width and height in twips, in `width` and `height`.
    [[nodiscard]] virtual Twips_Rect screen() const = 0;
    /// The main form, modeless.
    virtual void showForm() = 0;
    virtual void loadFrmDebug() = 0;
    virtual void removeTrayIcon() = 0;
    virtual void removeColumnTip() = 0;
    virtual void closePreviews() = 0;
    /// Each preview that is open and has pages is made again with that font size, in points.
    virtual void restartPreviews(double fontSize) = 0;
    virtual void endProgram() = 0;
    /// Opens a file with whatever the desktop edits texts with.
    virtual void openAsText(const std::string& path) = 0;

    /// The user chose an entry of the menu by another way, by its given name ("MNU_Recover"). Nothing happens
    /// while it is disabled.
    virtual void choose(const std::string& entry) = 0;

    [[nodiscard]] virtual CommonDialog& dialog() = 0;
};

} // namespace zorvane::app
