// SPDX-License-Identifier: MIT
// Lists of texts.

#include "checker/rule.h"
#include "checker/wording.h"
#include "template/sections/messages.h"
#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace zorvane::checker {

namespace {

/// Calls `look` with each list's line and its entries, as far as the reader takes them.
template <class Look> void forEachList(const Checked_Template& checked, Look&& look) {
    for (const Source_Line* line : checked.named("FIELD_#_MESSAGES", "ADDRESS_#")) {
        Cell_Rec cell;
        if (!ignoringFailure([&] { readMessages(cell, line->value); })) continue;
        std::vector<Message_Rec> entries;
        for (std::int32_t k = 1; k <= cell.Messages.upperBound(); ++k)
            entries.push_back(cell.Messages(k));
        look(*line, entries);
    }
}

void checkUnusedLists(const Checked_Template& checked, const Report& report) {
    std::set<const Source_Line*> used;
    std::set<std::pair<std::int32_t, std::int32_t>> registers;
    for (const Checked_Cell& cell : checked.cells()) {
        used.insert(cell.messages);
        if (const auto number = registerOfAddress(cell.cell->Address)) registers.emplace(cell.field, *number);
    }
    for (const Source_Line* line : checked.named("FIELD_#_MESSAGES", "ADDRESS_#")) {
        if (used.contains(line) || !line->table) continue;
        const std::string number = numberText(line->keyNumber);
        if (!registers.contains({line->sectionNumber, line->keyNumber}))
            report(*line, "field " + numberText(line->sectionNumber) + " has no cell at register " + number,
                   "Correct the address, here or in [FIELD_" + numberText(line->sectionNumber) +
                       "_CONFIGURATION].");
        else if (checked.named(line->section, line->sectionNumber, line->key, line->keyNumber).front() ==
                 line)
            report(*line, "the cell at register " + number + " gets its address further down",
                   "Write [FIELD_" + numberText(line->sectionNumber) +
                       "_CONFIGURATION] in front of this section.");
    }
}

void checkBrackets(const Checked_Template& checked, const Report& report) {
    for (const Source_Line* line : checked.named("FIELD_#_MESSAGES", "ADDRESS_#"))
        for (const std::string_view item : line->items()) {
            const std::size_t open = item.find('(');
            const std::size_t close = item.find(')');
            if (open != std::string_view::npos && close != std::string_view::npos && open < close) continue;
            report(*line, quoted(item) + " has no code in brackets in front",
                   "Write (0)text,(1)text and so on. A text can't hold a comma.");
            break;
        }
}

void checkCodes(const Checked_Template& checked, const Report& report) {
    forEachList(checked, [&](const Source_Line& line, const std::vector<Message_Rec>& entries) {
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (std::cmp_equal(entries[i].Code, i)) continue;
            report(line,
                   quoted(entries[i].Text) + " has the code " + numberText(entries[i].Code) + " in place " +
                       std::to_string(i),
                   "Number the texts 0, 1, 2 in their order; fill gaps with texts such as \"-2-\".");
            return;
        }
    });
}

void checkRepeatedTexts(const Checked_Template& checked, const Report& report) {
    forEachList(checked, [&](const Source_Line& line, const std::vector<Message_Rec>& entries) {
        std::set<std::string> seen;
        for (const Message_Rec& entry : entries)
            if (!seen.insert(upperTrimmed(entry.Text)).second) {
                report(line, quoted(entry.Text) + " occurs twice",
                       "Give each code a text of its own; letter case doesn't tell them apart.");
                return;
            }
    });
}

void checkNumberTexts(const Checked_Template& checked, const Report& report) {
    forEachList(checked, [&](const Source_Line& line, const std::vector<Message_Rec>& entries) {
        for (const Message_Rec& entry : entries) {
            const auto number = numberOf(entry.Text);
            const auto taken = [&](const Message_Rec& other) {
                return other.Code != entry.Code && *number == other.Code;
            };
            if (!number || std::none_of(entries.begin(), entries.end(), taken)) continue;
            report(line, "the text " + quoted(entry.Text) + " is the code of another text",
                   "Add a word or a unit to the text, such as \"" + std::string(trimBlanks(entry.Text)) +
                       " s\".");
            return;
        }
    });
}

void checkBlankTexts(const Checked_Template& checked, const Report& report) {
    forEachList(checked, [&](const Source_Line& line, const std::vector<Message_Rec>& entries) {
        for (const Message_Rec& entry : entries) {
            const bool empty = trimBlanks(entry.Text).empty();
            if (!empty && trimBlanks(entry.Text).size() == entry.Text.size()) continue;
            report(line,
                   empty ? "the text of code " + numberText(entry.Code) + " is empty"
                         : "blanks around the text " + quoted(entry.Text),
                   empty ? "Give the code a text, such as \"-\"."
                         : "Write no blanks after the brackets and in front of the comma.");
            return;
        }
    });
}

void checkListRequests(const Checked_Template& checked, const Report& report) {
    std::set<std::pair<std::int32_t, std::int32_t>> done;
    for (const Checked_Cell& cell : checked.cells()) {
        const Cell_Rec& column = *cell.definition;
        if (!cell.cell->Has_Messages || !column.Modifiable || column.Modbus_Request == "ALWAYS") continue;
        if (cell.messages == nullptr || !done.emplace(cell.field, cell.column).second) continue;
        report(*cell.messages,
               "a list that can be edited in a column that isn't polled (" + cell.place() + ")",
               "Write COL_" + numberText(cell.column) + "_MDBUSREQUEST=ALWAYS in [FIELD_" +
                   numberText(cell.field) + "_COLUMNS], and put the register into an ALWAYS block.");
    }
}

constexpr std::array messageRuleTable = {
    Rule{"message-unused", Severity::Warning, "a list for a register that no cell of the field has",
         "The line has no effect.", checkUnusedLists},
    Rule{"message-brackets", Severity::Error,
         "an item of a list without its code in brackets, or a text with a comma",
         "The list ends in front of it.", checkBrackets},
    Rule{"message-codes", Severity::Warning, "codes of a list that aren't 0, 1, 2 and so on",
         "A chosen text is stored as its place counted from 0, so the cell shows another text afterwards, or "
         "none.",
         checkCodes},
    Rule{"message-twice", Severity::Warning, "a text that occurs twice in a list",
         "A document holds the text, and the first code that fits is taken when it is read.",
         checkRepeatedTexts},
    Rule{"message-number", Severity::Warning, "a text that is the code of another one",
         "A document holds the text, which is then taken for that code.", checkNumberTexts},
    Rule{"message-blank", Severity::Warning, "an empty text in a list, or one with blanks around it",
         "It shows as it stands, and an empty one can't be told from no text.", checkBlankTexts},
    Rule{"list-request", Severity::Warning, "a list that can be edited in a column that isn't polled",
         "A list that is changed while online goes blank until a refresh, and only that brings the new value "
         "into the document.",
         checkListRequests},
};

} // namespace

std::span<const Rule> messageRules() { return messageRuleTable; }

} // namespace zorvane::checker
