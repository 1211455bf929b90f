// SPDX-License-Identifier: MIT
// What a download asks of a template: the controller's name, its blocks, what is held back. And the file's
// name.

#include "checker/rule.h"
#include "checker/wording.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/registers.h"

#include <algorithm>
#include <array>
#include <set>

namespace zorvane::checker {

namespace {

constexpr std::int64_t mostWritten = 123;

enum class Block_Use { Number, Half, Text };

struct Download_Line {
    const Source_Line* line;
    Block_Use use;
    std::optional<Register_Span> span;
};

std::vector<Download_Line> downloadLines(const Checked_Template& checked) {
    std::vector<Download_Line> found;
    for (const Source_Line& line : checked.lines()) {
        if (!line.keyKnown || line.section != "HARDWARE" || !line.key.starts_with("DOWNLOAD_")) continue;
        const Block_Use use = line.key.ends_with("NUMERIC") ? Block_Use::Number
                              : line.key.ends_with("ASCII") ? Block_Use::Text
                                                            : Block_Use::Half;
        auto span = plainSpan(line.value);
        if (span && span->first > span->last) span.reset();
        found.push_back({&line, use, span});
    }
    return found;
}

void checkDefaultTemplate(const Checked_Template& checked, const Report& report) {
    if (upperCase(checked.fileName()) != "KVRT.ZTP") return;
    for (const Download_Line& block : downloadLines(checked))
        report(*block.line, "a DOWNLOAD line in the template that the window starts with",
               "Put the controller into a template of another name.");
}

void checkForms(const Checked_Template& checked, const Report& report) {
    for (const Download_Line& block : downloadLines(checked))
        if (!block.span)
            report(*block.line, quoted(block.line->value) + " is no block of registers",
                   "Write first-last, such as 100-119, in digits and without blanks, the lower one first.");
}

void checkSizes(const Checked_Template& checked, const Report& report) {
    for (const Download_Line& block : downloadLines(checked))
        if (block.span && block.span->count() > mostWritten)
            report(*block.line, "the block has " + counted(block.span->count(), "register"),
                   "Make blocks of at most 123 registers.");
}

void checkShadows(const Checked_Template& checked, const Report& report) {
    const Download_Line* lowest = nullptr;
    const auto blocks = downloadLines(checked);
    for (const Download_Line& block : blocks) {
        if (block.use != Block_Use::Number || !block.span) continue;
        if (lowest != nullptr && lowest->span->first <= block.span->first)
            report(
                *block.line,
                "the block of line " + numberText(lowest->line->number) + " is taken for every number from " +
                    numberText(static_cast<double>(lowest->span->first)) + " on",
                "List numeric blocks from the highest registers down, or write one that spans all numbers.");
        else
            lowest = &block;
    }
}

void checkOverlaps(const Checked_Template& checked, const Report& report) {
    const auto blocks = downloadLines(checked);
    for (std::size_t i = 1; i < blocks.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) {
            if (blocks[i].use == Block_Use::Number || blocks[i].use != blocks[j].use || !blocks[i].span ||
                !blocks[j].span)
                continue;
            if (!blocks[i].span->meets(*blocks[j].span)) continue;
            report(*blocks[i].line, "the block meets that of line " + numberText(blocks[j].line->number),
                   "Let each register lie in one block of a kind.");
            break;
        }
}

bool isHeldBack(const Checked_Template& checked, const Checked_Cell& cell) {
    const auto entries = checked.named("ADDRESS_NOTDOWNLOADABLE", "ADDRESS_#");
    return std::any_of(entries.begin(), entries.end(), [&](const Source_Line* entry) {
        return trimBlanks(entry->value) == trimBlanks(cell.cell->Address);
    });
}

/// The kind of block that a download of the board family looks up for a cell; nothing for cells that go out
/// alone or not at all.
std::optional<Block_Use> lookedUp(const Checked_Template& checked, const Checked_Cell& cell) {
    if (!cell.definition->Modifiable || !cell.registers() || isHeldBack(checked, cell)) return std::nullopt;
    if (halfAddress(cell.cell->Address)) return Block_Use::Half;
    if (cell.cell->Is_Ascii_Range) {
        const bool lastColumn = cell.column >= checked.document().Fields(cell.field).Columns;
        return lastColumn ? std::nullopt : std::optional(Block_Use::Text);
    }
    return cell.cell->Has_Messages ? std::nullopt : std::optional(Block_Use::Number);
}

void checkMissingBlocks(const Checked_Template& checked, const Report& report) {
    if (!checked.boardFamily()) return;
    const auto blocks = downloadLines(checked);
    for (const Checked_Cell& cell : checked.cells()) {
        const auto use = lookedUp(checked, cell);
        if (!use) continue;
        const std::int64_t number = cell.registers()->first;
        const auto found = std::find_if(blocks.begin(), blocks.end(), [&](const Download_Line& block) {
            return block.span && block.use == *use && block.span->first <= number &&
                   (*use == Block_Use::Number || number <= block.span->last);
        });
        if (found != blocks.end() && number <= found->span->last) continue;
        report(cell.line(),
               found == blocks.end()
                   ? "register " + cell.cell->Address + " lies in no DOWNLOAD block (" + cell.place() + ")"
                   : "register " + cell.cell->Address + " lies after the end of the block of line " +
                         numberText(found->line->number) + " (" + cell.place() + ")",
               "Widen a DOWNLOAD block of the kind that fits: NUMERIC for numbers and times, MESSAGELIST for "
               "halves, ASCII for texts.");
    }
}

void checkUnusedBlocks(const Checked_Template& checked, const Report& report) {
    if (checked.boardFamily() || upperCase(checked.fileName()) == "KVRT.ZTP") return;
    for (const Download_Line& block : downloadLines(checked))
        report(*block.line,
               "a DOWNLOAD line for the controller " + quoted(checked.document().Controller_Model),
               "Take the line out, or name the controller R7702-16, R7702-32 or R7702-64.");
}

void checkControllerOrder(const Checked_Template& checked, const Report& report) {
    const auto controller = checked.named("HARDWARE", "CONTROLLER");
    if (controller.empty()) return;
    for (const Download_Line& block : downloadLines(checked))
        if (block.line->number < controller.front()->number)
            report(*block.line, "a DOWNLOAD line in front of CONTROLLER",
                   "Write CONTROLLER as the first line of [HARDWARE].");
}

void checkController(const Checked_Template& checked, const Report& report) {
    if (!checked.document().Controller_Model.empty()) return;
    const auto given = checked.named("HARDWARE", "CONTROLLER");
    const Source_Line* header = checked.header("HARDWARE");
    report(!given.empty()      ? *given.back()
           : header != nullptr ? *header
                               : checked.lines().front(),
           "the controller has no name", "Write CONTROLLER=name in [HARDWARE].");
}

void checkHeldBack(const Checked_Template& checked, const Report& report) {
    std::set<std::string, std::less<>> addresses;
    for (const Checked_Cell& cell : checked.cells())
        addresses.emplace(trimBlanks(cell.cell->Address));
    for (const Source_Line* line : checked.named("ADDRESS_NOTDOWNLOADABLE", "ADDRESS_#"))
        if (!addresses.contains(trimBlanks(line->value)) || trimBlanks(line->value).empty())
            report(
                *line, "no cell has the address " + quoted(line->value),
                "Write the address as the cell has it: 115, or 40/HI. For a text write its first register.");
}

void checkSharedTimes(const Checked_Template& checked, const Report& report) {
    if (checked.boardFamily()) return;
    for (const Checked_Cell& cell : checked.cells()) {
        const Cell_Format format = cell.formatKind();
        if (!isTimePart(format) || !cell.definition->Modifiable || cell.cell->Has_Messages) continue;
        if (!cell.registers() || halfAddress(cell.cell->Address) || isHeldBack(checked, cell)) continue;
        report(cell.format != nullptr ? *cell.format : cell.line(),
               std::string(wordOf(format)) + " at register " + cell.cell->Address + " would be downloaded (" +
                   cell.place() + ")",
               "Write ADDRESS_n=" + cell.cell->Address +
                   " in [ADDRESS_NOTDOWNLOADABLE], or use the format TIME.");
    }
}

void checkFileName(const Checked_Template& checked, const Report& report) {
    const std::string& name = checked.fileName();
    const std::size_t dot = name.find('.');
    const bool good = dot != std::string::npos && dot > 0 && upperTrimmed(name.substr(dot + 1)) == "ZTP";
    if (!name.empty() && !good)
        report(checked.lines().front(), "the file's name " + quoted(name) + " is no name of a template",
               "Name it after its model: ABC.ZTP, with one point.");
}

constexpr std::array downloadRuleTable = {
    Rule{"file-name", Severity::Warning, "a file whose name isn't NAME.ZTP",
         "Templates are found by what stands in front of and after the first point of their names.",
         checkFileName},
    Rule{"controller-missing", Severity::Warning, "a template without CONTROLLER",
         "Nobody can tell which model it is, and a board of the R7702 family isn't written in blocks.",
         checkController},
    Rule{"controller-order", Severity::Warning, "a DOWNLOAD line in front of CONTROLLER",
         "The block is kept without the controller's name.", checkControllerOrder},
    Rule{"default-download", Severity::Error, "a DOWNLOAD line in kvrt.ztp",
         "The window reads this file at its start with no room for such blocks, and ends.",
         checkDefaultTemplate},
    Rule{"download-form", Severity::Error, "a DOWNLOAD block that can't be read, or goes backwards",
         "The line has no effect, or a download stops with \"Type mismatch\" or \"Subscript out of range\".",
         checkForms},
    Rule{"download-size", Severity::Warning, "a DOWNLOAD block of more than 123 registers",
         "It takes several writes, and the controller may act between them.", checkSizes},
    Rule{"download-shadow", Severity::Warning, "a numeric DOWNLOAD block after one that begins below it",
         "The first numeric block that begins at or below a register is taken, whatever its end, so this one "
         "never is.",
         checkShadows},
    Rule{"download-overlap", Severity::Warning, "DOWNLOAD blocks of one kind that have registers in common",
         "The first one of the file is taken.", checkOverlaps},
    Rule{"download-missing", Severity::Error, "a cell of a board that no DOWNLOAD block holds",
         "The whole download stops at this cell with \"Type mismatch\" or \"Subscript out of range\".",
         checkMissingBlocks},
    Rule{"download-unused", Severity::Warning, "a DOWNLOAD line for a controller that takes no blocks",
         "The line has no effect.", checkUnusedBlocks},
    Rule{"held-back-unused", Severity::Warning, "an address in [ADDRESS_NOTDOWNLOADABLE] that no cell has",
         "Nothing is held back by it.", checkHeldBack},
    Rule{"time-download", Severity::Warning, "a TIMEMM or TIMESS cell that a download would write",
         "A download takes the other half of the time from the cell on which the cursor stands, whatever "
         "that is.",
         checkSharedTimes},
};

} // namespace

std::span<const Rule> downloadRules() { return downloadRuleTable; }

} // namespace zorvane::checker
