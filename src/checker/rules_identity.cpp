// SPDX-License-Identifier: MIT
// [IDENTITY]: by what a controller is told, and which of its registers need care.

#include "checker/rule.h"
#include "checker/wording.h"
#include "template/identity_reads.h"
#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

namespace zorvane::checker {

namespace {

constexpr std::int64_t mostInNumber = 4;
constexpr std::int64_t mostReadAtOnce = 125;
constexpr std::int32_t highestObject = 255;

/// A register, or `first-last`; nothing for any other text.
std::optional<Register_Span> spanOf(std::string_view text) {
    if (const auto one = plainNumber(text)) return Register_Span{*one, *one};
    return plainSpan(text);
}

/// How many registers a key may name at once; nothing for one that names none.
std::optional<std::int64_t> mostRegisters(const Source_Line& line) {
    if (line.key == "REGISTER_#") return mostInNumber;
    if (line.key == "TEXTAT_#" || line.key == "SERIAL" || line.key == "FIRMWARE") return mostReadAtOnce;
    return std::nullopt;
}

bool isList(const Source_Line& line) {
    return line.key == "WRITEONLY" || line.key == "LAST" || line.key == "LEAVEOUT";
}

void checkSpan(const Source_Line& line, std::string_view text, std::int64_t most, const Report& report) {
    const auto span = spanOf(text);
    if (!span)
        return report(line, quoted(text) + " names no registers",
                      "Write a register or first-last, such as 320-327, in digits and without blanks.");
    if (span->first > span->last)
        return report(line, quoted(text) + " goes backwards", "Write the lower register first.");
    if (span->count() > most)
        report(line, quoted(text) + " are " + counted(span->count(), "register"),
               "Name at most " + numberText(static_cast<double>(most)) + ".");
}

void checkRegisters(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (!line.in(identitySection) || !line.keyKnown) continue;
        if (const auto most = mostRegisters(line)) checkSpan(line, line.value, *most, report);
        if (!isList(line)) continue;
        for (const std::string_view item : line.items())
            checkSpan(line, trimBlanks(item), 65536, report);
    }
}

void checkNumbers(const Checked_Template& checked, const Report& report) {
    for (const std::string_view key : {"VALUE_#", "LOW_#", "HIGH_#", "MASK_#"})
        for (const Source_Line* line : checked.named(identitySection, key)) {
            const auto number = numberOf(line->value);
            if (number && std::floor(*number) == *number) continue;
            report(*line, quoted(line->value) + " is no whole number", "Write it in digits.");
        }
}

/// The lines of one mark.
struct Mark_Lines {
    explicit Mark_Lines(const Checked_Template& checked, std::int32_t number)
        : registers(last(checked, "REGISTER_#", number)), value(last(checked, "VALUE_#", number)),
          low(last(checked, "LOW_#", number)), high(last(checked, "HIGH_#", number)),
          mask(last(checked, "MASK_#", number)), text(last(checked, "TEXTAT_#", number)),
          is(last(checked, "IS_#", number)), what(last(checked, "WHAT_#", number)) {}

    static const Source_Line* last(const Checked_Template& checked, std::string_view key,
                                   std::int32_t number) {
        const auto lines = checked.named(identitySection, 0, key, number);
        return lines.empty() ? nullptr : lines.back();
    }
    /// The first of what is compared with a number.
    [[nodiscard]] const Source_Line* wanted() const {
        for (const Source_Line* each : {value, low, high})
            if (each != nullptr) return each;
        return nullptr;
    }

