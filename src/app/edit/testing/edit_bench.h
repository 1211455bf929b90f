// SPDX-License-Identifier: MIT
#pragma once

#include "app/document/document_commands.h"
#include "app/edit/edit_state.h"
#include "app/testing/app_bench.h"
#include "grids/fill/fill_settings.h"

#include <string>

namespace zorvane::doubles {

/// The bench with its document opened, its first page shown, and a history that hears of changes.
struct Edit_Bench : App_Bench {
    Edit_Bench() {
        app.grids.watcher = &state.history;
        app::openFile(app, "/home/site7.abc", false);
        upper.setRow(1);
        document.Selected_Field = 1;
        PRO_Llena_Settings(app.grids, 1, true);
        journal.clear();
    }

    /// The newest line of the message bar; "" when there is none.
    [[nodiscard]] std::string told() const {
        return mainForm.base.bar.lines().empty() ? "" : mainForm.base.bar.lines().front().text;
    }
    /// Both values of the first page.
    [[nodiscard]] std::string values() const { return value(1) + " " + value(2); }
};

} // namespace zorvane::doubles
