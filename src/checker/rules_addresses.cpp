// SPDX-License-Identifier: MIT
// The registers of cells, and what is said of them.

#include "checker/rule.h"
#include "checker/wording.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/registers.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace zorvane::checker {

namespace {

constexpr std::int64_t highestAddress = 65535;

/// Calls `look` for each cell whose address was given by a line.
template <class Look> void forEachAddress(const Checked_Template& checked, Look&& look) {
    for (const Checked_Cell& cell : checked.cells())
        if (cell.address != nullptr && !cell.cell->Address.empty()) look(cell);
}

/// The address as the template has it.
std::string addressText(const Cell_Rec& cell) {
    if (!cell.Is_Ascii_Range) return cell.Address;
    return cell.Address + "-" + cell.Address_End.text();
}

void checkAddressForms(const Checked_Template& checked, const Report& report) {
    forEachAddress(checked, [&](const Checked_Cell& cell) {
        if (!cell.registers())
            report(*cell.address, quoted(addressText(*cell.cell)) + " is no address (" + cell.place() + ")",
                   "Write 100, 100/HI or 100/LO, and for a text ROWASCIIRANGE_#=100-107, without blanks.");
    });
}

void checkAddressRanges(const Checked_Template& checked, const Report& report) {
    const std::int64_t base = checked.addressBase();
    forEachAddress(checked, [&](const Checked_Cell& cell) {
        const auto span = cell.registers();
        if (!span || (span->first >= base && span->last - base <= highestAddress)) return;
        report(*cell.address,
               "register " + quoted(addressText(*cell.cell)) + " is no address on the line (" + cell.place() +
                   ")",
               "Use registers from " + numberText(static_cast<double>(base)) + " to " +
                   numberText(static_cast<double>(base + highestAddress)) + ", or set ADDRESSBASE.");
    });
}

void checkBackwardTexts(const Checked_Template& checked, const Report& report) {
    forEachAddress(checked, [&](const Checked_Cell& cell) {
        const auto span = cell.registers();
        if (span && span->first > span->last)
            report(*cell.address,
                   "the text " + quoted(addressText(*cell.cell)) + " goes backwards (" + cell.place() + ")",
                   "Write the first register in front: " + cell.cell->Address_End.text() + "-" +
                       cell.cell->Address + ".");
    });
}

bool isScanned(const Checked_Template& checked, const Register_Span& span) {
    const auto blocks = checked.scanBlocks();
    return std::any_of(blocks.begin(), blocks.end(),
                       [&](const Scan_Block& block) { return block.span.meets(span); });
}

/// Whether all registers lie in scan blocks, in one or in several that follow each other.
bool isWhollyScanned(const Checked_Template& checked, Register_Span span) {
    while (span.first <= span.last) {
        const Register_Span head{span.first, span.first};
        std::int64_t reached = span.first - 1;
        for (const Scan_Block& block : checked.scanBlocks())
            if (block.span.meets(head)) reached = std::max(reached, block.span.last);
        if (reached < span.first) return false;
        span.first = reached + 1;
    }
    return true;
}

void checkUnscanned(const Checked_Template& checked, const Report& report) {
    if (checked.scanBlocks().empty()) return; // told once for all
    forEachAddress(checked, [&](const Checked_Cell& cell) {
        const auto span = cell.registers();
        if (!span || isWhollyScanned(checked, *span)) return;
        report(*cell.address,
               "register " + addressText(*cell.cell) +
                   (isScanned(checked, *span) ? " lies in scan blocks in part only ("
                                              : " lies in no scan block (") +
                   cell.place() + ")",
               "Widen a HOLDINGREGISTERSBLOCK, or correct the address.");
    });
}

/// What the program takes a cell's register for.
std::string kindOf(const Checked_Cell& cell) {
    if (halfAddress(cell.cell->Address)) return "a half";
    if (cell.cell->Is_Ascii_Range) return "a text";
    if (cell.cell->Has_Messages) return "a list";
    const Cell_Format format = cell.formatKind();
    if (isTimePart(format)) return "a shared time";
    if (format == Cell_Format::Time) return "a time";
    return format == Cell_Format::Unsigned ? "an unsigned number" : "a number";
}

/// The kind, and how a number's sign is held.
std::string readingOf(const Checked_Cell& cell) {
    const std::string_view bits = trimBlanks(cell.definition->Bits_Negative_Format);
    const std::string kind = kindOf(cell);
    return bits.empty() || kind != "a number" ? kind : kind + " in the negative format " + std::string(bits);
}

/// Whether two cells that meet in a register take it in the same way.
bool agree(const Checked_Cell& a, const Checked_Cell& b) {
    const bool sameText = !a.cell->Is_Ascii_Range || addressText(*a.cell) == addressText(*b.cell);
    return readingOf(a) == readingOf(b) && sameText;
}

void checkSharedAddresses(const Checked_Template& checked, const Report& report) {
    struct User {
        Register_Span span;
        const Checked_Cell* cell;
    };
    std::vector<User> users;
    forEachAddress(checked, [&](const Checked_Cell& cell) {
        if (const auto span = cell.registers(); span && span->first <= span->last)
            users.push_back({*span, &cell});
    });
    std::stable_sort(users.begin(), users.end(),
                     [](const User& a, const User& b) { return a.span.first < b.span.first; });
    const User* reach = nullptr; // of those before, the one that reaches furthest
    for (const User& user : users) {
        if (reach != nullptr && reach->span.meets(user.span) && !agree(*reach->cell, *user.cell)) {
            const bool later = user.cell->address->number >= reach->cell->address->number;
            const Checked_Cell& blamed = later ? *user.cell : *reach->cell;
            const Checked_Cell& other = later ? *reach->cell : *user.cell;
            report(*blamed.address,
                   "register " + addressText(*blamed.cell) + " is " + readingOf(blamed) + " here (" +
                       blamed.place() + ") and " + readingOf(other) + " in " + other.place(),
                   "Correct the address, or give both cells the same format and list.");
        }
        if (reach == nullptr || user.span.last >= reach->span.last) reach = &user;
    }
}

void checkTimePairs(const Checked_Template& checked, const Report& report) {
    std::set<std::pair<std::string, Cell_Format>> present;
    forEachAddress(checked,
                   [&](const Checked_Cell& cell) { present.emplace(cell.cell->Address, cell.formatKind()); });
    forEachAddress(checked, [&](const Checked_Cell& cell) {
        const Cell_Format format = cell.formatKind();
        if (!isTimePart(format)) return;
        const Cell_Format part = format == Cell_Format::Minutes ? Cell_Format::Seconds : Cell_Format::Minutes;
        if (present.contains({cell.cell->Address, part})) return;
        const std::string other(wordOf(part));
        report(cell.format != nullptr ? *cell.format : cell.line(),
               std::string(wordOf(format)) + " at register " + cell.cell->Address + " without its " + other +
                   " (" + cell.place() + ")",
               "Give another cell the same register and the format " + other +
                   ", or write TIME for both in one cell.");
    });
}

bool isTyped(const Checked_Cell& cell) {
    return columnKind(cell.definition->Column_Type) != Column_Kind::Free_Text;
}

void checkLoneHalves(const Checked_Template& checked, const Report& report) {
    std::set<std::string> present;
    forEachAddress(checked, [&](const Checked_Cell& cell) { present.insert(cell.cell->Address); });
    forEachAddress(checked, [&](const Checked_Cell& cell) {
        const auto half = halfAddress(cell.cell->Address);
        if (!half || !cell.registers() || !isTyped(cell)) return;
        const std::string other =
            std::string(half->number) + (half->half == Register_Half::High ? "/LO" : "/HI");
        if (!present.contains(other))
            report(*cell.address, cell.cell->Address + " without " + other + " (" + cell.place() + ")",
                   "Give " + other + " a cell too, or take the whole register.");
    });
}

/// Whether a later line took from a cell what an earlier one had given it.
void compareLists(const Source_Line& before, const Source_Line& after, const Report& report) {
    const auto old = before.items();
    const auto fresh = after.items();
    std::vector<std::int32_t> columns;
    for (std::size_t i = 0; i < std::min(old.size(), fresh.size()); ++i)
        if (!trimBlanks(old[i]).empty() && old[i] != fresh[i])
            columns.push_back(static_cast<std::int32_t>(i) + 1);
    if (!columns.empty())
        report(after,
               "it replaces what line " + numberText(before.number) + " says of " + listed("column", columns),
               "Write one line that says it of all columns. ROWASCIIRANGE takes plain addresses too, and "
               "NUMERIC limits take times in seconds.");
}

void checkOverwrittenLists(const Checked_Template& checked, const Report& report) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 3> pairs = {{
        {"ROWADDRESS_#", "ROWASCIIRANGE_#"},
        {"ROWADDRESSNUMERICMINVALUE_#", "ROWADDRESSTIMEMINVALUE_#"},
        {"ROWADDRESSNUMERICMAXVALUE_#", "ROWADDRESSTIMEMAXVALUE_#"},
    }};
    std::map<std::tuple<std::int32_t, std::int32_t, std::size_t>, const Source_Line*> seen;
    for (const Source_Line& line : checked.lines())
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            if (!line.keyKnown || line.section != "FIELD_#_CONFIGURATION" ||
                (line.key != pairs[i].first && line.key != pairs[i].second))
                continue;
            const Source_Line*& before = seen[{line.sectionNumber, line.keyNumber, i}];
            if (before != nullptr && before->key != line.key) compareLists(*before, line, report);
            before = &line;
        }
}

