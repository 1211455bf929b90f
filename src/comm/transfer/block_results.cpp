// SPDX-License-Identifier: MIT
#include "comm/transfer/block_results.h"

#include "comm/modbus_control/exchange/exchange_text.h"

#include <algorithm>

namespace zorvane {

std::int64_t lastOnTheLine(std::int64_t first, std::int64_t last) {
    constexpr std::int64_t addressSpace = 65536;
    return std::min(last, first + addressSpace - 1);
}

Block_Result blockResult(const Comm_Context& comm, const Holding_Block_Rec& block) {
    Block_Result result{block.First_Address, block.Last_Address, Request_End::Good};
    if (block.Last_Address < block.First_Address) {
        result.end = Request_End::Not_Sent;
        result.answer = noRegistersText(block.First_Address);
        return result;
    }
    const std::int64_t last = lastOnTheLine(block.First_Address, block.Last_Address);
    for (std::int64_t address = block.First_Address; address <= last; ++address) {
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

std::vector<Block_Result> blockResults(const Comm_Context& comm) {
    std::vector<Block_Result> results;
    const auto& blocks = comm.document.Holding_Blocks;
    if (!blocks.dimensioned()) return results;
    for (std::int32_t i = 1; i <= blocks.upperBound(); ++i)
        results.push_back(blockResult(comm, blocks(i)));
    return results;
}

} // namespace zorvane
