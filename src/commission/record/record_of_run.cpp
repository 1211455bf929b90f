// SPDX-License-Identifier: MIT
#include "commission/record/record_of_run.h"

#include "commission/folder/digests.h"
#include "commission/folder/journal.h"
#include "commission/folder/json_fields.h"
#include "commission/folder/wall_clock.h"
#include "template/services/file_names.h"
#include "values/code_page.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <set>
#include <tuple>

namespace zorvane::commission {

namespace {

using Place = std::tuple<std::int32_t, std::int32_t, std::int32_t>;

Json parsed(const std::optional<std::string>& text) {
    Json json = text ? Json::parse(*text, nullptr, false) : Json();
    return json.is_object() ? json : Json();
}

std::string textAt(const Json& json, const char* name) {
    return fromUtf8(stringOf(memberOf(json, name)).value_or(""));
}

std::int32_t numberAt(const Json& json, const char* name) {
    return numberOf<std::int32_t>(memberOf(json, name)).value_or(0);
}

Place placeOf(const Json& row) {
    return {numberAt(row, "field"), numberAt(row, "row"), numberAt(row, "column")};
}

/// A register's value, or those of several: "5", "16716, 17152". Empty for what isn't known.
std::string registersText(const Json& value) {
    if (value.is_number_integer()) return std::to_string(value.get<std::int64_t>());
    std::string text;
    if (!value.is_array()) return text;
    for (const Json& one : value)
        text += (text.empty() ? "" : ", ") + (one.is_null() ? std::string("?") : registersText(one));
    return text;
}

std::map<std::int32_t, std::uint16_t> registersOf(const Json& json) {
    std::map<std::int32_t, std::uint16_t> registers;
    if (!json.is_object()) return registers;
    for (const auto& [key, value] : json.items()) {
        std::int32_t number = 0;
        const auto read = std::from_chars(key.data(), key.data() + key.size(), number);
        const auto word = numberOf<std::uint16_t>(value);
        if (read.ec == std::errc{} && word) registers[number] = *word;
    }
    return registers;
}

/// The number in two or more digits at a place; nothing for anything else.
std::optional<int> digitsAt(std::string_view text, std::size_t place, std::size_t count) {
    int number = 0;
    if (text.size() < place + count) return std::nullopt;
    const char* const begin = text.data() + place;
    const auto read = std::from_chars(begin, begin + count, number);
    return read.ec == std::errc{} && read.ptr == begin + count ? std::optional(number) : std::nullopt;
}

/// "2026-11-22T07:40:05.123Z" in the zone of "2026-11-22T08:40:05+01:00". Empty for other texts.
std::string localOf(std::string_view utc, std::string_view localInZone) {
    using namespace std::chrono;
    const auto year = digitsAt(utc, 0, 4);
    const auto month = digitsAt(utc, 5, 2);
    const auto day = digitsAt(utc, 8, 2);
    const auto hour = digitsAt(utc, 11, 2);
    const auto minute = digitsAt(utc, 14, 2);
    const auto second = digitsAt(utc, 17, 2);
    if (localInZone.size() < 6 || !year || !month || !day || !hour || !minute || !second) return "";
    const std::string_view zone = localInZone.substr(localInZone.size() - 6);
    const auto zoneHour = digitsAt(zone, 1, 2);
    const auto zoneMinute = digitsAt(zone, 4, 2);
    if (!zoneHour || !zoneMinute) return "";
    const auto date = sys_days(std::chrono::year(*year) / *month / *day);
    const auto moment = date + hours(*hour) + minutes(*minute) + seconds(*second);
    const int offset = (zone[0] == '-' ? -1 : 1) * (*zoneHour * 60 + *zoneMinute);
    const auto ms = duration_cast<milliseconds>(moment.time_since_epoch()).count();
    return localText({ms, offset});
}

/// The files of one run, read once.
class Run_Files {
  public:
    Run_Files(const Run_Store& runs, const std::string& name)
        : runs_(runs), name_(name), head_(parsed(bytes(runFile))), plan_(parsed(bytes(planFile))),
          result_(parsed(bytes(resultFile))), journal_(readJournal(bytes(journalFile).value_or(""))) {}

    [[nodiscard]] bool complete() const { return head_.is_object() && plan_.is_object(); }
    [[nodiscard]] Record record() const;