void checkNegativeColumns(const Checked_Template& checked, const Report& report) {
    forEachAddress(checked, [&](const Checked_Cell& cell) {
        if (!numberOf(cell.definition->Bits_Negative_Format) || halfAddress(cell.cell->Address)) return;
        const std::string kind = kindOf(cell);
        if (kind != "a number")
            report(*cell.address, kind + " in a column with BITSNEGATIVEFORMAT (" + cell.place() + ")",
                   "Put the cell into a column without it.");
    });
}

void checkFreeText(const Checked_Template& checked, const Report& report) {
    forEachAddress(checked, [&](const Checked_Cell& cell) {
        if (!cell.definition->Modifiable || isTyped(cell) || cell.cell->Has_Messages || !cell.registers())
            return;
        report(*cell.address,
               "register " + addressText(*cell.cell) + " in a column of free text (" + cell.place() + ")",
               "Write COL_" + numberText(cell.column) +
                   "_TYPE=NUMERIC or TIME; a cell with a text range may stand in it too.");
    });
}

constexpr std::array addressRuleTable = {
    Rule{"address-form", Severity::Error, "an address that can't be read",
         "The cell is never read or written as it was meant, and its list isn't found.", checkAddressForms},
    Rule{"address-range", Severity::Error, "a register that has no address on the line",
         "Addresses on the line are register numbers less ADDRESSBASE, from 0 to 65535.", checkAddressRanges},
    Rule{"ascii-backwards", Severity::Error, "a text whose first register lies after its last",
         "The text has no registers.", checkBackwardTexts},
    Rule{"address-unscanned", Severity::Warning, "a register that lies in no scan block",
         "It is never read, so an upload puts 0 into the cell.", checkUnscanned},
    Rule{"address-shared", Severity::Warning, "a register used twice in different ways",
         "What one of the cells writes is nonsense to the other.", checkSharedAddresses},
    Rule{"time-pair", Severity::Warning, "a TIMEMM without its TIMESS, or the other way round",
         "One half of the time is neither shown nor set.", checkTimePairs},
    Rule{"half-alone", Severity::Warning,
         "a half of a register in a typed column, and no cell with the other half",
         "A write sends the whole register, so the other half goes along as it was last read, and nobody "
         "sees it.",
         checkLoneHalves},
    Rule{"list-replaces", Severity::Warning, "a list that takes from cells what an earlier line gave them",
         "Every list sets all columns that it reaches, also by an empty item.", checkOverwrittenLists},
    Rule{"bits-cell", Severity::Warning,
         "a list, time, text or unsigned cell in a column with BITSNEGATIVEFORMAT",
         "An upload and a refresh read every whole register of such a column as a plain number.",
         checkNegativeColumns},
    Rule{"free-text-register", Severity::Warning,
         "a cell with a register in a free-text column that can be edited",
         "Free text isn't checked, and never sent while online.", checkFreeText},
};

} // namespace

std::span<const Rule> addressRules() { return addressRuleTable; }

} // namespace zorvane::checker
