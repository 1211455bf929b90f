// SPDX-License-Identifier: MIT
#include "ctl/line/block_results.h"

namespace zorvane::ctl {

namespace {

bool isException(const std::string& response) {
    return response == "BUSY" || response.find("(exception ") != std::string::npos ||
           response.rfind("Exception ", 0) == 0;
}

Block_Result resultOf(const Comm_Context& comm, const Holding_Block_Rec& block) {
    Block_Result result{block.First_Address, block.Last_Address, Request_End::Good};
    for (std::int64_t address = block.First_Address; address <= block.Last_Address; ++address) {
        const Register_Reading reading =
            comm.link.readingOf(comm.form.Unit_Id, static_cast<std::int32_t>(address));
        if (reading.fault) {
            result.end = endOf(*reading.fault);
            result.answer = *reading.fault;
            return result;
        }
        if (reading.age == Reading_Age::Never) result.end = Request_End::Not_Sent;
    }
    return result;
}

const char* listOf(Request_End end) {
    switch (end) {
    case Request_End::Good:
        return "read";
    case Request_End::Refused:
        return "refused";
    case Request_End::Unanswered:
        return "unanswered";
    case Request_End::Not_Sent:
        break;
    }
    return "not_read";
}

/// "Registers 110-111", those of the scan block that the register belongs to.
std::string blockName(const Declara_Zorvane& document, std::int32_t address) {
    const auto& blocks = document.Holding_Blocks;
    for (std::int32_t i = 1; i <= blocks.upperBound(); ++i)
        if (blocks(i).First_Address <= address && address <= blocks(i).Last_Address)
            return "Registers " + std::to_string(blocks(i).First_Address) + "-" +
                   std::to_string(blocks(i).Last_Address);
    return "Registers " + std::to_string(address) + "-" + std::to_string(address);
}

} // namespace

Request_End endOf(const std::string& response) {
    if (response.empty()) return Request_End::Unanswered;
    return isException(response) ? Request_End::Refused : Request_End::Not_Sent;
}

std::vector<Block_Result> blockResults(const Comm_Context& comm) {
    std::vector<Block_Result> results;
    const auto& blocks = comm.document.Holding_Blocks;
    if (!blocks.dimensioned()) return results;
    for (std::int32_t i = 1; i <= blocks.upperBound(); ++i)
        results.push_back(resultOf(comm, blocks(i)));
    return results;
}

void addBlockLists(Json& json, const std::vector<Block_Result>& blocks) {
    for (const Request_End end :
         {Request_End::Good, Request_End::Refused, Request_End::Unanswered, Request_End::Not_Sent})
        json[listOf(end)] = Json::array();
    for (const Block_Result& block : blocks) {
        Json entry = {{"first", block.first}, {"last", block.last}};
        if (!block.answer.empty()) entry["answer"] = jsonText(block.answer);
        json[listOf(block.end)].push_back(std::move(entry));
    }
}

std::optional<std::string> readingFault(const Comm_Context& comm, std::int32_t address) {
    const Register_Reading reading = comm.link.readingOf(comm.form.Unit_Id, address);
    if (!reading.fault && reading.current()) return std::nullopt;
    const std::string name = blockName(comm.document, address);
    if (!reading.fault) return name + " were not read since the port was opened";
    return name + " were not read: " + (reading.fault->empty() ? "no answer" : *reading.fault);
}

} // namespace zorvane::ctl
