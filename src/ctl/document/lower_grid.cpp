// SPDX-License-Identifier: MIT
#include "ctl/document/lower_grid.h"

#include "comm/modbus_control/dry_run_link.h"
#include "ctl/document/held_form.h"
#include "grids/rules/typed_entry.h"

namespace zorvane::ctl {

namespace {

/// A register image behind a link that may be lost.
class Scene_Link final : public Dry_Run_Link {
  public:
    Scene_Link(const compare::Register_Values& registers, bool lost) : Dry_Run_Link(registers), lost_(lost) {}
    [[nodiscard]] bool CommLost() const override { return lost_; }

  private:
    bool lost_;
};

/// A main form without a window that keeps what it tells its user.
class Telling_Form final : public Held_Form {
  public:
    using Held_Form::Held_Form;

    int Msgb_Show(const std::string& prompt, int style, const std::string& title) override {
        told_.push_back({style, title, prompt});
        return Held_Form::Msgb_Show(prompt, style, title);
    }
    [[nodiscard]] const std::vector<Message_Note>& told() const noexcept { return told_; }

  private:
    std::vector<Message_Note> told_;
};

std::optional<Failure_Note> noteOf(const std::optional<Run_Time_Failure>& failure) {
    if (!failure) return std::nullopt;
    return Failure_Note{failure->number(), failure->description()};
}

/// Whether a text stands for nothing in its cell, so that the commit puts 0 there. A place that isn't there
/// sorts nothing out.
bool isSortedOut(const Declara_Zorvane& document, const Cell_Place& place, const std::string& text) {
    bool sortedOut = false;
    ignoringFailure([&] {
        const Cell_Table& cells = document.Fields(place.field).Cells;
        const Cell_Rec& cell = cells(place.row, place.column);
        const Entry_Kind kind = typedEntry(cells(0, place.column), cell, text).kind;
        sortedOut = !cell.Has_Messages && (kind == Entry_Kind::Bad_Time || kind == Entry_Kind::Not_Numeric);
    });
    return sortedOut;
}

} // namespace

Shown_Grid showField(Declara_Zorvane& document, std::int32_t field,
                     const std::optional<Online_Scene>& scene) {
    Scene_Link link(scene ? scene->registers : compare::Register_Values{}, scene && scene->lost);
    Main_Form_State form;
    form.Online = scene.has_value();
    if (scene) form.Current_Request = scene->request;
    Held_Form mainForm(document.Field_Count, firstField);
    Shown_Grid shown;
    shown.table = settingsTable(Comm_Context{document, form, link, mainForm}, field);
    shown.failure = noteOf(shown.table.failure);
    return shown;
}

Entry_Note commitEntry(Declara_Zorvane& document, const Cell_Place& place, const std::string& text) {
    Dry_Run_Link link;
    Main_Form_State form;
    Telling_Form mainForm(document.Field_Count, firstField);
    Entry_Note note;
    note.sortedOut = isSortedOut(document, place, text);
    note.outcome =
        enterValue(Comm_Context{document, form, link, mainForm}, place.field, place.row, place.column, text);
    note.failure = noteOf(note.outcome.failure);
    note.messages = mainForm.told();
    note.Dirty = form.Dirty;
    return note;
}

} // namespace zorvane::ctl
