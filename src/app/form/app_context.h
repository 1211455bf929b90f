// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/document_form.h"
#include "app/form/text_widths.h"
#include "edit/history/changed_cells.h"
#include "edit/history/history.h"
#include "grids/fill/grid_context.h"
#include "recovery/recovery.h"
#include "template/pro_leer_archivo.h"
#include "template/services/files.h"
#include "template/services/settings_store.h"

#include <cstdint>
#include <optional>
#include <string>

namespace zorvane::app {

/// The template that the program starts with, in the application folder, and its name as a document's type.
inline const std::string defaultTemplate = "kvrt.ztp";
inline const std::string defaultType = "KVRT";

/// What came of the question about unsaved changes when a document was to be closed.
enum class Leave_Outcome { NotAsked, Cancelled, Dropped, Saved, NotSaved };

/// A file as a save left it, well or not; no bytes where it can't be read again.
struct Written_File {
    std::string path;
    std::optional<std::string> bytes;
};

/// Members of the main form that only its own commands use.
struct App_State {
    std::string Filter_Text;  ///< filter built by the Open command
    double Font_Size = 8.25;  ///< of both grids and the reports, in points
    std::string documentType; ///< name of the template that the model was read from, without ".ZTP"
    /// The model was emptied while the grids still show the old document: nothing of it is worth keeping.
    bool modelEmptied = false;
    bool keptBeforeOpen = false;                  ///< and before that a copy of all of it was kept
    Leave_Outcome left = Leave_Outcome::NotAsked; ///< of the document that was last to be closed
    /// When the document's recovery copy was last brought up to date, in ms; nothing while it has no changes.
    std::optional<std::int64_t> lastCopyMs;
    bool noCopyTold = false;            ///< it was told that no copy of its changes can be kept
    edit::History history;              ///< of the document; it watches the values
    edit::Changed_Cells changed;        ///< what of the document its file doesn't say
    std::optional<bool> marksChanged{}; ///< whether changed cells are marked; nothing until somebody asked
    /// What the latest save wrote, until whoever watches the file has seen it.
    std::optional<Written_File> written{};
};

/// The main form's commands and what they work on. Nothing in it is owned.
struct App_Context {
    Grid_Context grids;
    Document_Form& mainForm;
    Files& files;
    Settings_Store& settings;
    const Text_Widths& widths;
    Recovery& recovery;
    App_State& state;
    std::string applicationFolder; ///< without a separator at its end

    [[nodiscard]] Declara_Zorvane& document() const { return grids.comm.document; }
    [[nodiscard]] Main_Form_State& form() const { return grids.comm.form; }
    [[nodiscard]] modbus_control& link() const { return grids.comm.link; }
    [[nodiscard]] Reading_Services reading() const {
        return {files, mainForm, grids.comm.link, applicationFolder};
    }
};

inline const std::string saveQuestion = "Do you want to save this file?";
inline const std::string cannotWrite =
    "The Zorvane can't write the file, please verify the read only properties...";
/// The question icon with Yes, No and Cancel.
inline constexpr int saveQuestionStyle = Msgb_Question + Msgb_YesNoCancel;

} // namespace zorvane::app
