// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zorvane::app {

/// The longest time from a change to its copy, in ms.
inline constexpr std::int32_t recoveryIntervalMs = 30'000;

/// The longest time from the first change after an Open, a save or a quiet while to its copy, in ms.
inline constexpr std::int32_t firstCopyMs = 1'000;

/// How often the window calls the timer below, in ms.
inline constexpr std::int32_t recoveryLookMs = 500;

/// The timer may come so late, in ms, without a further change waiting longer than `recoveryIntervalMs`.
inline constexpr std::int32_t recoveryTickMs = 5'000;

/// Whether the document has changes that no file has: it carries the mark, or differs from what its file
/// says.
[[nodiscard]] bool hasChanges(const App_Context& app);

/// Brings the recovery copy of the open document up to date, unless its model was emptied: an older copy is
/// then the better one. False when there is a document whose copy couldn't be written.
bool keepCopy(const App_Context& app, std::string_view why);

/// The same after a save that failed: the copy is on offer at once.
bool keepFailedSave(const App_Context& app, std::string_view why);

/// The document is as its file says: what it holds now is no change.
void settleDocument(const App_Context& app);

/// The copy of a saved document goes, unless the document has changed again meanwhile.
void settleCopy(const App_Context& app);

/// Keeps the bytes of a file that is about to be written over with `text`. A file that holds just that, or
/// nothing, and one that isn't there loses nothing. False when there is something to lose that couldn't be
/// kept.
bool keepFileBefore(const App_Context& app, const std::string& path, std::string_view text = {});

/// A document about to be closed or replaced: what it has of changes that no file has is kept in a copy
/// first.
class Leaving {
  public:
    Leaving(const App_Context& app, std::string_view why);
    /// Once the document is gone: tells of changes that nobody said may go.
    void tell() const;

    [[nodiscard]] const std::string& name() const noexcept { return name_; }

  private:
    const App_Context& app_;
    std::string name_;
    bool changes_;
    bool kept_;
};

/// Keeps a changed document's copy fresh: at once after the first change, and then often enough that no
/// change waits longer than `recoveryIntervalMs`. `nowMs` is any clock that never goes back.
void TMR_Copia_Timer(const App_Context& app, std::int64_t nowMs);

} // namespace zorvane::app
