// SPDX-License-Identifier: MIT
#include "commission/whole_reading.h"

#include "commission/touched_reading.h"
#include "template/identity_reads.h"

namespace zorvane::commission {

namespace {

void add(std::set<std::int32_t>& registers, const Register_Range& range) {
    for (std::int32_t number = range.first; number <= range.last; ++number)
        registers.insert(number);
}

} // namespace

std::vector<Register_Range> readBlocks(const Declara_Zorvane& document) {
    std::vector<Register_Range> found;
    const auto& blocks = document.Holding_Blocks;
    if (!blocks.dimensioned()) return found;
    for (std::int32_t i = 1; i <= blocks.upperBound(); ++i)
        if (blocks(i).First_Address <= blocks(i).Last_Address)
            found.push_back({blocks(i).First_Address, blocks(i).Last_Address});
    return found;
}

Whole_Reading readWhole(Unit_Reader& line, std::int32_t unit, const Declara_Zorvane& document,
                        const Identity_Section& section, const std::set<std::int32_t>& more) {
    const std::vector<Register_Range> blocks = readBlocks(document);
    std::set<std::int32_t> wanted = more;
    for (const Register_Range& block : blocks)
        add(wanted, block);
    for (const Register_Range& range : identityReads(document, section))
        add(wanted, range);
    Whole_Reading reading;
    bool gone = false;
    reading.registers = readRegisters(
        wanted, blocks, section.writeOnly, [&](std::int32_t first, std::int32_t count) -> Unit_Answer {
            if (gone) return {};
            Unit_Answer answer = line.read(unit, first, count);
            reading.requests += static_cast<std::size_t>(answer.requests);
            reading.answered = reading.answered || answer.good() || answer.end == Unit_End::Refused;
            reading.cancelled = answer.end == Unit_End::Cancelled;
            reading.lost = answer.end == Unit_End::PortLost;
            gone = reading.cancelled || reading.lost || !reading.answered;
            if (gone) reading.why = answer.fault;
            return answer;
        });
    return reading;
}

} // namespace zorvane::commission
