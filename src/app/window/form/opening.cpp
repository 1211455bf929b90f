// SPDX-License-Identifier: MIT
#include "app/window/form/opening.h"

namespace zorvane::app {

void openAnother(const Menu_Context& menu, const std::function<void()>& open) {
    const auto before = menu.app.document().Edition;
    {
        const Mouse_Track_Held held(menu.app.grids.navigation);
        open();
    }
    menu.mainForm.timers().setInterval(Timer_Name::TMR_Forza_analogas, menu.app.document().Forza_Analogas_Ms);
    const std::function<void()>& opened = menu.mainForm.extras.documentOpened;
    if (opened && menu.app.document().Edition != before) opened();
}

} // namespace zorvane::app
