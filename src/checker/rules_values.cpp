// SPDX-License-Identifier: MIT
// Limits and default values of cells.

#include "checker/rule.h"
#include "checker/wording.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/registers.h"
#include "values/times.h"

#include <algorithm>
#include <array>

namespace zorvane::checker {

namespace {

struct Bounds {
    double low;
    double high;

    [[nodiscard]] bool hold(double value) const { return low <= value && value <= high; }
    [[nodiscard]] std::string text() const { return numberText(low) + " to " + numberText(high); }
};

bool isNumberOrTime(const Checked_Cell& cell) {
    return !cell.cell->Has_Messages && !cell.cell->Is_Ascii_Range;
}

/// What the cell's register can hold as the program reads it.
Bounds registerBounds(const Checked_Cell& cell) {
    if (halfAddress(cell.cell->Address)) return {0, 255};
    const bool whole = numberOf(cell.definition->Bits_Negative_Format) == 0.0;
    if (whole || cell.formatKind() == Cell_Format::Unsigned) return {0, 65535};
    return {-32768, 32767};
}

template <class Look> void forEachNumber(const Checked_Template& checked, Look&& look) {
    for (const Checked_Cell& cell : checked.cells())
        if (isNumberOrTime(cell)) look(cell);
}

/// The cell's limits; nothing unless both are there.
std::optional<Bounds> limitsOf(const Cell_Rec& cell) {
    const auto low = numberOf(cell.Min_Value);
    const auto high = numberOf(cell.Max_Value);
    return low && high ? std::optional(Bounds{*low, *high}) : std::nullopt;
}

const Source_Line* limitLine(const Checked_Cell& cell) {
    return cell.maximum != nullptr ? cell.maximum : cell.minimum;
}

void checkLimitOrder(const Checked_Template& checked, const Report& report) {
    forEachNumber(checked, [&](const Checked_Cell& cell) {
        const auto limits = limitsOf(*cell.cell);
        if (limits && limits->low > limits->high && limitLine(cell) != nullptr)
            report(*limitLine(cell),
                   "the lowest value " + numberText(limits->low) + " is above the highest, " +
                       numberText(limits->high) + " (" + cell.place() + ")",
                   "Exchange the two, or correct the one that is wrong.");
    });
}

/// The default as the number that limits are held against.
std::optional<double> defaultNumber(const Checked_Cell& cell) {
    const std::string& value = cell.cell->Value;
    if (cell.formatKind() != Cell_Format::Time) return numberOf(value);
    std::optional<double> seconds;
    ignoringFailure([&] {
        if (isTime(value)) seconds = timeSeconds(value);
    });
    return seconds;
}

void checkDefaultsInLimits(const Checked_Template& checked, const Report& report) {
    forEachNumber(checked, [&](const Checked_Cell& cell) {
        const auto value = defaultNumber(cell);
        if (!value || cell.value == nullptr || limitLine(cell) == nullptr) return;
        const auto low = numberOf(cell.cell->Min_Value);
        const auto high = numberOf(cell.cell->Max_Value);
        if (low && high && *low > *high) return; // told of already
        const bool inside = (!low || *value >= *low) && (!high || *value <= *high);
        if (inside) return;
        report(*cell.value,
               "the default " + quoted(cell.cell->Value) + " lies outside the limits " +
                   quoted(cell.cell->Min_Value) + " and " + quoted(cell.cell->Max_Value) + " (" +
                   cell.place() + ")",
               "Correct the default, or the limits in line " + numberText(limitLine(cell)->number) + ".");
    });
}

void checkDefaultsInRegister(const Checked_Template& checked, const Report& report) {
    forEachNumber(checked, [&](const Checked_Cell& cell) {
        const auto value = defaultNumber(cell);
        if (!value || cell.value == nullptr || !cell.registers() || registerBounds(cell).hold(*value)) return;
        report(*cell.value,
               "the default " + quoted(cell.cell->Value) + " doesn't fit the register, which holds " +
                   registerBounds(cell).text() + " (" + cell.place() + ")",
               "Correct the default, or write the format NUMERIC_UNSIGNED.");
    });
}

bool isTimeLimit(const Source_Line& line) { return line.key.starts_with("ROWADDRESSTIME"); }

/// Calls `look` for the lines that gave a cell its limits.
template <class Look> void forEachLimit(const Checked_Template& checked, Look&& look) {
    forEachNumber(checked, [&](const Checked_Cell& cell) {
        for (const Source_Line* line : {cell.minimum, cell.maximum})
            if (line != nullptr) look(cell, *line, cell.itemOf(*line));
    });
}

void checkLimitTexts(const Checked_Template& checked, const Report& report) {
    forEachLimit(checked, [&](const Checked_Cell& cell, const Source_Line& line, std::string_view item) {
        if (trimBlanks(item).empty() || (isTimeLimit(line) ? isTime(item) : isNumeric(item))) return;
        const std::string kind = isTimeLimit(line) ? "time" : "number";
        report(line, quoted(item) + " is no " + kind + " (" + cell.place() + ")",
               isTimeLimit(line) ? "Write m:ss, such as 1:30." : "Write a number; a time in seconds.");
    });
}

void checkEmptyLimits(const Checked_Template& checked, const Report& report) {
    forEachLimit(checked, [&](const Checked_Cell& cell, const Source_Line& line, std::string_view item) {
        if (!trimBlanks(item).empty() || cell.cell->Address.empty()) return;
        const bool highest = line.key.find("MAX") != std::string::npos;
        const bool cuts = cell.formatKind() == Cell_Format::Unsigned && highest;
        if (!isTimeLimit(line) && !cuts) return;
        report(line,
               std::string("the empty item sets ") + (isTimeLimit(line) ? "0" : "32767") + " (" +
                   cell.place() + ")",
               isTimeLimit(line) ? "Write the limit, or NUMERIC limits for the row with the times in seconds."
                                 : "Write 65535.");
    });
}

void checkLimitsInRegister(const Checked_Template& checked, const Report& report) {
    forEachLimit(checked, [&](const Checked_Cell& cell, const Source_Line& line, std::string_view item) {
        if (!cell.registers() || isTimeLimit(line)) return;
        const auto limit = numberOf(item);
        if (limit && !registerBounds(cell).hold(*limit))
            report(line,
                   "the limit " + quoted(item) + " is beyond the register, which holds " +
                       registerBounds(cell).text() + " (" + cell.place() + ")",
                   "Write a limit that the register can hold, or the format NUMERIC_UNSIGNED.");
    });
}

void checkSingleLimits(const Checked_Template& checked, const Report& report) {
    forEachNumber(checked, [&](const Checked_Cell& cell) {
        if (cell.formatKind() != Cell_Format::Time || (cell.minimum == nullptr) == (cell.maximum == nullptr))
            return;
        report(*limitLine(cell),
               std::string("a time with a ") + (cell.minimum != nullptr ? "lowest" : "highest") +
                   " value only (" + cell.place() + ")",
               "Write both limits.");
    });
}

bool isMessage(const Cell_Rec& cell, std::string_view item) {
    const std::string wanted = upperTrimmed(item);
    const auto number = numberOf(item);
    for (std::int32_t k = 1; k <= cell.Messages.upperBound(); ++k)
        if (upperTrimmed(cell.Messages(k).Text) == wanted || (number && *number == cell.Messages(k).Code))
            return true;
    return false;
}

void checkDefaultMessages(const Checked_Template& checked, const Report& report) {
    for (const Checked_Cell& cell : checked.cells()) {
        if (!cell.cell->Has_Messages || cell.value == nullptr) continue;
        const std::string_view item = cell.itemOf(*cell.value);
        if (!isMessage(*cell.cell, item))
            report(*cell.value, quoted(item) + " is no text of the list (" + cell.place() + ")",
                   "Write a text of the list or its code.");
    }
}

bool isBehind(const Source_Line* line, const Source_Line* other) {
    return line != nullptr && other != nullptr && line->number > other->number;
}

void checkDefaultOrder(const Checked_Template& checked, const Report& report) {
    for (const Checked_Cell& cell : checked.cells()) {
        const bool list =
            cell.cell->Has_Messages && isBehind(cell.messages, cell.value) && !isNumeric(cell.cell->Value);
        const bool time = cell.formatKind() == Cell_Format::Time && isBehind(cell.format, cell.value) &&
                          !isTime(cell.cell->Value);
        if (list || time)
            report(*cell.value,
                   std::string("a default in front of the line that makes the cell a ") +
                       (list ? "list (" : "time (") + cell.place() + ")",
                   "Write [FIELD_n_DEFAULT] after [FIELD_n_CONFIGURATION] and [FIELD_n_MESSAGES].");
    }
}

/// Whether a typed text becomes a number in the cell, or the grid makes one of it.
bool wantsNumber(const Checked_Cell& cell) {
    if (!isNumberOrTime(cell) || cell.formatKind() == Cell_Format::Time) return false;
    if (halfAddress(cell.cell->Address)) return true;
    return takesNumbers(columnKind(cell.definition->Column_Type)) && cell.definition->Modifiable;
}

void checkDefaultNumbers(const Checked_Template& checked, const Report& report) {
    for (const Checked_Cell& cell : checked.cells())
        if (wantsNumber(cell) && !isNumeric(cell.cell->Value))
            report(cell.value != nullptr ? *cell.value : cell.line(),
                   "the default " + quoted(cell.cell->Value) + " is no number (" + cell.place() + ")",
                   "Write a number in ROW_" + numberText(cell.row) + " of [FIELD_" + numberText(cell.field) +
                       "_DEFAULT], such as 0. A column of remarks has the type TEXT.");
}

void checkDefaultTimes(const Checked_Template& checked, const Report& report) {
    forEachNumber(checked, [&](const Checked_Cell& cell) {
        if (cell.formatKind() != Cell_Format::Time || cell.value == nullptr) return;
        const std::string_view item = cell.itemOf(*cell.value);
        if (!isTime(item) && !isNumeric(item))
            report(*cell.value, "the default " + quoted(item) + " is no time (" + cell.place() + ")",
                   "Write m:ss such as 1:30, or seconds such as 90.");
    });
}

/// Calls `look` for each text with a range of registers and a default.
template <class Look> void forEachText(const Checked_Template& checked, Look&& look) {
    for (const Checked_Cell& cell : checked.cells())
        if (const auto span = cell.registers();
            cell.cell->Is_Ascii_Range && cell.value != nullptr && span && span->count() > 0)
            look(cell, *span);
}

void checkLongTexts(const Checked_Template& checked, const Report& report) {
    forEachText(checked, [&](const Checked_Cell& cell, const Register_Span& span) {
        const std::int64_t room = 2 * span.count();
        if (std::cmp_greater(cell.cell->Value.size(), room))
            report(*cell.value,
                   "the text " + quoted(cell.cell->Value) + " is longer than " + counted(room, "character") +
                       " (" + cell.place() + ")",
                   "Shorten the text, or widen its range: two characters a register.");
    });
}

void checkTextCharacters(const Checked_Template& checked, const Report& report) {
    forEachText(checked, [&](const Checked_Cell& cell, const Register_Span&) {
        const std::string& text = cell.cell->Value;
        if (std::any_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) >= 0x80; }))
            report(*cell.value,
                   "the text " + quoted(text) + " has a character beyond ASCII (" + cell.place() + ")",
                   "Write it with letters of ASCII.");
    });
}

