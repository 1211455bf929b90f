// SPDX-License-Identifier: MIT
// Any bytes as the files of a run's folder, as a plan of its own, and as a record: what is read is read again
// as it was written, a journal goes as far as its first line that isn't whole, and a run without a result
// calls no value verified. Lines of JSON in the journal get their check sums here, which no fuzzer
// finds.

#include "commission/folder/testing/memory_runs.h"
#include "commission/record/record_head.h"
#include "commission/record/record_json.h"
#include "commission/record/record_of_run.h"
#include "commission/runs.h"
#include "fuzz/fuzz_document.h"
#include "fuzz/require.h"
#include "fuzz/rich_template.h"
#include "fuzz/split.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <set>

namespace {

using namespace zorvane;
using namespace zorvane::commission;
using fuzz::require;

/// A long text stands in several writes.
std::size_t cellsOf(const Plan_Paper& paper) {
    std::set<Cell_Place> cells;
    for (const Plan_Write& write : paper.writes)
        cells.insert(write.cells.begin(), write.cells.end());
    return cells.size();
}

void checkPlan(const std::string& text) {
    const auto paper = parsePaper(text);
    if (!paper) return;
    const Json json = paperJson(*paper);
    const auto again = parsePaper(json.dump());
    require(again && paperJson(*again) == json, "a plan is read as it was written");
    fuzz::Fuzz_Document reader;
    reader.readTemplate(fuzz::richTemplate);
    std::vector<Plan_Write> writes = paper->writes;
    if (!completeWrites(writes, reader.document(), {})) return;
    for (const Plan_Write& write : writes)
        require(write.parts.size() == write.values.size(), "each value that is written has its part");
    require(plannedCells(writes, reader.document()).size() == cellsOf(*paper), "each cell is planned once");
}

std::string withSums(const std::string& lines) {
    std::string journal;
    for (const std::string& line : fuzz::split(lines, '\n')) {
        const Json record = Json::parse(line, nullptr, false);
        journal += (record.is_object() ? journalLine(record) : line) + "\n";
    }
    journal.pop_back();
    return journal;
}

void checkJournal(const std::string& text) {
    const Journal journal = readJournal(text);
    std::string again;
    for (const Json& record : journal.records)
        again += journalLine(record) + "\n";
    const Journal second = readJournal(again);
    require(!second.damaged && second.records == journal.records, "a journal is read as it was written");
    const Journal cut = readJournal(std::string_view(again).substr(0, again.size() / 2));
    require(!cut.damaged && cut.records.size() <= journal.records.size(), "a cut journal has no more");
    for (std::size_t i = 0; i < cut.records.size(); ++i)
        require(cut.records[i] == journal.records[i], "and the same from its beginning");
}

void checkRecord(const Record& record) {
    const auto again = recordOfJson(recordJson(record));
    require(again.has_value(), "a record is one again");
    fuzz::requireSame(recordJson(*again), recordJson(record), "a record is read as it was written");
}

void checkHeads(const std::string& text) {
    if (const auto head = headOfJson(text))
        require(headOfJson(headJson(*head)) == head, "a record's head is read as it was written");
    const Kept_Heads kept = keptOfJson(text);
    require(keptOfJson(keptJson(kept)) == kept, "heads that are kept are read as they were written");
}

/// Without a result, what became of the values is told by the journal.
void checkInterrupted(const Kept_Run& run, const Run_Entry& entry, const Record& record) {
    const std::size_t cells = cellsOf(run.paper);
    require(entry.counts.at("rows") == cells, "each value is counted once");
    require(entry.counts.at("unknown").get<std::size_t>() + entry.counts.at("not_sent").get<std::size_t>() ==
                cells,
            "as sent or as not sent");
    require(record.rows.size() <= cells, "a record has no value that the run wasn't for");
    require(countOf(record, "unknown") + countOf(record, "not_sent") == record.rows.size(),
            "and calls none verified");
}

void checkRun(const Run_Store& runs) {
    const auto run = readRun(runs, "one");
    const auto entries = listRuns(runs);
    require(entries.size() == (run ? 1U : 0U), "a run that can be read stands in the list of all");
    if (!run) return;
    require(entries[0].state == run->state, "in its state");
    const auto left = leftBy(*run);
    for (const auto& [number, value] : run->after)
        require(left.at(number) == value, "a register is left as it was read last");
    for (const auto& [number, value] : run->paper.before)
        require(left.contains(number), "what was there before is left in some way");
    const auto head = parseHead(headText(run->head));
    require(head && headText(*head) == headText(run->head), "a run's head is read as it was written");
    const auto record = recordOfRun(runs, "one");
    require(record.has_value(), "a run that can be read has a record");
    checkRecord(*record);
    if (!run->result) checkInterrupted(*run, entries[0], *record);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::string> parts = fuzz::split(std::string(data, data + size), fuzz::rowEnd);
    constexpr std::string_view names[] = {runFile,   planFile,   journalFile,
                                          afterFile, resultFile, restoredFile};
    doubles::Memory_Runs runs;
    for (std::size_t i = 0; i < parts.size() && i < std::size(names); ++i) {
        std::string& file = runs.runs["one"][std::string(names[i])];
        file = names[i] == journalFile ? withSums(parts[i]) : parts[i];
        if (names[i] == journalFile) checkJournal(file);
        if (names[i] == planFile) checkPlan(file);
    }
    checkJournal(parts[0]);
    checkHeads(parts[0]);
    if (const auto record = recordOfJson(parts[0])) checkRecord(*record);
    checkRun(runs);
    return 0;
}
