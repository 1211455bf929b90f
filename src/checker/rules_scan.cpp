// SPDX-License-Identifier: MIT
// Scan blocks, their request words, and the size of the register image.

#include "checker/rule.h"
#include "checker/wording.h"
#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>
#include <array>

namespace zorvane::checker {

namespace {

constexpr std::int64_t mostRead = 125;

void checkNoBlock(const Checked_Template& checked, const Report& report) {
    if (!checked.named("PORT_CONFIGURATION", "HOLDINGREGISTERSBLOCK_#").empty()) return;
    const Source_Line* header = checked.header("PORT_CONFIGURATION");
    report(header != nullptr ? *header : checked.lastLine(),
           "no HOLDINGREGISTERSBLOCK_# line in the whole file",
           "Write HOLDINGREGISTERSBLOCK_1=first-last in [PORT_CONFIGURATION].");
}

void checkBlockForms(const Checked_Template& checked, const Report& report) {
    for (const Source_Line* line : checked.named("PORT_CONFIGURATION", "HOLDINGREGISTERSBLOCK_#")) {
        const auto span = plainSpan(line->value);
        if (span && span->first <= span->last) continue;
        report(*line, quoted(line->value) + (span ? " goes backwards" : " is no block of registers"),
               "Write first-last, such as 100-119, in digits and without blanks.");
    }
}

void checkBlockSizes(const Checked_Template& checked, const Report& report) {
    for (const Scan_Block& block : checked.scanBlocks())
        if (block.span.count() > mostRead)
            report(*block.line, "the block has " + counted(block.span.count(), "register"),
                   "Make blocks of at most 125 registers.");
}

void checkBlockOverlaps(const Checked_Template& checked, const Report& report) {
    const auto blocks = checked.scanBlocks();
    for (std::size_t i = 1; i < blocks.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (blocks[i].span.meets(blocks[j].span)) {
                report(*blocks[i].line,
                       "the block meets block " + numberText(blocks[j].index) + " of line " +
                           numberText(blocks[j].line->number),
                       "Let each register lie in one block.");
                break;
            }
}

void checkBlockNumbers(const Checked_Template& checked, const Report& report) {
    std::int32_t index = 0;
    for (const Source_Line* line : checked.named("PORT_CONFIGURATION", "HOLDINGREGISTERSBLOCK_#"))
        if (line->keyNumber != ++index)
            report(*line,
                   "block " + numberText(line->keyNumber) + " is block " + numberText(index) + " of the file",
                   "Number the lines 1, 2, 3 in their order, without a gap.");
}

void checkRequestOrder(const Checked_Template& checked, const Report& report) {
    for (const Source_Line* line : checked.named("PORT_CONFIGURATION", "HOLDINGREQUESTBLOCK_#")) {
        if (line->keyNumber >= 1 && line->keyNumber <= line->scanBlocks) continue;
        const bool later = line->keyNumber >= 1 && line->keyNumber <= checked.document().Holding_Block_Count;
        report(*line,
               "block " + numberText(line->keyNumber) + (later ? " comes further down" : " isn't there"),
               "Write HOLDINGREGISTERSBLOCK_" + numberText(line->keyNumber) + " in front of this line.");
    }
}

void checkRequestWords(const Checked_Template& checked, const Report& report) {
    std::vector<std::string_view> words;
    for (const Scan_Block& block : checked.scanBlocks())
        if (std::find(words.begin(), words.end(), block.request) == words.end())
            words.push_back(block.request);
    for (const Source_Line* line : checked.named("FIELD_#_COLUMNS", "COL_#_MDBUSREQUEST")) {
        const std::string word = upperTrimmed(line->value);
        if (word.empty() || std::find(words.begin(), words.end(), word) != words.end()) continue;
        report(*line, "no scan block has the request word " + quoted(word),
               words.empty()
                   ? "Write HOLDINGREQUESTBLOCK_n=" + word + "."
                   : "Write " + choice(words) + ", or give a block this word by HOLDINGREQUESTBLOCK_n.");
    }
}

void checkPolledCells(const Checked_Template& checked, const Report& report) {
    for (const Checked_Cell& cell : checked.cells()) {
        if (cell.definition->Modbus_Request != "ALWAYS" || cell.address == nullptr) continue;
        const auto span = cell.registers();
        if (!span) continue;
        const auto holds = [&](const Scan_Block& block) { return block.span.holds(*span); };
        const auto polled = [&](const Scan_Block& block) {
            return holds(block) && block.request == "ALWAYS";
        };
        const auto blocks = checked.scanBlocks();
        if (std::none_of(blocks.begin(), blocks.end(), holds) ||
            std::any_of(blocks.begin(), blocks.end(), polled))
            continue;
        report(*cell.address,
               "register " + cell.cell->Address + " of an ALWAYS column lies in a block that isn't polled (" +
                   cell.place() + ")",
               "Give its block the word ALWAYS, or the column another word.");
    }
}

void checkImageSize(const Checked_Template& checked, const Report& report) {
    if (!checked.imageSize()) return;
    std::int64_t highest = 0;
    for (const Checked_Cell& cell : checked.cells())
        if (const auto span = cell.registers()) highest = std::max(highest, span->last);
    for (const Scan_Block& block : checked.scanBlocks())
        highest = std::max(highest, block.span.last);
    const auto lines = checked.named("PORT_CONFIGURATION", "HOLDINGREGISTERS");
    if (!lines.empty() && static_cast<double>(highest) > *checked.imageSize())
        report(*lines.back(), "the highest register in use is " + numberText(static_cast<double>(highest)),
               "Write HOLDINGREGISTERS=" + numberText(static_cast<double>(highest)) + " or more.");
}

constexpr std::array scanRuleTable = {
    Rule{"no-block", Severity::Error, "a template without a scan block",
         "The reading ends with \"Subscript out of range\", the start-up with it; nothing can be read from a "
         "controller.",
         checkNoBlock},
    Rule{"block-form", Severity::Error, "a scan block that can't be read, or goes backwards",
         "It takes a place among the blocks and leaves it empty, or reads other registers.", checkBlockForms},
    Rule{"block-size", Severity::Warning, "a scan block of more than 125 registers",
         "It is read in several requests that count as one block, so its values are not of one moment.",
         checkBlockSizes},
    Rule{"block-overlap", Severity::Warning, "scan blocks that have registers in common",
         "These registers are read twice in every pass.", checkBlockOverlaps},
    Rule{"block-number", Severity::Warning, "a scan block whose number isn't its place in the file",
         "A block's number is its place, and HOLDINGREQUESTBLOCK goes by it.", checkBlockNumbers},
    Rule{"request-order", Severity::Error, "a request word for a block that isn't there yet",
         "Reading stops there, or no block gets the word.", checkRequestOrder},
    Rule{"request-word", Severity::Warning, "a column whose request word no scan block has",
         "The column is never refreshed.", checkRequestWords},
    Rule{"request-cell", Severity::Warning, "a cell of an ALWAYS column in a block that isn't polled",
         "While online the cell shows what was last read of it, 0 at first.", checkPolledCells},
    Rule{"image-size", Severity::Warning, "HOLDINGREGISTERS below the highest register in use",
         "The key declares the size of the register image, and the rest of the template contradicts it.",
         checkImageSize},
};

} // namespace

std::span<const Rule> scanRules() { return scanRuleTable; }

} // namespace zorvane::checker
