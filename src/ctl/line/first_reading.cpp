// SPDX-License-Identifier: MIT
#include "ctl/line/first_reading.h"

#include "comm/modbus_control/frame/rtu_frame.h"
#include "comm/modbus_control/scan/register_ranges.h"
#include "comm/transfer/session.h"
#include "comm/transfer/transfer_records.h"
#include "ctl/line/transfer.h"

#include <algorithm>

namespace zorvane::ctl {

namespace {

/// The scan word of the blocks that are read first; no template writes it.
const std::string firstScan = "zorvanectl: before writing";

struct Wanted_Block {
    std::int32_t first = 0;
    std::int32_t last = 0;

    [[nodiscard]] bool holds(std::int32_t address) const { return first <= address && address <= last; }
    [[nodiscard]] bool holdsAny(const std::set<std::int32_t>& addresses) const {
        const auto found = addresses.lower_bound(first);
        return found != addresses.end() && *found <= last;
    }
};

std::vector<Wanted_Block> scanBlocks(const Declara_Zorvane& document) {
    std::vector<Wanted_Block> found;
    const auto& blocks = document.Holding_Blocks;
    if (!blocks.dimensioned()) return found;
    for (std::int32_t i = 1; i <= blocks.upperBound(); ++i)
        found.push_back({blocks(i).First_Address, blocks(i).Last_Address});
    return found;
}

std::vector<Wanted_Block> wantedBlocks(const Declara_Zorvane& document, const Download_Plan& plan) {
    std::vector<Wanted_Block> blocks = scanBlocks(document);
    if (!plan.asked.empty()) {
        std::erase_if(blocks, [&](const Wanted_Block& block) { return !block.holdsAny(plan.asked); });
        return blocks;
    }
    if (!blocks.empty()) {
        const Wanted_Block& first = blocks.front();
        return {{first.first, std::min(first.last, first.first + (largestRead - 1))}};
    }
    if (plan.writes.empty()) return {};
    return {{plan.writes.front().address, plan.writes.front().address}};
}

std::set<std::int32_t> without(std::set<std::int32_t> registers, const std::vector<Wanted_Block>& blocks) {
    std::erase_if(registers, [&](std::int32_t address) {
        return std::any_of(blocks.begin(), blocks.end(),
                           [&](const Wanted_Block& block) { return block.holds(address); });
    });
    return registers;
}

/// The adapter gave back what was sent, and nothing followed.
bool onlyEchoed(const Link_Exchanges& link) {
    constexpr std::size_t mark = 4; // "Tx: " and "Rx: "
    const std::string sent = link.ExchangeLine1();
    const std::string received = link.ExchangeLine2();
    return sent.size() > mark && received.size() == sent.size() &&
           received.compare(mark, std::string::npos, sent, mark, std::string::npos) == 0;
}

Register_Reading readingOf(const Comm_Context& comm, std::int32_t address) {
    return comm.link.readingOf(comm.form.Unit_Id, address);
}

/// A part of the block, which is all of a short one, had no answer in all its tries.
bool isSilent(const Comm_Context& comm, const Wanted_Block& block) {
    const std::int64_t last =
        std::min<std::int64_t>(block.last, block.first + std::int64_t{largestWireAddress});
    for (std::int64_t part = block.first; part <= last; part += largestRead) {
        const Register_Reading reading = readingOf(comm, static_cast<std::int32_t>(part));
        if (!reading.current() && reading.fault && reading.fault->empty()) return true;
    }
    return false;
}

/// What the controller answered instead of the asked registers of the block; empty when it gave them.
std::string refusal(const Comm_Context& comm, const Wanted_Block& block,
                    const std::set<std::int32_t>& asked) {
    for (auto at = asked.lower_bound(block.first); at != asked.end() && *at <= block.last; ++at) {
        const Register_Reading reading = readingOf(comm, *at);
        if (!reading.current() && reading.fault && !reading.fault->empty()) return *reading.fault;
    }
    return {};
}

void note(First_Reading& reading, const Wanted_Block& block, const std::string& why,
          const std::string& response) {
    const bool single = block.first == block.last;
    reading.obstacles.push_back(namedRange({block.first, block.last}) + (single ? " was" : " were") +
                                " not read: " + why);
    reading.errors.push_back(uploadRecord(block.first, block.last, response, 0));
}

/// A refusal stands in the way of writes that are built from the block, silence in that of any write.
void noteBlock(First_Reading& reading, const Comm_Context& comm, const Wanted_Block& block,
               const std::set<std::int32_t>& asked) {
    if (isSilent(comm, block))
        return note(reading, block,
                    onlyEchoed(comm.link) ? "no answer, only the adapter's echo" : "no answer", {});
    if (const std::string answer = refusal(comm, block, asked); !answer.empty())
        note(reading, block, answer, answer);
}

std::set<std::int32_t> notCurrent(const Comm_Context& comm, std::set<std::int32_t> registers) {
    std::erase_if(registers, [&](std::int32_t address) { return readingOf(comm, address).current(); });
    return registers;
}

/// `one` and `several` tell of a single register and of more.
void noteRanges(First_Reading& reading, const std::set<std::int32_t>& registers, const std::string& one,
                const std::string& several) {
    for (const Register_Range& range : rangesOf(registers))
        reading.obstacles.push_back(namedRange(range) + (range.first == range.last ? one : several));
}

} // namespace

First_Reading readBeforeWriting(const Comm_Context& comm, const Download_Plan& plan) {
    First_Reading reading;
    const std::vector<Wanted_Block> blocks = wantedBlocks(comm.document, plan);
    noteRanges(reading, without(plan.asked, blocks), " lies in no block that the template reads",
               " lie in no block that the template reads");
    if (blocks.empty() && reading.obstacles.empty())
        reading.obstacles.emplace_back("The template has no block to read, and no value names a register");
    if (!reading.obstacles.empty()) return reading;

    for (const Wanted_Block& block : blocks)
        comm.link.AddScanBlock(block.first, block.last, false, firstScan, comm.form.Unit_Id);
    readWholePass(comm, firstScan);
    reading.lost = comm.link.CommLost();
    for (const Wanted_Block& block : blocks)
        noteBlock(reading, comm, block, plan.asked);
    if (!reading.lost && reading.obstacles.empty())
        noteRanges(reading, notCurrent(comm, plan.asked), " was not read", " were not read");
    return reading;
}

} // namespace zorvane::ctl
