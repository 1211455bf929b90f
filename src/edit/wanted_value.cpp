// SPDX-License-Identifier: MIT
#include "edit/wanted_value.h"

#include "edit/plain_number.h"
#include "edit/plain_time.h"
#include "grids/commit/commit_value.h"
#include "grids/rules/edit_rules.h"
#include "grids/rules/typed_entry.h"
#include "grids/rules/value_findings.h"
#include "template/sections/messages.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

#include <algorithm>
#include <cmath>

namespace zorvane::edit {

namespace {

/// A text for a cell, with all that judging it asks for.
struct Question {
    Cell_Place place;
    const Cell_Rec& definition;
    const Cell_Rec& cell;
    std::string_view text;
    const Reading_Style& style;
};

Verdict unchanged(const Question& asked) {
    return Taken_Value{asked.place, asked.cell.Value, std::nullopt, false};
}

Verdict taken(const Question& asked, std::string value) {
    const bool changes = value != asked.cell.Value;
    return Taken_Value{asked.place, std::move(value), std::nullopt, changes};
}

/// What is wrong with a text whatever its cell, as far as a file goes.
std::optional<Refusal> unholdable(std::string_view text) {
    if (text.find_first_of("\r\n\t") != std::string_view::npos)
        return Refusal{"a text with a line end or a tab, which no file holds"};
    const bool control =
        std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; });
    if (control) return Refusal{"a text with a control character"};
    if (text.find(',') != std::string_view::npos) return Refusal{"a text with a comma, which no file holds"};
    if (text.find(';') != std::string_view::npos) return Refusal{"a text with a \";\", which no file holds"};
    return std::nullopt;
}

// Lists.

/// The code of the entry that the text names: by its text first, then by a number.
std::optional<std::int32_t> codeOf(const Question& asked) {
    const Cell_Rec& cell = asked.cell;
    const std::string wanted = upperTrimmed(asked.text);
    const bool byPlace = asked.style.lists == List_Numbers::Entries && isNumeric(asked.text);
    for (std::int32_t k = 1; !byPlace && k <= cell.Messages.upperBound(); ++k)
        if (upperTrimmed(cell.Messages(k).Text) == wanted) return cell.Messages(k).Code;
    if (!isNumeric(asked.text)) return std::nullopt;
    const double number = Val(asked.text);
    if (byPlace) {
        const bool listed = number >= 0 && number < cell.Messages.upperBound() && number == toLong(number);
        return listed ? std::optional(toLong(number)) : std::nullopt;
    }
    for (std::int32_t k = 1; k <= cell.Messages.upperBound(); ++k)
        if (cell.Messages(k).Code == number) return cell.Messages(k).Code;
    return std::nullopt;
}

Verdict judgedList(const Question& asked) {
    const auto code = codeOf(asked);
    if (!code) return Refusal{"not in its list (" + listedTexts(asked.cell) + ")"};
    return taken(asked, numberText(*code));
}

// Numbers and times.

Refusal readableTwoWays(const std::string& one, const std::string& other) {
    return Refusal{"readable two ways, as " + one + " or " + other};
}

bool saysTheSame(const Question& asked, const std::string& text) {
    const std::string& value = asked.cell.Value;
    if (isNumeric(text) && isNumeric(value)) return Val(text) == Val(value);
    return isTime(text) && isTime(value) && timeSeconds(text) == timeSeconds(value);
}

Refusal outside(double value, double low, double high, const std::string& lowText,
                const std::string& highText) {
    if (value > high) return Refusal{"above its limit " + highText};
    if (value < low) return Refusal{"below its limit " + lowText};
    return Refusal{"outside its limits " + lowText + " and " + highText};
}

/// Whether a time, `m:ss`, is of whole seconds. Typing rounds others, which would be unseen here.
bool isOfWholeSeconds(std::string_view text) {
    const std::size_t colon = text.find(':');
    const double seconds = Val(text.substr(0, colon)) * 60.0 + Val(text.substr(colon + 1));
    return seconds == std::floor(seconds);
}

Verdict judgedTime(const Question& asked, const Typed_Entry& entry) {
    const Cell_Rec& cell = asked.cell;
    const Way_Out way = wayOutOf(asked.definition, cell, entry);
    if (const auto* const accepted = std::get_if<Time_Accepted>(&way)) return taken(asked, accepted->time);
    return outside(timeSeconds(entry.text), Val(cell.Min_Value), Val(cell.Max_Value),
                   timeText(longValue(cell.Min_Value)), timeText(longValue(cell.Max_Value)));
}

Verdict judgedNumber(const Question& asked, const Typed_Entry& entry) {
    Cell_Rec cell = asked.cell;
    const Limits filled = filledLimits(asked.definition, cell);
    cell.Min_Value = filled.low;
    cell.Max_Value = filled.high;
    const Way_Out way = wayOutOf(asked.definition, cell, entry);
    if (const auto* const refused = std::get_if<Number_Refused>(&way))
        return outside(Val(entry.text), Val(filled.low), Val(filled.high), refused->limits.low,
                       refused->limits.high);
    if (const auto* const wide = std::get_if<Number_Too_Wide>(&way))
        return Refusal{"beyond its register (" + wide->width.low + " to " + wide->width.high + ")"};
    Verdict verdict = taken(asked, numberText(Val(entry.text)));
    std::get<Taken_Value>(verdict).limits = filled;
    return verdict;
}

