// SPDX-License-Identifier: MIT
#include "comm/main_form/title.h"

#include "values/code_page.h"

namespace zorvane {

void PRO_Titulo_Modificado(const Declara_Zorvane& document, Form_State& form, Main_Form& mainForm) {
    form.Dirty = true;
    refreshTitle(document, form, mainForm);
}

void PRO_Titulo_Limpio(const Declara_Zorvane& document, Form_State& form, Main_Form& mainForm) {
    form.Dirty = false;
    refreshTitle(document, form, mainForm);
}

void refreshTitle(const Declara_Zorvane& document, const Form_State& form, Main_Form& mainForm) {
    const std::string name = lowerCase(document.File_Stem) + "." + lowerCase(document.File_Extension);
    mainForm.setCaption((form.Dirty ? "* " : "") + name + " - Zorvane");
}

void applySaveRule(const Declara_Zorvane& document, Main_Form& mainForm) {
    mainForm.setMenuEnabled(Menu_Entry::MNU_Save,
                            upperCase(document.File_Stem) != "DEFAULT" && !document.No_Place);
}

} // namespace zorvane
