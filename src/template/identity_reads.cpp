// SPDX-License-Identifier: MIT
#include "template/identity_reads.h"

#include <algorithm>
#include <optional>

namespace zorvane {

namespace {

constexpr std::int64_t mostRead = 125;

std::int64_t countOf(const Register_Range& range) { return std::int64_t{range.last} - range.first + 1; }

bool inOneBlock(const Declara_Zorvane& document, const Register_Range& range) {
    for (std::int32_t i = 1; i <= document.Holding_Block_Count; ++i) {
        const Holding_Block_Rec& block = document.Holding_Blocks(i);
        if (block.First_Address <= range.first && range.last <= block.Last_Address) return true;
    }
    return false;
}

/// What a question is made for.
struct Asked {
    const Declara_Zorvane& document;
    const Identity_Section& section;
};

bool holdsWriteOnly(const Identity_Section& section, const Register_Range& range) {
    return std::any_of(section.writeOnly.begin(), section.writeOnly.end(), [&](const Register_Range& each) {
        return each.first <= range.last && range.first <= each.last;
    });
}

/// One range for two, where a single read of them can't meet a register that neither names nor a block has,
/// nor one that can only be written.
std::optional<Register_Range> joined(const Asked& asked, const Register_Range& a, const Register_Range& b) {
    const Register_Range both{std::min(a.first, b.first), std::max(a.last, b.last)};
    if (countOf(both) > mostRead) return std::nullopt;
    const bool touching = std::int64_t{b.first} - a.last <= 1 && std::int64_t{a.first} - b.last <= 1;
    if (!touching && (!inOneBlock(asked.document, both) || holdsWriteOnly(asked.section, both)))
        return std::nullopt;
    return both;
}

/// Puts a range to the others, joined with all that it can be joined with.
void addJoined(const Asked& asked, std::vector<Register_Range>& ranges, Register_Range range) {
    for (std::size_t at = 0; at < ranges.size();) {
        const auto both = joined(asked, ranges[at], range);
        if (!both) {
            ++at;
            continue;
        }
        // The wider range takes the first one's place and is tried against the rest again.
        range = *both;
        ranges.erase(ranges.begin() + static_cast<std::ptrdiff_t>(at));
        at = 0;
    }
    ranges.push_back(range);
}

} // namespace

std::vector<Register_Range> identityRegisters(const Identity_Section& section) {
    std::vector<Register_Range> wishes;
    for (const Identity_Mark& mark : section.marks) {
        if (mark.tellsByNumber()) wishes.push_back(*mark.registers);
        if (mark.tellsByText()) wishes.push_back(*mark.text);
    }
    if (section.serial) wishes.push_back(*section.serial);
    if (section.firmware) wishes.push_back(*section.firmware);
    std::erase_if(
        wishes, [](const Register_Range& range) { return countOf(range) < 1 || countOf(range) > mostRead; });
    return wishes;
}

std::vector<Register_Range> identityReads(const Declara_Zorvane& document, const Identity_Section& section) {
    const std::size_t most = mostIdentityRequests - (section.objects && !section.objectTexts.empty() ? 1 : 0);
    std::vector<Register_Range> reads;
    for (const Register_Range& wish : identityRegisters(section)) {
        std::vector<Register_Range> more = reads;
        addJoined({document, section}, more, wish);
        if (more.size() <= most) reads = std::move(more);
    }
    return reads;
}

std::vector<Register_Range> identityReadsAgain(const Declara_Zorvane& document,
                                               const Identity_Section& section) {
    Identity_Section telling = section;
    telling.firmware.reset();
    return identityReads(document, telling);
}

} // namespace zorvane
