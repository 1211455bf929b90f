#pragma once

#include "app/app_context.h"

#include <cstdint>
#include <string_view>

namespace zorvane {

/// The longest time from a change to its copy, in ms.
inline constexpr std::int32_t recoveryIntervalMs = 30'000;

/// How often the window calls the timer below, in ms.
inline constexpr std::int32_t recoveryTickMs = 5'000;

/// Brings the recovery copy of the open document up to date, unless its model was emptied: an older copy is
/// then the better one. False when there is a document whose copy couldn't be written.
bool keepCopy(const App_Context& app, std::string_view why);

/// The document was saved with that text: its copy goes, unless the document has changed again meanwhile.
void settleCopy(const App_Context& app, std::string_view saved);

/// Keeps a changed document's copy fresh: at once after the first change, and then often enough that no
/// change waits longer than `recoveryIntervalMs`. `nowMs` is any clock that never goes back.
void TMR_Copia_Timer(const App_Context& app, std::int64_t nowMs);

} // namespace zorvane
