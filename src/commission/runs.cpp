// SPDX-License-Identifier: MIT
#include "commission/runs.h"

#include "commission/folder/json_fields.h"
#include "commission/send_report.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace zorvane::commission {

namespace {

constexpr std::int32_t headVersion = 1;
constexpr std::int64_t keptMs = std::int64_t{30} * 24 * 3600 * 1000;
constexpr std::size_t keptRuns = 100;

Json textOrNull(const std::optional<std::string>& text) { return text ? Json(*text) : Json(); }

/// A folder's name holds no character that a shell or another system takes amiss.
std::string nameOf(std::string_view model) {
    std::string name;
    for (const char c : model) {
        const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        if (plain || c == '-') name += c;
    }
    return name.empty() ? "model" : name;
}

std::optional<Json> parsed(const std::optional<std::string>& text) {
    if (!text) return std::nullopt;
    Json json = Json::parse(*text, nullptr, false);
    if (json.is_discarded()) return std::nullopt;
    return json;
}

/// A number from 0 up that still is one when it grows, and that every reader of JSON keeps.
std::optional<std::int64_t> countIn(const Json& json, const char* name) {
    constexpr std::int64_t most = (std::int64_t{1} << 53) - 1;
    const auto number = numberOf<std::int64_t>(memberOf(json, name));
    return number && *number >= 0 && *number <= most ? number : std::nullopt;
}

Run_State stateOf(const Run_File_Reader& read, const std::optional<Json>& result) {
    if (isRestored(read(restoredFile))) return Run_State::Restored;
    const bool finished = result && stringOf(memberOf(*result, "state")) == "finished";
    return finished ? Run_State::Finished : Run_State::Interrupted;
}

Json countsOf(const Kept_Run& run) {
    if (run.result)
        if (const Json& counts = memberOf(*run.result, "counts"); counts.is_object()) return counts;
    const std::map<std::size_t, Write_Trace> traces = writeTraces(run.journal);
    std::map<Cell_Place, Value_State> cells; // a long text goes out in several writes
    for (std::size_t number = 0; number < run.paper.writes.size(); ++number) {
        const auto trace = traces.find(number);
        for (const Cell_Place& place : run.paper.writes[number].cells) {
            Value_State& state = cells.try_emplace(place, Value_State::Not_Sent).first->second;
            if (trace == traces.end() || state == Value_State::Unknown) continue;
            state = trace->second == Write_Trace::Refused ? Value_State::Refused : Value_State::Unknown;
        }
    }
    Value_Counts counts;
    for (const auto& [place, state] : cells)
        counts.add(state);
    return countsJson(counts);
}

void prune(Run_Store& store, std::int64_t nowMs) {
    const std::vector<Run_Entry> runs = listRuns(store);
    for (std::size_t i = keptRuns; i < runs.size(); ++i)
        if (runs[i].state != Run_State::Interrupted && nowMs - runs[i].head.startedMs > keptMs)
            store.remove(runs[i].name);
}

} // namespace