/// Judges a number or a time in the system's own writing.
Verdict judgedPlain(const Question& asked, const std::string& text) {
    const Typed_Entry entry = typedEntry(asked.definition, asked.cell, text);
    switch (entry.kind) {
    case Entry_Kind::Time:
        return judgedTime(asked, entry);
    case Entry_Kind::Number:
        return judgedNumber(asked, entry);
    case Entry_Kind::Bad_Time:
        return Refusal{"not a time such as 1:30"};
    default:
        return Refusal{"not a number"};
    }
}

Verdict judgedNumberOrTime(const Question& asked) {
    if (trimBlanks(asked.text).empty()) return Refusal{"empty, where a value must stand"};
    std::string text(asked.text);
    std::string other;
    if (isTime(text) && !isOfWholeSeconds(text)) return Refusal{"a time with a part of a second"};
    if (!asked.style.asTyped) {
        if (const auto number = plainNumber(text)) {
            const bool settled =
                asked.style.decimalSign != '\0' && text.find(asked.style.decimalSign) != std::string::npos;
            if (!settled) other = number->other;
            text = number->text;
        } else if (const auto time = spreadsheetTime(text)) {
            text = time->text;
            other = time->other;
        }
    }
    if (saysTheSame(asked, text)) return unchanged(asked);
    if (!other.empty()) return readableTwoWays(text, other);
    return judgedPlain(asked, text);
}

// Texts.

Verdict judgedText(const Question& asked) {
    if (auto refusal = unholdable(asked.text)) return *refusal;
    if (asked.cell.Is_Ascii_Range) {
        const std::int32_t most = editMaxLengthOf(asked.cell);
        if (most > 0 && asked.text.size() > static_cast<std::size_t>(most))
            return Refusal{"longer than its " + numberText(most) + " characters"};
    }
    return taken(asked, std::string(asked.text));
}

Verdict judgedCell(const Question& asked) {
    if (asked.text == valueText(asked.cell)) return unchanged(asked);
    const bool list = asked.cell.Has_Messages;
    const bool numbers = !list && holdsNumbers(asked.definition, asked.cell);
    Verdict verdict = list ? judgedList(asked) : (numbers ? judgedNumberOrTime(asked) : judgedText(asked));
    const auto* const value = std::get_if<Taken_Value>(&verdict);
    if (!asked.definition.Modifiable && (value == nullptr || value->changes))
        return Refusal{"in a column that can't be edited"};
    return verdict;
}

} // namespace

bool holdsNumbers(const Cell_Rec& definition, const Cell_Rec& cell) {
    switch (commitPath(definition.Column_Type, cell.Format)) {
    case Commit_Path::Time:
        return true;
    case Commit_Path::Number:
        return !cell.Is_Ascii_Range;
    case Commit_Path::Free_Text:
        break;
    }
    return false;
}

std::string listedTexts(const Cell_Rec& cell) {
    constexpr std::int32_t most = 12;
    const std::int32_t count = cell.Messages.upperBound();
    std::string entries;
    for (std::int32_t k = 1; k <= std::min(count, most); ++k)
        entries += (k > 1 ? ", " : "") + cell.Messages(k).Text;
    return count > most ? entries + ", ..." : entries;
}

std::string valueText(const Cell_Rec& cell) {
    if (!cell.Has_Messages) return cell.Value;
    std::string text = cell.Value;
    ignoringFailure([&] {
        const std::int32_t code = longValue(cell.Value);
        if (isListed(cell, code)) text = messageText(cell, code);
    });
    return text;
}

Verdict judged(const Declara_Zorvane& document, const Cell_Place& place, std::string_view text,
               const Reading_Style& style) {
    if (!hasCell(document, place)) return Refusal{"for a cell that the template doesn't have"};
    const Cell_Table& cells = document.Fields(place.field).Cells;
    Verdict verdict = Refusal{"too large a number"};
    ignoringFailure([&] {
        verdict = judgedCell({place, cells(0, place.column), cells(place.row, place.column), text, style});
    });
    return verdict;
}

std::int32_t apply(Declara_Zorvane& document, const std::vector<Taken_Value>& values) {
    return static_cast<std::int32_t>(applyNoting(document, values).size());
}

std::vector<Value_Change> applyNoting(Declara_Zorvane& document, const std::vector<Taken_Value>& values) {
    std::vector<Value_Change> changes;
    for (const Taken_Value& taken : values) {
        if (!taken.changes) continue;
        Cell_Rec& cell = document.Fields(taken.place.field).Cells(taken.place.row, taken.place.column);
        changes.push_back({taken.place, cell.Value, taken.value});
        cell.Value = taken.value;
        if (taken.limits) {
            cell.Min_Value = taken.limits->low;
            cell.Max_Value = taken.limits->high;
        }
    }
    return changes;
}

} // namespace zorvane::edit
