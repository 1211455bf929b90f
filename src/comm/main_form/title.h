// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form.h"
#include "comm/main_form/main_form_state.h"
#include "template/model/declara_zorvane.h"

namespace zorvane {

/// Marks the document as differing from its file, with "* " before its name in the caption.
void PRO_Titulo_Modificado(const Declara_Zorvane& document, Form_State& form, Main_Form& mainForm);

/// Marks the document as being as its file, with its plain name in the caption.
void PRO_Titulo_Limpio(const Declara_Zorvane& document, Form_State& form, Main_Form& mainForm);

/// Writes the caption again and leaves the mark as it is.
void refreshTitle(const Declara_Zorvane& document, const Form_State& form, Main_Form& mainForm);

/// After a change: Save is on, except for the factory file of a model, which is never overwritten, and for a
/// document without a place, which Save As has to give one first.
void applySaveRule(const Declara_Zorvane& document, Main_Form& mainForm);

} // namespace zorvane
