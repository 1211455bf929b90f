// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/commission/session_call.h"

#include "commission/desk/desk_words.h"
#include "commission/desk/session_parts.h"
#include "commission/folder/state_folder.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/notices.h"
#include "ctl/text/text_table.h"
#include "template/services/file_names.h"
#include "template/services/native_files.h"
#include "values/code_page.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace zorvane::ctl {

namespace {

using commission::Session;
using commission::Session_Document;
using commission::Session_End;
using commission::Step;
using commission::Value_State;

std::string stemOf(const Opened_Document& opened) {
    return upperCase(splitName(splitPath(opened.ztp.path).name).first);
}

/// The numbers of a value's registers, "?" for one that isn't known.
std::string spoken(const commission::Known_Registers& registers) {
    std::string text;
    for (const auto& value : registers)
        text.append(text.empty() ? "" : " ").append(value ? std::to_string(*value) : "?");
    return text;
}

void printForPeople(const Call_Context& context, const Session_End& end) {
    Text_Table table;
    table.add({"Field", "Row", "Column", "Register", "State", "Before", "Sent", "Read back", "Answer"});
    bool some = false;
    for (const commission::Sent_Row& row : end.report.rows) {
        if (row.state == Value_State::Verified) continue;
        some = true;
        table.add({std::to_string(row.place.field), std::to_string(row.place.row),
                   std::to_string(row.place.column), printable(row.address), commission::stateName(row.state),
                   spoken(row.before), spoken(row.sent), spoken(row.readBack), printable(row.answer)});
    }
    if (some) table.print(context.out, 0);
    context.out << commission::countsText(end.report.counts) << "\n";
    if (!end.run.empty()) context.out << "Run " << end.run << "\n";
}

} // namespace

int exitOf(Step step) noexcept {
    switch (step) {
    case Step::Good:
        return Exit_Success;
    case Step::Wrong_Controller:
        return Exit_Wrong_Controller;
    case Step::Stale:
        return Exit_Stale;
    case Step::Cant_Tell:
        return Exit_Cant_Tell;
    case Step::Incomplete:
        return Exit_Partly;
    case Step::Failed:
        break;
    }
    return Exit_Failed;
}

Session_Document Session_Opener::documentOf(const Opened_Document& opened,
                                            const Identity_Section& section) const {
    Session_Document document{opened.document,
                              section,
                              commission::namedFile(context_.files, opened.ztp.path),
                              {},
                              {},
                              {},
                              1,
                              {},
                              3,
                              "zorvanectl",
                              commission::strayReasons(opened.document)};
    if (opened.configuration)
        document.documentFile = commission::namedFile(context_.files, opened.configuration->path);
    document.controllerFileName = "controller." + toUtf8(stemOf(opened));
    document.port = settings_.port;
    document.unit = settings_.slave;
    document.line = settings_.line;
    document.retries = settings_.retries;
    return document;
}

int Session_Opener::run(const std::function<int(Session_Work&)>& work,
                        const std::function<void()>& refused) const {
    Writing_Line line(settings_);
    Own_Time_Out ownTimeOut(line.exchanges());
    Opened_Document opened =
        files_.open(context_, ownTimeOut_ ? static_cast<Link_Notice*>(&ownTimeOut) : &line.exchanges());
    const auto fail = [&](const std::string& why) {
        if (!why.empty()) tell(context_.err, why);
        refused();
        return static_cast<int>(Exit_Failed);
    };
    if (!opened.readToTheEnd()) return fail({});
    tellNoValues(context_, opened);
    const Identity_Section section = readIdentity(context_.files.bytes(opened.ztp.path).value_or(""));
    commission::keepTextsTogether(opened.document, line.exchanges());
    if (const std::string why = line.open(context_); !why.empty()) return fail(why);
    commission::Native_Runs runs(commission::runsFolder(context_.stateFolder));
    const commission::System_Wall_Clock clock;
    Session_Document document = documentOf(opened, section);
    document.adapter = line.adapter();
    Session session(
        {line.exchanges(),
         runs,
         clock,
         [&] { return line.stopAsked(); },
         {},
         [&](const compare::Controller_Registers& registers) {
             return commission::controllerFile(opened.document, registers);
         },
         [&](const std::string& why) { tell(context_.err, printable(commission::waitText(why))); }},
        std::move(document));
    Session_Work sessionWork{context_, opened, section, line, runs, session};
    return work(sessionWork);
}

void tellNotSent(const Session_Work& work, const commission::Plan& plan,
                 const commission::Chosen_Cells& chosen) {
    const auto tellOne = [&](const Cell_Place& place, const std::string& why) {
        tell(work.context.err, "Not sent: field " + std::to_string(place.field) + ", row " +
                                   std::to_string(place.row) + ", column " + std::to_string(place.column) +
                                   ": " + printable(why) + ".");
    };
    for (const commission::Planned_Cell& cell : plan.cells)
        if (!cell.write && !cell.why.empty()) tellOne(cell.place, cell.why);
    for (const compare::Row& row : plan.comparison.rows) {
        if (!row.registers || !chosen.names(row.place)) continue;
        const bool editable =
            work.opened.document.Fields(row.place.field).Cells(0, row.place.column).Modifiable;
        if (row.sign == compare::Sign::Left_Out)
            tellOne(row.place, "the template leaves its register out");
        else if (row.sign == compare::Sign::Read_Only)
            tellOne(row.place, editable ? "downloads keep its register back" : "its column can't be edited");
    }
}

void printEnd(const Call_Context& context, const Session_End& end) {
    if (!end.why.empty()) tell(context.err, printable(end.why));
    if (context.json)
        printJson(context.out, commission::endJson(end));
    else if (!end.run.empty() || end.report.counts.rows() > 0 || end.step == Step::Good)
        printForPeople(context, end);
}

} // namespace zorvane::ctl
