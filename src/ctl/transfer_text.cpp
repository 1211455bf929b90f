#include "ctl/transfer_text.h"

#include "ctl/notices.h"
#include "ctl/stop_text.h"

#include <ostream>

namespace zorvane {

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

void tellTransfer(std::ostream& err, const std::string& name, const Transfer_Report& report) {
    tellStop(err, name, report);
    for (const std::string& refusal : report.refusals)
        tell(err, printable(refusal));
    if (report.failure) tellFailure(err, name + " stopped", *report.failure);
    if (report.outcome == Transfer_Outcome::Cancelled) tell(err, printable(report.panel4));
    if (report.outcome == Transfer_Outcome::Failed && !report.failure && !report.panel4.empty())
        tell(err,
             printable(report.panel4) + " Check the cable, the port, its settings and the slave number.");
    if (!report.refusals.empty())
        tell(err, "The controller refused " + std::to_string(report.refusals.size()) +
                      " of the requests above. Check that the template fits the controller.");
}

} // namespace zorvane
