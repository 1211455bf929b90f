// SPDX-License-Identifier: MIT
#include "commission/record/record_sections.h"

#include "values/numbers.h"

#include <algorithm>
#include <cmath>

namespace zorvane::commission {

namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr const char* unknownText = "not known";

std::string orUnknown(const std::string& text) { return text.empty() ? unknownText : text; }

std::string countText(std::size_t count) { return std::to_string(count); }

std::string numberOr(const std::optional<std::int32_t>& number) {
    return number ? numberText(*number) : unknownText;
}

/// Milliseconds to a tenth.
std::string msText(const std::optional<double>& ms) {
    if (!ms) return unknownText;
    const auto tenths = static_cast<std::int32_t>(std::lround(*ms * 10));
    return numberText(tenths / 10) + "." + numberText(tenths % 10) + " ms";
}

/// Words on the left, what they mean on the right.
Record_Section facts(std::string title, Rows rows) {
    return {std::move(title), {{"", 22, false}, {"", 78, false}}, false, false, std::move(rows)};
}

Record_Section head(const Record& record) {
    const Record_Head& head = record.head;
    return facts("Record of a change",
                 {{"Site", head.site},
                  {"Panel", head.panel},
                  {"Order", head.order},
                  {"Tested by", head.testedBy},
                  {"Witnessed by", head.witnessedBy},
                  {"Controller", record.controller.model + ", unit " + numberText(record.controller.unit) +
                                     ", serial number " + orUnknown(record.controller.serial)},
                  {"Run", record.run + " (" + record.kind + ", " + record.state + ")"}});
}

Record_Section result(const Record& record) {
    Record_Section section{"Result", {}, true, false, {{}}};
    for (const char* const state : recordStates) {
        section.columns.push_back({stateText(state), 17, true});
        section.rows[0].push_back(countText(countOf(record, state)));
    }
    section.columns.push_back({"values", 15, true});
    section.rows[0].push_back(countText(record.rows.size()));
    return section;
}

std::string valueName(const Record_Row& row) {
    std::string name = row.page;
    for (const std::string& part : {row.name, row.heading})
        if (!part.empty()) name += (name.empty() ? "" : ", ") + part;
    return name;
}

std::vector<std::string> changed(const Record_Row& row) {
    const std::string why = row.answer.empty() ? "" : ": " + row.answer;
    return {valueName(row), row.registers, row.before, row.sent, row.readBack, stateText(row.state) + why};
}

const std::vector<Record_Column> changedColumns = {{"Value", 30, false},     {"Register", 12, false},
                                                   {"Before", 12, false},    {"Sent", 12, false},
                                                   {"Read back", 12, false}, {"State", 22, false}};

/// A sentence in the place of a table.
Record_Section sentence(std::string title, std::string text) {
    return {std::move(title), {{"", 100, false}}, false, false, {{std::move(text)}}};
}

Record_Section notVerified(const Record& record) {
    const std::string title = "Not verified";
    Record_Section section{title, changedColumns, true, false, {}};
    for (const Record_Row& row : record.rows)
        if (row.state != "verified") section.rows.push_back(changed(row));
    if (!section.rows.empty()) return section;
    if (record.rows.empty()) return sentence(title, "No value was to be written.");
    return sentence(title, "None: each value was read back after it was written, and was as sent.");
}

void addNotes(std::vector<Record_Section>& sections, const Record& record) {
    if (record.notes.empty()) return;
    Record_Section section{"To be noted", {{"", 100, false}}, false, false, {}};
    for (const std::string& note : record.notes)
        section.rows.push_back({note});
    sections.push_back(std::move(section));
}

std::string identityText(const Record_Controller& controller) {
    std::string text = "can't be told: nothing that was read tells " + controller.model + " from others";
    if (controller.verdict == "is") text = "is " + controller.model;
    if (controller.verdict == "isn't") text = "isn't " + controller.model;
    if (!controller.although.empty()) text += "; sent although, by the name " + controller.although;
    return text;
}

Record_Section controller(const Record_Controller& controller) {
    return facts("Controller", {{"Model", controller.model},
                                {"Unit", numberText(controller.unit)},
                                {"Identity", identityText(controller)},
                                {"Serial number", orUnknown(controller.serial)},
                                {"Firmware", orUnknown(controller.firmware)}});
}

void addEvidence(std::vector<Record_Section>& sections, const Record_Controller& controller) {
    if (controller.evidence.empty()) return;
    Record_Section section{"Evidence of the identity",
                           {{"Register", 14, false},
                            {"What", 30, false},
                            {"Expected", 22, false},
                            {"Found", 22, false},
                            {"Result", 12, false}},
                           true,
                           false,
                           {}};
    for (const Record_Evidence& evidence : controller.evidence)
        section.rows.push_back(
            {evidence.registers, evidence.what, evidence.expected, evidence.found, evidence.result});
    sections.push_back(std::move(section));
}

Record_Section line(const Record& record) {
    return facts("Line", {{"Port", record.port},
                          {"Settings", orUnknown(record.settings)},
                          {"Adapter", orUnknown(record.adapter)}});
}

Record_Section times(const Record& record) {
    return {"Times",
            {{"", 22, false}, {"UTC", 39, false}, {"Local", 39, false}},
            true,
            false,
            {{"Started", orUnknown(record.started.utc), orUnknown(record.started.local)},
             {"Ended", orUnknown(record.ended.utc), orUnknown(record.ended.local)}}};
}

Record_Section files(const Record& record) {
    Record_Section section = facts("Files", {});
    for (const Record_File& file : record.files) {
        if (!file.path.empty()) section.rows.push_back({file.what, file.path});
        section.rows.push_back({file.path.empty() ? file.what : "", "SHA-256 " + orUnknown(file.sha256)});
    }
    section.rows.push_back({"", "A hash tells whether two files are the same. It is no signature."});
    return section;
}

Record_Section changes(const Record& record) {
    if (record.rows.empty()) return sentence("Values", "No value was to be written.");
    Record_Section section{"Values", changedColumns, true, false, {}};
    for (const Record_Row& row : record.rows)
        section.rows.push_back(changed(row));
    return section;
}

Record_Section deviations(const Record& record) {
    const std::string title = "Deviations from the factory values";
    if (!record.deviations)
        return sentence(title, "Not known: the template isn't where it was, or was changed since.");
    if (record.deviations->empty()) return sentence(title, "None.");
    Record_Section section{title,
                           {{"Page", 24, false},
                            {"Name", 22, false},
                            {"Heading", 18, false},
                            {"Register", 12, false},
                            {"Factory", 12, false},
                            {"Value", 12, false}},
                           true,
                           false,
                           {}};
    for (const Record_Deviation& value : *record.deviations)
        section.rows.push_back(
            {value.page, value.name, value.heading, value.registers, value.factory, value.value});
    return section;
}

Record_Section link(const Record_Link& link) {
    return facts(
        "Link",
        {{"Requests", numberText(link.reads) + " to read, " + numberText(link.writes) + " to write"},
         {"Sent again", numberOr(link.retries)},
         {"Without an answer", numberOr(link.unanswered)},
         {"Answer times", "median " + msText(link.medianMs) + ", 99 of 100 within " + msText(link.p99Ms)}});
}

void addChecks(std::vector<Record_Section>& sections, const Record& record) {
    if (record.checks.empty()) return;
    Record_Section section{"Check list", {{"", 6, false}, {"", 94, false}}, false, false, {}};
    for (const std::string& check : record.checks)
        section.rows.push_back({"[  ]", check});
    sections.push_back(std::move(section));
}

Record_Section signatures(const Record_Head& head) {
    return {"Signatures",
            {{"", 20, false}, {"Name", 30, false}, {"Date", 20, false}, {"Signature", 30, false}},
            true,
            true,
            {{"Tested by", head.testedBy, "", ""}, {"Witnessed by", head.witnessedBy, "", ""}}};
}

} // namespace

std::vector<Record_Section> sectionsOf(const Record& record) {
    std::vector<Record_Section> sections{head(record), result(record), notVerified(record)};
    addNotes(sections, record);
    sections.push_back(controller(record.controller));
    addEvidence(sections, record.controller);
    sections.push_back(line(record));
    sections.push_back(times(record));
    sections.push_back(files(record));
    sections.push_back(changes(record));
    sections.push_back(deviations(record));
    sections.push_back(link(record.link));
    addChecks(sections, record);
    sections.push_back(signatures(record.head));
    return sections;
}

} // namespace zorvane::commission