  private:
    [[nodiscard]] std::optional<std::string> bytes(std::string_view file) const {
        return runs_.read(name_, file);
    }
    [[nodiscard]] std::string hashOf(std::string_view file) const {
        const auto text = bytes(file);
        return text ? sha256(*text) : "";
    }
    [[nodiscard]] std::string state() const;
    void addController(Record& record) const;
    void addTimes(Record& record) const;
    void addFiles(Record& record) const;
    void addRows(Record& record) const;
    void addNotes(Record& record) const;
    void addLink(Record& record) const;
    void addDocument(Record& record) const;
    void addRegisters(Record& record) const;
    void addFolder(Record& record) const;
    [[nodiscard]] std::map<Place, Json> planRows() const;
    [[nodiscard]] std::map<Place, std::string> statesOfJournal() const;
    template <class Visit> void forEachEvent(std::string_view event, Visit visit) const {
        for (const Json& record : journal_.records)
            if (memberOf(record, "event") == event) visit(record);
    }

    const Run_Store& runs_;
    std::string name_;
    Json head_;
    Json plan_;
    Json result_;
    Journal journal_;
};

Record Run_Files::record() const {
    Record record;
    record.run = name_;
    record.kind = runKindWord(kindOf(memberOf(head_, "restores").is_string(), journal_));
    record.adapter = fromUtf8(stringOf(memberOf(head_, "adapter")).value_or(""));
    record.state = state();
    addController(record);
    addTimes(record);
    addFiles(record);
    addRows(record);
    addNotes(record);
    addLink(record);
    addDocument(record);
    addRegisters(record);
    addFolder(record);
    return record;
}

std::string Run_Files::state() const {
    if (isRestored(bytes(restoredFile))) return "restored";
    return textAt(result_, "state") == "finished" ? "finished" : "interrupted";
}

void Run_Files::addController(Record& record) const {
    const Json& identity = memberOf(plan_, "identity");
    const Json& line = memberOf(plan_, "line");
    Record_Controller& controller = record.controller;
    controller.model = textAt(head_, "model");
    controller.unit = numberAt(head_, "unit");
    controller.serial = textAt(identity, "serial");
    controller.firmware = textAt(identity, "firmware");
    controller.verdict = textAt(identity, "verdict");
    controller.although = textAt(head_, "although");
    for (const Json& evidence : memberOf(identity, "evidence"))
        controller.evidence.push_back({textAt(evidence, "register"), textAt(evidence, "what"),
                                       textAt(evidence, "expected"), textAt(evidence, "found"),
                                       textAt(evidence, "result")});
    record.port = textAt(line, "port");
    record.settings = textAt(line, "settings");
}

void Run_Files::addTimes(Record& record) const {
    record.started = {textAt(head_, "started"), textAt(head_, "started_local")};
    forEachEvent("end", [&](const Json& end) {
        const std::string utc = textAt(end, "time");
        record.ended = {utc, localOf(utc, record.started.local)};
    });
}

void Run_Files::addFiles(Record& record) const {
    for (const char* const what : {"template", "document"})
        record.files.push_back(
            {what, textAt(memberOf(plan_, what), "path"), textAt(memberOf(plan_, what), "sha256")});
    record.files.push_back({"plan", "", hashOf(planFile)});
    record.files.push_back({"journal", "", hashOf(journalFile)});
}

std::map<Place, Json> Run_Files::planRows() const {
    std::map<Place, Json> rows;
    for (const Json& row : memberOf(plan_, "rows"))
        rows[placeOf(row)] = row;
    return rows;
}

/// Of a run without a result: what the writes of its journal leave open.
std::map<Place, std::string> Run_Files::statesOfJournal() const {
    const std::map<std::size_t, Write_Trace> traces = writeTraces(journal_);
    std::map<Place, std::string> states;
    std::size_t number = 0;
    for (const Json& write : memberOf(plan_, "writes")) {
        for (const Json& cell : memberOf(write, "cells")) {
            if (!cell.is_array() || cell.size() != 3) continue;
            std::string& state = states[{numberOf<std::int32_t>(cell[0]).value_or(0),
                                         numberOf<std::int32_t>(cell[1]).value_or(0),
                                         numberOf<std::int32_t>(cell[2]).value_or(0)}];
            const auto trace = traces.find(number);
            if (trace != traces.end() && state != "unknown") // of a long text, any of its writes
                state = trace->second == Write_Trace::Refused ? "refused" : "unknown";
            else if (state.empty())
                state = "not_sent";
        }
        ++number;
    }
    return states;
}

/// What is known of a value by its place: names and shown texts are the plan's.
Record_Row rowOf(const Place& place, const std::map<Place, Json>& planned) {
    Record_Row row;
    std::tie(row.field, row.row, row.column) = place;
    const auto found = planned.find(place);
    if (found == planned.end()) return row;
    row.page = textAt(found->second, "page");
    row.name = textAt(found->second, "name");
    row.heading = textAt(found->second, "heading");
    row.registers = textAt(found->second, "register");
    row.before = textAt(found->second, "right");
    row.sent = textAt(found->second, "left");
    return row;
}

std::string firstOf(const std::string& one, const std::string& other) { return one.empty() ? other : one; }

void Run_Files::addRows(Record& record) const {
    const std::map<Place, Json> planned = planRows();
    for (const Json& result : memberOf(result_, "rows")) {
        Record_Row row = rowOf(placeOf(result), planned);
        row.registers = firstOf(textAt(result, "register"), row.registers);
        row.before = firstOf(row.before, registersText(memberOf(result, "before")));
        row.state = textAt(result, "state");
        row.answer = textAt(result, "answer");
        const std::string wanted = firstOf(row.sent, registersText(memberOf(result, "sent")));
        row.sent = memberOf(result, "sent").is_null() ? "" : wanted;
        const std::string held = registersText(memberOf(result, "read_back"));
        row.readBack = row.state == "verified" ? wanted : held.empty() ? "" : "register: " + held;
        record.rows.push_back(std::move(row));
    }
    if (result_.is_object()) return;
    for (const auto& [place, state] : statesOfJournal()) {
        record.rows.push_back(rowOf(place, planned));
        record.rows.back().state = state;
        if (state == "not_sent") record.rows.back().sent.clear();
    }
}

void Run_Files::addNotes(Record& record) const {
    if (const std::string why = textAt(result_, "why"); !why.empty()) record.notes.push_back(why);
    if (!result_.is_object())
        record.notes.emplace_back("The run was interrupted: what became of the values whose write had begun "
                                  "isn't known.");
    if (journal_.damaged)
        record.notes.emplace_back(
            "The journal is damaged: what it says after the damage isn't in this record.");
}

void Run_Files::addLink(Record& record) const {
    Record_Link& link = record.link;
    link.reads = numberAt(memberOf(result_, "requests"), "reads");
    link.writes = numberAt(memberOf(result_, "requests"), "writes");
    std::set<std::int32_t> writes;
    std::int32_t intents = 0;
    forEachEvent("write", [&](const Json& intent) {
        writes.insert(numberAt(intent, "write"));
        ++intents;
    });
    link.retries = intents - static_cast<std::int32_t>(writes.size());
    std::int32_t unanswered = 0;
    std::vector<double> times;
    forEachEvent("answer", [&](const Json& answer) {
        unanswered += textAt(answer, "end") == "no answer" ? 1 : 0;
        const bool answered = textAt(answer, "end") == "acknowledged" || textAt(answer, "end") == "refused";
        if (answered && memberOf(answer, "us").is_number())
            times.push_back(memberOf(answer, "us").get<double>() / 1000);
    });
    link.unanswered = unanswered;
    if (times.empty()) return;
    std::sort(times.begin(), times.end());
    link.medianMs = times[times.size() / 2];
    link.p99Ms = times[std::min(times.size() - 1, times.size() * 99 / 100)];
}

/// "controller.TYPE", the type being the template's name; in older runs that of the document, or the model.
void Run_Files::addDocument(Record& record) const {
    const std::string stem = upperCase(splitName(splitPath(record.files[0].path).name).first);
    const std::string path = record.files[1].path;
    const std::size_t dot = path.rfind('.');
    const std::string type = dot == std::string::npos ? record.controller.model : path.substr(dot + 1);
    for (const std::string& ending : {stem, type, record.controller.model}) {
        const std::string name = "controller." + ending;
        if (const auto text = bytes(toUtf8(name))) {
            record.documentName = name;
            record.document = *text;
            return;
        }
    }
}

/// What the run left in a register that its writes touch: what was read last, else what was sent last and not
/// refused, else what was there before. A reading brings others along, which aren't the run's.
void Run_Files::addRegisters(Record& record) const {
    record.before = registersOf(parsed(bytes(beforeFile)));
    record.left = writtenRegisters(journal_);
    record.left.insert(record.before.begin(), record.before.end());
    for (const auto& [number, value] : registersOf(parsed(bytes(afterFile))))
        if (const auto touched = record.left.find(number); touched != record.left.end())
            touched->second = value;
}

void Run_Files::addFolder(Record& record) const {
    for (const std::string_view file :
         {runFile, planFile, beforeFile, journalFile, afterFile, resultFile, restoredFile})
        if (auto text = bytes(file)) record.folder[std::string(file)] = std::move(*text);
}

} // namespace

std::optional<Record> recordOfRun(const Run_Store& runs, const std::string& name) {
    const Run_Files files(runs, name);
    if (!files.complete()) return std::nullopt;
    return files.record();
}

} // namespace zorvane::commission