std::string headText(const Run_Head& head) {
    const Json json{{"version", headVersion},
                    {"sequence", head.sequence},
                    {"started_ms", head.startedMs},
                    {"started", head.started},
                    {"started_local", head.startedLocal},
                    {"model", head.model},
                    {"unit", head.unit},
                    {"although", textOrNull(head.although)},
                    {"restores", textOrNull(head.restores)},
                    {"program", head.program},
                    {"adapter", head.adapter.empty() ? Json() : Json(head.adapter)}};
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::optional<Run_Head> parseHead(std::string_view text) {
    try {
        const Json json = Json::parse(text);
        if (json.at("version") != headVersion) return std::nullopt;
        const auto sequence = countIn(json, "sequence");
        const auto startedMs = countIn(json, "started_ms");
        const auto unit = numberOf<std::int32_t>(memberOf(json, "unit"));
        if (!sequence || !startedMs || !unit) return std::nullopt;
        Run_Head head;
        head.sequence = *sequence;
        head.startedMs = *startedMs;
        head.unit = *unit;
        json.at("started").get_to(head.started);
        json.at("started_local").get_to(head.startedLocal);
        json.at("model").get_to(head.model);
        head.although = stringOf(json.at("although"));
        head.restores = stringOf(json.at("restores"));
        json.at("program").get_to(head.program);
        head.adapter = stringOf(memberOf(json, "adapter")).value_or("");
        return head;
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

std::string_view runStateWord(Run_State state) noexcept {
    static constexpr std::array<std::string_view, 3> words = {"finished", "interrupted", "restored"};
    return words[static_cast<std::size_t>(state)];
}

std::optional<Kept_Run> readRun(const Run_Store& store, const std::string& name) {
    return readRun([&](std::string_view file) { return store.read(name, file); });
}

std::optional<Kept_Run> readRun(const Run_File_Reader& read) {
    const auto headBytes = read(runFile);
    const auto paperBytes = read(planFile);
    if (!headBytes || !paperBytes) return std::nullopt;
    auto head = parseHead(*headBytes);
    auto paper = parsePaper(*paperBytes);
    if (!head || !paper) return std::nullopt;
    Kept_Run run;
    run.head = std::move(*head);
    run.paper = std::move(*paper);
    run.journal = readJournal(read(journalFile).value_or(""));
    run.result = parsed(read(resultFile));
    if (const auto after = parsed(read(afterFile)))
        if (auto registers = parseRegistersJson(*after)) run.after = std::move(*registers);
    run.state = stateOf(read, run.result);
    return run;
}

std::vector<Run_Entry> listRuns(const Run_Store& store) {
    std::vector<Run_Entry> entries;
    for (const std::string& name : store.names())
        if (const auto run = readRun(store, name))
            entries.push_back({name, run->head, run->paper.document.path, run->state,
                               kindOf(run->head.restores.has_value(), run->journal), countsOf(*run)});
    std::sort(entries.begin(), entries.end(), [](const Run_Entry& a, const Run_Entry& b) {
        return std::pair(a.head.sequence, a.name) > std::pair(b.head.sequence, b.name);
    });
    return entries;
}

std::map<std::int32_t, std::uint16_t> leftBy(const Kept_Run& run) {
    std::map<std::int32_t, std::uint16_t> left = run.paper.before;
    for (const Json& record : run.journal.records) {
        const auto first = numberOf<std::int32_t>(memberOf(record, "address"));
        if (!isEvent(record, "write") || !first) continue;
        std::int64_t number = *first;
        for (const Json& value : memberOf(record, "values")) {
            if (const auto word = numberOf<std::uint16_t>(value))
                left[static_cast<std::int32_t>(number)] = *word;
            ++number;
        }
    }
    for (const auto& [number, value] : run.after)
        left[number] = value;
    return left;
}

Opened_Run beginRun(Run_Store& store, const Wall_Clock& clock, Run_Beginning beginning) {
    const Wall_Time now = clock.now();
    const std::vector<Run_Entry> runs = listRuns(store);
    Run_Head& head = beginning.head;
    head.sequence = runs.empty() ? 1 : runs.front().head.sequence + 1;
    head.startedMs = now.utcMs;
    head.started = utcText(now);
    head.startedLocal = localText(now);
    Opened_Run run = store.make(nameText(now) + "-" + nameOf(head.model) + "-" + std::to_string(head.unit));
    if (!run.folder) return run;
    const std::array<std::pair<std::string, std::string>, 4> files = {
        {{std::string(runFile), headText(head)},
         {std::string(beforeFile), registersJson(beginning.paper.before).dump(1) + "\n"},
         {beginning.documentName, beginning.documentBytes},
         {std::string(planFile),
          paperJson(beginning.paper).dump(2, ' ', false, Json::error_handler_t::replace) + "\n"}}};
    for (const auto& [name, bytes] : files)
        if (std::string why = run.folder->put(name, bytes); !why.empty()) return {nullptr, why};
    prune(store, now.utcMs);
    return run;
}

} // namespace zorvane::commission
