// SPDX-License-Identifier: MIT
#include "comm/transfer/transfer_texts.h"

#include "values/code_page.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

namespace zorvane {

namespace {

const std::string lineEnd = "\r\n";
const std::string downloadMethod = "Download to Device";

void addLine(std::string& text, const std::string& line) { text += line + lineEnd; }

const std::string& parameter(const Transfer_Status& status, std::size_t index) {
    if (index >= status.PortParameters.size()) throw Run_Time_Failure(Failure::Subscript);
    return status.PortParameters[index];
}

std::vector<std::string> splitByCommas(const std::string& text) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t comma = text.find(','); comma != std::string::npos; comma = text.find(',', start)) {
        parts.push_back(text.substr(start, comma - start));
        start = comma + 1;
    }
    parts.push_back(text.substr(start));
    return parts;
}

/// "Event" is how these reports have always written it.
std::string parityName(const std::string& letter) {
    const std::string upper = upperCase(letter);
    if (upper == "N") return "None";
    if (upper == "E") return "Event";
    if (upper == "O") return "Odd";
    return {};
}

void addLineSettings(std::string& text, const std::string& settings) {
    const std::vector<std::string> parts = splitByCommas(settings);
    if (parts.size() != 4) return;
    addLine(text, "Baud: " + parts[0] + " Parity: " + parityName(parts[1]) + " Format: " + parts[2] + "," +
                      parts[3] + " stop");
}

void addPort(std::string& text, const Transfer_Status& status) {
    addLine(text, "Transfer Method: " + status.TransferMethod);
    addLine(text, "Target Slave Number: " + parameter(status, 0));
    addLine(text, "Port: Com " + parameter(status, 2));
    addLineSettings(text, parameter(status, 1));
    addLine(text, "Control RTS/TX Delay(ms): " + numberText(Val(parameter(status, 5))));
    addLine(text, "TimeOut(ms): " + numberText(Val(parameter(status, 4))));
    addLine(text, "Retries: " + parameter(status, 3));
    addLine(text, "");
}

void addRetry(std::string& text, const Info_Rec_Errors& record, const std::string& retries) {
    if (record.Retry != 0) addLine(text, "Retry: " + std::to_string(record.Retry) + " (" + retries + ")");
}

void addUploadRecord(std::string& text, const Info_Rec_Errors& record, const std::string& retries) {
    addRetry(text, record, retries);
    addLine(text, "Read Holding Register:: " + record.Function_Text);
    addLine(text, "Response: " + record.Response);
    addLine(text, "Start Address: " + record.Start_Address + " End Address: " + record.End_Address);
    addLine(text, "");
}

void addDownloadRecord(std::string& text, const Info_Rec_Errors& record, const std::string& retries) {
    addRetry(text, record, retries);
    addLine(text, "Preset Single Register: " + record.Function_Text);
    addLine(text, "Register: " + record.Register + " Value: " + record.Value);
    addLine(text, "Response: " + record.Response);
    if (!record.Start_Address.empty()) addLine(text, record.Start_Address);
    if (record.End_Address.empty()) return;
    addLine(text, record.End_Address);
    addLine(text, "");
}

} // namespace

bool Transfer_Status::isUpload() const { return upperTrimmed(TransferMethod) != upperCase(downloadMethod); }

std::string transferMethod(bool isUpload) { return isUpload ? "Upload to PC" : downloadMethod; }

std::string PRO_Arma_Resumen(const Transfer_Status& status) {
    std::string text;
    ignoringFailure([&] {
        addPort(text, status);
        const auto add = status.isUpload() ? addUploadRecord : addDownloadRecord;
        for (const Info_Rec_Errors& record : status.DataErrors)
            add(text, record, parameter(status, 3));
    });
    return text;
}

std::string PRO_Arma_Monitor(const Transfer_Status& status) {
    std::string text;
    addLine(text, std::string(status.isUpload() ? 58 : 56, '-'));
    addLine(text, "MODBUS MONITOR DATA");
    for (const Info_Rec_Errors& record : status.DataWriting) {
        if (!trimBlanks(record.End_Address).empty()) addLine(text, record.End_Address);
        if (!record.Start_Address.empty()) addLine(text, record.Start_Address);
    }
    return text;
}

} // namespace zorvane
