// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form_state.h"
#include "comm/main_form/presenter.h"
#include "comm/modbus_control/modbus_control.h"
#include "comm/modbus_control/register_image.h"
#include "template/model/declara_zorvane.h"

namespace zorvane {

/// What every transfer works on. Nothing in it is owned; the main form's owner keeps all of it alive.
struct Comm_Context {
    Declara_Zorvane& document;
    Main_Form_State& form;
    modbus_control& link;
    Main_Form& mainForm;
    Transfer_Watcher* watcher = nullptr; ///< told of each event after the form showed it; may be null

    [[nodiscard]] Register_Image image() const { return Register_Image(link, form.Unit_Id); }
    /// Something happened: the form shows it.
    void tell(const Transfer_Event& event) const {
        Presenter(mainForm).show(event);
        if (watcher != nullptr) watcher->note(event);
    }
};

} // namespace zorvane
