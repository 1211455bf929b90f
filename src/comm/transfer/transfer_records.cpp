// SPDX-License-Identifier: MIT
#include "comm/transfer/transfer_records.h"

#include "values/numbers.h"
#include "values/run_time_failure.h"

namespace zorvane {

void PRO_Limpia_Errores(Transfer_Records& records) {
    records.Transfer_Errors.clear();
    records.Transfer_Log.clear();
}

std::uint8_t retryNumber(std::int32_t tries) {
    if (tries < 0 || tries > 255) throw Run_Time_Failure(Failure::Overflow);
    return static_cast<std::uint8_t>(tries);
}

Info_Rec_Errors uploadRecord(std::int32_t first, std::int32_t last, const std::string& response,
                             std::int32_t tries) {
    Info_Rec_Errors record;
    record.Start_Address = numberText(first);
    record.End_Address = numberText(last);
    record.Function_Text = "FC 3";
    record.Response = response.empty() ? "No response" : response;
    record.Retry = retryNumber(tries);
    return record;
}

void modbus_control_Event10(Main_Form_State& form, const Debug_Line& debug, const std::string& line1,
                            const std::string& line2) {
    if (!form.Download_Active && !form.Upload_Active) return;
    for (const std::string* line : {&line1, &line2})
        if (debug && !line->empty()) debug(*line);
    Info_Rec_Errors record;
    record.Start_Address = line2;
    record.End_Address = line1;
    form.Transfer_Log.push_back(std::move(record));
}

} // namespace zorvane
