// SPDX-License-Identifier: MIT
// Any texts as what the controller and the port had to say in a transfer: its report and its log are made of
// whole lines, and as RTF they are read as they stand.

#include "comm/modbus_control/exchange/rtf_text.h"
#include "comm/transfer/transfer_texts.h"
#include "fuzz/require.h"
#include "fuzz/rtf_reader.h"
#include "fuzz/split.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

using namespace zorvane;
using fuzz::require;

/// Rows of texts: the method and the parameters of the port, then a record a row.
Transfer_Status statusFrom(std::string_view input) {
    Transfer_Status status;
    const std::vector<std::string> rows = fuzz::split(input, fuzz::rowEnd);
    status.PortParameters = fuzz::split(rows.front(), fuzz::textEnd);
    status.TransferMethod = status.PortParameters.front();
    status.PortParameters.erase(status.PortParameters.begin());
    for (std::size_t row = 1; row < rows.size(); ++row) {
        std::vector<std::string> texts = fuzz::split(rows[row], fuzz::textEnd);
        texts.resize(6);
        const auto retry = static_cast<std::uint8_t>(texts[5].size());
        status.DataErrors.push_back({texts[0], texts[1], texts[2], texts[3], texts[4], texts[5], retry});
        status.DataWriting.push_back({texts[0], texts[1], {}, {}, {}, {}, 0});
    }
    return status;
}

void checkRtf(const std::string& text) {
    const std::vector<std::string> found = fuzz::split(fuzz::readRtf(rtfDocument(text)).text, '\n');
    std::vector<std::string> lines = fuzz::split(text, '\n');
    require(found.size() == lines.size(), "every line is a paragraph");
    for (std::size_t line = 0; line < lines.size(); ++line) {
        std::erase(lines[line], '\r');
        fuzz::requireSame(found[line], fuzz::seenInRtf(lines[line]), "a line is read as it stands");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Transfer_Status status = statusFrom({reinterpret_cast<const char*>(data), size});
    const std::string report = PRO_Arma_Resumen(status);
    const std::string log = PRO_Arma_Monitor(status);
    require(report.empty() || report.ends_with("\r\n"), "a report is made of whole lines");
    require(log.ends_with("\r\n"), "a log is made of whole lines");
    for (const Info_Rec_Errors& record : status.DataWriting)
        require(log.find(record.Start_Address) != std::string::npos, "a log has every exchange");
    checkRtf(report);
    checkRtf(log);
    checkRtf(std::string(data, data + size));
    return 0;
}
