// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/journal.h"
#include "commission/folder/run_store.h"
#include "commission/folder/wall_clock.h"
#include "commission/plan/plan_paper.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::commission {

/// What a run was begun with: `run.json`. Texts in UTF-8.
struct Run_Head {
    std::int64_t sequence = 0; ///< goes up with each run, whatever the clock on the wall does
    std::int64_t startedMs = 0;
    std::string started; ///< UTC
    std::string startedLocal;
    std::string model;
    std::int32_t unit = 1;
    std::optional<std::string> although; ///< somebody went on with another controller, by this model's name
    std::optional<std::string> restores; ///< the run whose values it puts back
    std::string program;                 ///< "zorvanectl 0.1.0"
    std::string adapter{};               ///< what the system calls that of the port; empty: not known
};

[[nodiscard]] std::string headText(const Run_Head& head);
[[nodiscard]] std::optional<Run_Head> parseHead(std::string_view text);

enum class Run_State { Finished, Interrupted, Restored };

/// "finished", "interrupted" or "restored".
[[nodiscard]] std::string_view runStateWord(Run_State state) noexcept;

/// A run in the list of all.
struct Run_Entry {
    std::string name;
    Run_Head head;
    std::string document; ///< its path
    Run_State state = Run_State::Interrupted;
    Run_Kind kind = Run_Kind::Send;
    Json counts;
};

/// All runs that can be read, the newest first.
[[nodiscard]] std::vector<Run_Entry> listRuns(const Run_Store& store);

/// A run as its folder tells it.
struct Kept_Run {
    Run_Head head;
    Plan_Paper paper;
    Journal journal;
    std::map<std::int32_t, std::uint16_t> after; ///< the touched registers as they were read last
    std::optional<Json> result;
    Run_State state = Run_State::Interrupted;
};

/// The bytes of a file of one run; nothing when it isn't there.
using Run_File_Reader = std::function<std::optional<std::string>(std::string_view file)>;

/// Nothing when there is no such run, or its head or plan can't be read.
[[nodiscard]] std::optional<Kept_Run> readRun(const Run_File_Reader& read);
[[nodiscard]] std::optional<Kept_Run> readRun(const Run_Store& store, const std::string& name);

/// What a run left in a register that its writes set, as far as its folder tells: what was read last, else
/// what was sent last, else what was there before.
[[nodiscard]] std::map<std::int32_t, std::uint16_t> leftBy(const Kept_Run& run);

/// Begins a run: its folder with head, plan, registers before and the controller's document. What was kept
/// for long goes: runs that ended, are older than 30 days and aren't among the newest 100.
struct Run_Beginning {
    Run_Head head; ///< sequence and times are filled in
    const Plan_Paper& paper;
    std::string documentName; ///< of the file with the controller's values, such as "controller.KVRT207D"
    std::string documentBytes;
};
[[nodiscard]] Opened_Run beginRun(Run_Store& store, const Wall_Clock& clock, Run_Beginning beginning);

} // namespace zorvane::commission