    const Source_Line* registers;
    const Source_Line* value;
    const Source_Line* low;
    const Source_Line* high;
    const Source_Line* mask;
    const Source_Line* text;
    const Source_Line* is;
    const Source_Line* what;
};

std::set<std::int32_t> markNumbers(const Checked_Template& checked) {
    std::set<std::int32_t> numbers;
    for (const Source_Line& line : checked.lines())
        if (line.in(identitySection) && line.keyKnown && line.key.ends_with("_#") && line.key != "OBJECT_#")
            numbers.insert(line.keyNumber);
    return numbers;
}

void checkMarks(const Checked_Template& checked, const Report& report) {
    for (const std::int32_t number : markNumbers(checked)) {
        const Mark_Lines mark(checked, number);
        const std::string n = numberText(number);
        if (mark.registers != nullptr && mark.wanted() == nullptr)
            report(*mark.registers, "REGISTER_" + n + " has nothing to be compared with",
                   "Write VALUE_" + n + "=, or LOW_" + n + "= and HIGH_" + n + "=.");
        if (mark.text != nullptr && (mark.is == nullptr || trimBlanks(mark.is->value).empty()))
            report(*mark.text, "TEXTAT_" + n + " has nothing to be compared with", "Write IS_" + n + "=.");
        const Source_Line* const wanted = mark.wanted() != nullptr ? mark.wanted() : mark.mask;
        if (wanted != nullptr && mark.registers == nullptr)
            report(*wanted, "no line says in which register this stands", "Write REGISTER_" + n + "=.");
        if (mark.is != nullptr && mark.text == nullptr)
            report(*mark.is, "no line says in which registers this stands", "Write TEXTAT_" + n + "=.");
        if (mark.what != nullptr && mark.registers == nullptr && mark.text == nullptr)
            report(*mark.what, "no line says in which registers this stands",
                   "Write REGISTER_" + n + "= or TEXTAT_" + n + "=.");
    }
}

/// Bounds of a number in so many registers, counted from 0 or with a sign.
bool canHold(std::int64_t registers, double number) {
    const double span = std::exp2(16.0 * static_cast<double>(registers));
    return number >= -span / 2 && number < span;
}

/// Whether the reader passes over a number, as it does over one that it can't hold with its sign.
bool isPassedOver(double number) {
    constexpr double limit = 9e18;
    return !(std::fabs(std::nearbyint(number)) < limit);
}

void checkHeld(const Checked_Template& checked, const Report& report) {
    for (const std::string_view key : {"VALUE_#", "LOW_#", "HIGH_#", "MASK_#"})
        for (const Source_Line* line : checked.named(identitySection, key)) {
            const auto number = numberOf(line->value);
            if (number && isPassedOver(*number))
                report(*line, quoted(line->value) + " is passed over, being too large",
                       "Write a number below 9000000000000000000, or compare fewer registers.");
        }
}

void checkFit(const Mark_Lines& mark, const Identity_Mark& read, const Report& report) {
    if (read.registers && read.registers->last - read.registers->first < mostInNumber)
        for (const Source_Line* line : {mark.value, mark.low, mark.high}) {
            const auto number = line == nullptr ? std::nullopt : numberOf(line->value);
            const std::int64_t count = std::int64_t{read.registers->last} - read.registers->first + 1;
            if (number && !isPassedOver(*number) && !canHold(count, *number))
                report(*line, quoted(line->value) + " doesn't fit into " + counted(count, "register"),
                       "Write a smaller number, or name more registers.");
        }
    if (read.value && read.mask && (*read.value & *read.mask) != *read.value)
        report(*mark.value, quoted(mark.value->value) + " has bits that the mask takes away",
               "Write the value as it is under the mask.");
    if (read.value && (read.low || read.high))
        report(*mark.value, "a value beside a lowest or highest one", "Keep either; the value alone counts.");
    if (read.low && read.high && *read.low > *read.high)
        report(*mark.high, "the lowest value is above the highest", "Swap the two.");
    if (read.text && read.is &&
        read.is->size() > 2 * static_cast<std::size_t>(read.text->last - read.text->first + 1))
        report(*mark.is, quoted(*read.is) + " is longer than its registers",
               "Name a register for each two characters.");
}

void checkFits(const Checked_Template& checked, const Report& report) {
    for (const Identity_Mark& mark : checked.identity().marks)
        checkFit(Mark_Lines(checked, mark.number), mark, report);
    checkHeld(checked, report);
}

/// The places of cells, by register.
std::vector<const Checked_Cell*> cellsAt(const Checked_Template& checked, const Register_Span& span) {
    std::vector<const Checked_Cell*> cells;
    for (const Checked_Cell& cell : checked.cells())
        if (const auto registers = cell.registers(); registers && registers->meets(span))
            cells.push_back(&cell);
    return cells;
}

void checkCells(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (!line.in(identitySection) || !line.keyKnown || !isList(line)) continue;
        for (const std::string_view item : line.items()) {
            const auto span = spanOf(trimBlanks(item));
            if (!span || span->first > span->last || !cellsAt(checked, *span).empty()) continue;
            report(line, "no cell has " + quoted(trimBlanks(item)),
                   "Write the registers of cells, as in [FIELD_n_CONFIGURATION].");
        }
    }
}

/// The line that names a range, the last one if several do.
const Source_Line* lineOf(const Checked_Template& checked, const Register_Range& range) {
    const Source_Line* found = nullptr;
    for (const Source_Line& line : checked.lines()) {
        if (!line.in(identitySection) || !line.keyKnown || !mostRegisters(line)) continue;
        const auto span = spanOf(line.value);
        if (span && span->first == range.first && span->last == range.last) found = &line;
    }
    return found;
}