constexpr std::array valueRuleTable = {
    Rule{"limits-order", Severity::Error, "a lowest value above the highest", "No value is accepted.",
         checkLimitOrder},
    Rule{"limits-default", Severity::Warning, "limits that exclude the default",
         "The user can't type the factory value, once it was changed.", checkDefaultsInLimits},
    Rule{"limits-text", Severity::Warning, "a limit that is no number, or no time where a time must stand",
         "It counts as -32768 or 32767, or as 0 for a time.", checkLimitTexts},
    Rule{"limits-empty", Severity::Warning, "an empty limit that sets 0, or 32767 in an unsigned cell",
         "Every list sets all columns that it reaches, also by an empty item, and so the cell refuses good "
         "values.",
         checkEmptyLimits},
    Rule{"limits-register", Severity::Warning, "a limit beyond what the register holds",
         "Values up to the limit pass it and are refused all the same.", checkLimitsInRegister},
    Rule{"limits-single", Severity::Warning, "a time with one limit only",
         "The limit of a time holds only when there are two.", checkSingleLimits},
    Rule{"default-message", Severity::Warning, "a default that is no text of the cell's list",
         "It counts as code 0.", checkDefaultMessages},
    Rule{"default-order", Severity::Warning, "a default in front of the cell's list or format",
         "It is kept as it stands, and isn't taken for a text of the list or for seconds.",
         checkDefaultOrder},
    Rule{"default-number", Severity::Warning, "a default that is no number where one must stand",
         "An edit of the cell, or the filling of the grid, stops with \"Type mismatch\".",
         checkDefaultNumbers},
    Rule{"default-register", Severity::Warning, "a default that the register can't hold",
         "A download writes another number.", checkDefaultsInRegister},
    Rule{"default-time", Severity::Warning, "a default that is no time in a time cell", "It counts as 0:00.",
         checkDefaultTimes},
    Rule{"text-long", Severity::Warning, "a default that is longer than the registers of its text",
         "A download cuts it off.", checkLongTexts},
    Rule{"text-character", Severity::Warning, "a default with a character that a text can't send",
         "A download of it stops with \"Overflow\".", checkTextCharacters},
};

} // namespace

std::span<const Rule> valueRules() { return valueRuleTable; }

} // namespace zorvane::checker
