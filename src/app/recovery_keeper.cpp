#include "app/recovery_keeper.h"

namespace zorvane {

namespace {

/// A change just after a copy waits for the next due tick, and that may come a tick late.
constexpr std::int32_t copyEveryMs = recoveryIntervalMs - 2 * recoveryTickMs;

} // namespace

bool keepCopy(const App_Context& app, std::string_view why) {
    if (app.state.modelEmptied || !app.form().Document_Open) return true;
    return app.recovery.keep(app.document(), app.state.documentType, why);
}

void settleCopy(const App_Context& app, std::string_view saved) {
    if (recoveryText(app.document()) == saved)
        app.recovery.drop();
    else
        keepCopy(app, "changed while saving");
}

void TMR_Copia_Timer(const App_Context& app, std::int64_t nowMs) {
    std::optional<std::int64_t>& last = app.state.lastCopyMs;
    if (!app.form().Dirty) {
        last.reset();
        return;
    }
    if (last && nowMs - *last < copyEveryMs) return;
    if (keepCopy(app, "changed")) last = nowMs;
}

} // namespace zorvane
