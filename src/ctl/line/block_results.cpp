// SPDX-License-Identifier: MIT
#include "ctl/line/block_results.h"

namespace zorvane::ctl {

namespace {

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