void checkRequests(const Checked_Template& checked, const Report& report) {
    const std::vector<Register_Range> reads = identityReads(checked.document(), checked.identity());
    for (const Register_Range& wish : identityRegisters(checked.identity())) {
        const bool read = std::any_of(reads.begin(), reads.end(), [&](const Register_Range& each) {
            return each.first <= wish.first && wish.last <= each.last;
        });
        const Source_Line* const line = read ? nullptr : lineOf(checked, wish);
        if (line != nullptr)
            report(*line, quoted(line->value) + " would take one request too many",
                   "Put the registers next to others, or into one scan block with them.");
    }
}

constexpr std::array<std::string_view, 2> lineWords = {"unit", "baud"};

/// Whether the texts of a cell's list begin with numbers, if it has one.
bool namesNumbers(const Cell_Rec& cell) {
    for (std::int32_t i = 1; cell.Has_Messages && i <= cell.Messages.upperBound(); ++i)
        if (Val(cell.Messages(i).Text) <= 0) return false;
    return true;
}

void checkLinkItem(const Checked_Template& checked, const Source_Line& line, std::string_view item,
                   const Report& report) {
    const std::size_t colon = item.find(':');
    const std::string word = lowerCase(trimBlanks(item.substr(0, colon)));
    if (colon == std::string_view::npos || !plainNumber(trimBlanks(item.substr(colon + 1))))
        return report(line, quoted(item) + " isn't a word and a register",
                      "Write unit:REG or baud:REG, such as unit:116,baud:115.");
    if (std::find(lineWords.begin(), lineWords.end(), word) == lineWords.end()) {
        const std::string_view best = nearest(word, {lineWords.begin(), lineWords.end()});
        return report(line, quoted(word) + " is nothing of a line",
                      best.empty() ? "The known ones are unit or baud." : "Write " + std::string(best) + ".");
    }
    const std::int64_t number = *plainNumber(trimBlanks(item.substr(colon + 1)));
    const auto cells = cellsAt(checked, {number, number});
    if (cells.empty())
        return report(line, "no cell has register " + numberText(static_cast<double>(number)),
                      "Write the register of the cell that changes the line.");
    if (!namesNumbers(*cells.front()->cell))
        report(line,
               "a text of the list of register " + numberText(static_cast<double>(number)) + " is no number",
               "Begin each text of the list with its number, such as 9600.");
}

void checkLink(const Checked_Template& checked, const Report& report) {
    for (const Source_Line* line : checked.named(identitySection, "LINK"))
        for (const std::string_view item : line->items())
            checkLinkItem(checked, *line, trimBlanks(item), report);
}

void checkObjects(const Checked_Template& checked, const Report& report) {
    const auto allowed = checked.named(identitySection, "OBJECTS");
    for (const Source_Line* line : checked.named(identitySection, "OBJECT_#")) {
        if (line->keyNumber < 0 || line->keyNumber > highestObject)
            report(*line, "there is no object " + numberText(line->keyNumber),
                   "Objects count from 0 to 255.");
        else if (allowed.empty())
            report(*line, "an object that nobody asks for", "Write OBJECTS=YES.");
    }
}

constexpr std::array rules = {
    Rule{"identity-registers", Severity::Error, "registers in [IDENTITY] that can't be read",
         "What can't be asked for tells nothing, and what can't be found gets no care.", checkRegisters},
    Rule{"identity-number", Severity::Warning, "a number in [IDENTITY] that isn't written in whole digits",
         "The longest beginning that reads as a number counts, rounded, and 0 if there is none.",
         checkNumbers},
    Rule{"identity-mark", Severity::Warning, "a mark of the controller that lacks a line",
         "A register without a value, or a value without a register, tells nothing of the controller.",
         checkMarks},
    Rule{"identity-fit", Severity::Error, "a mark that no controller can have, or that counts in part",
         "With a mark that never fits every controller is a wrong one.", checkFits},
    Rule{"identity-requests", Severity::Warning, "registers in [IDENTITY] for which no request is left",
         "Who is at the other end is asked again and again, with at most three requests; a request for "
         "objects "
         "is one of them. What is left out is never read.",
         checkRequests},
    Rule{"identity-cell", Severity::Warning, "registers in [IDENTITY] that no cell has",
         "The key speaks of cells, so that this item has no effect.", checkCells},
    Rule{"identity-link", Severity::Warning, "an item of LINK that says nothing of the line",
         "Such a register is sent like any other, and the line isn't followed.", checkLink},
    Rule{"identity-objects", Severity::Warning, "an object of function 43/14 that isn't asked for",
         "Function 43/14 is sent only where OBJECTS=YES allows it.", checkObjects},
};

} // namespace

std::span<const Rule> identityRules() { return rules; }

} // namespace zorvane::checker
