// SPDX-License-Identifier: MIT
#include "ctl/line/transfer_text.h"

#include "ctl/document/notices.h"
#include "ctl/line/stop_text.h"

#include <algorithm>
#include <ostream>

namespace zorvane::ctl {

namespace {

const char* outcomeWord(Transfer_Outcome outcome) {
    switch (outcome) {
    case Transfer_Outcome::Finished:
        return "finished";
    case Transfer_Outcome::Cancelled:
        return "cancelled";
    case Transfer_Outcome::Failed:
        break;
    }
    return "failed";
}

const char* resultWord(Request_End end) {
    switch (end) {
    case Request_End::Refused:
        return "refused";
    case Request_End::Unanswered:
        return "unanswered";
    case Request_End::Not_Sent:
        return "not sent";
    case Request_End::Good:
        break;
    }
    return "written";
}

void tellCount(std::ostream& err, const Transfer_Report& report, Request_End end, const std::string& what,
               const std::string& todo) {
    const auto ended = [end](const auto& each) { return each.end == end; };
    const auto count = std::count_if(report.failedReads.begin(), report.failedReads.end(), ended) +
                       std::count_if(report.failedWrites.begin(), report.failedWrites.end(), ended);
    if (count > 0) tell(err, what + std::to_string(count) + " of the requests above. " + todo);
}

Json recordsJson(const std::vector<Info_Rec_Errors>& records) {
    Json list = Json::array();
    for (const Info_Rec_Errors& record : records)
        list.push_back({{"Start_Address", jsonText(record.Start_Address)},
                        {"End_Address", jsonText(record.End_Address)},
                        {"Function_Text", jsonText(record.Function_Text)},
                        {"Register", jsonText(record.Register)},
                        {"Value", jsonText(record.Value)},
                        {"Response", jsonText(record.Response)},
                        {"Retry", record.Retry}});
    return list;
}

Json writesJson(const Download_Writes& writes) {
    return {{"planned", writes.planned()},
            {"written", writes.count(Write_State::Written)},
            {"failed", writes.count(Write_State::Refused)},
            {"unknown", writes.count(Write_State::Unknown)},
            {"not_sent", writes.notSent.size()}};
}

} // namespace

Json transferJson(const Transfer_Report& report) {
    Json json = {{"outcome", outcomeWord(report.outcome)},
                 {"passes", report.passes},
                 {"errors", recordsJson(report.errors)},
                 {"log", recordsJson(report.log)},
                 {"panel4", jsonText(report.panel4)}};
    if (report.writes) json["writes"] = writesJson(*report.writes);
    return json;
}

Json transferResultJson(const Transfer_Report& report) {
    Json json = transferJson(report);
    addBlockLists(json, report.blocks);
    Json writes = Json::array();
    for (const Failed_Write& write : report.failedWrites)
        writes.push_back({{"register", jsonText(write.address)},
                          {"value", jsonText(write.value)},
                          {"result", resultWord(write.end)},
                          {"answer", jsonText(write.answer)}});
    json["failed_writes"] = std::move(writes);
    Json lines = Json::array();
    for (const std::string& line : report.panel4_lines)
        lines.push_back(jsonText(line));
    json["panel4_lines"] = std::move(lines);
    return json;
}

void tellTransfer(std::ostream& err, const std::string& name, const Transfer_Report& report) {
    for (const Failed_Read& read : report.failedReads)
        tell(err, printable(read.text));
    for (const Failed_Write& write : report.failedWrites)
        tell(err, printable(write.text + ": " + (write.answer.empty() ? "no answer" : write.answer)));
    tellCount(err, report, Request_End::Refused, "The controller refused ",
              "Check that the template fits the controller.");
    tellCount(
        err, report, Request_End::Unanswered, "The controller did not answer ",
        "Whether it took them is not known. Check the cable, the port, its settings and the slave number.");
    tellCount(err, report, Request_End::Not_Sent, "It was not possible to send ",
              "Check the register numbers of the template.");
    tellStop(err, name, report);
    if (report.failure) tellFailure(err, name + " stopped", *report.failure);
    if (report.outcome == Transfer_Outcome::Cancelled) tell(err, printable(report.panel4));
    if (report.lost)
        tell(err,
             printable(report.panel4) + " Check the cable, the port, its settings and the slave number.");
}

} // namespace zorvane::ctl
