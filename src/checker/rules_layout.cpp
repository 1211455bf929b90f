// SPDX-License-Identifier: MIT
// Fields, tables, columns, and lists that must be as long as the table is wide.

#include "checker/rule.h"
#include "checker/wording.h"
#include "values/numbers.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <set>
#include <utility>

namespace zorvane::checker {

namespace {

constexpr std::int64_t largestCount = std::numeric_limits<std::int16_t>::max();

/// Whether a section speaks of the field of its number.
bool isFieldSection(const Source_Line& line) {
    return line.section.starts_with("FIELD_#_") || line.section == "DEFAULT_#_COLUMNS";
}

/// The field that a known key line speaks of; nothing when it speaks of none.
std::optional<std::int32_t> fieldNamedBy(const Source_Line& line) {
    if (!line.keyKnown) return std::nullopt;
    if (isFieldSection(line)) return line.sectionNumber;
    if (line.section == "CONFIGURATION_FIELDS" || line.section == "CONFIGURATION_DEFAULT")
        return line.keyNumber;
    return std::nullopt;
}

void checkFieldLimit(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines())
        if (const auto field = fieldNamedBy(line); field && *field > highestField)
            report(line, "field " + numberText(*field) + " is above " + numberText(highestField),
                   "Number the fields from 1 to at most 100.");
}

void checkRepeatedFields(const Checked_Template& checked, const Report& report) {
    std::map<std::int32_t, std::int32_t> seen;
    for (const Source_Line* line : checked.named("CONFIGURATION_FIELDS", "FIELD_#_DESC")) {
        const auto [place, fresh] = seen.try_emplace(line->keyNumber, line->number);
        if (!fresh)
            report(*line,
                   "field " + numberText(line->keyNumber) + " was named in line " + numberText(place->second),
                   "Give each field a number of its own.");
    }
}

/// The first line that speaks of each field.
std::map<std::int32_t, const Source_Line*> fieldsSpokenOf(const Checked_Template& checked) {
    std::map<std::int32_t, const Source_Line*> fields;
    for (const Source_Line& line : checked.lines())
        if (const auto field = fieldNamedBy(line); field && *field >= 1 && *field <= highestField)
            fields.try_emplace(*field, &line);
    return fields;
}

std::set<std::int32_t> fieldsWith(const Checked_Template& checked, std::string_view key) {
    std::set<std::int32_t> fields;
    for (const Source_Line* line : checked.named("CONFIGURATION_FIELDS", key))
        fields.insert(line->keyNumber);
    return fields;
}

void checkMissingFields(const Checked_Template& checked, const Report& report) {
    const std::set<std::int32_t> described = fieldsWith(checked, "FIELD_#_DESC");
    std::int32_t next = 1;
    for (const auto& [field, line] : fieldsSpokenOf(checked)) {
        std::vector<std::int32_t> gap;
        for (; next < field; ++next)
            gap.push_back(next);
        if (!gap.empty())
            report(*line, "this is field " + numberText(field) + ", and there is no " + listed("field", gap),
                   "Number the fields 1, 2, 3 without a gap.");
        next = field + 1;
        if (!described.contains(field))
            report(*line, "field " + numberText(field) + " has no FIELD_" + numberText(field) + "_DESC",
                   "Name it in [CONFIGURATION_FIELDS], in front of its other lines.");
    }
}

bool isCount(std::string_view text) {
    const auto number = plainNumber(text);
    return number && *number >= 1 && *number <= largestCount;
}

void checkFieldSizes(const Checked_Template& checked, const Report& report) {
    for (const Source_Line* line : checked.named("CONFIGURATION_FIELDS", "FIELD_#_RC")) {
        const auto items = line->items();
        if (items.size() != 2 || !isCount(items[0]) || !isCount(items[1]))
            report(*line, quoted(line->value) + " is no size of a table",
                   "Write rows and columns, both from 1 to 32767, with a comma between: FIELD_" +
                       numberText(line->keyNumber) + "_RC=10,4.");
    }
    const std::set<std::int32_t> sized = fieldsWith(checked, "FIELD_#_RC");
    for (const Source_Line* line : checked.named("CONFIGURATION_FIELDS", "FIELD_#_DESC"))
        if (!sized.contains(line->keyNumber))
            report(*line,
                   "field " + numberText(line->keyNumber) + " has no FIELD_" + numberText(line->keyNumber) +
                       "_RC",
                   "Write FIELD_" + numberText(line->keyNumber) + "_RC=rows,columns.");
}

void checkEmptiedFields(const Checked_Template& checked, const Report& report) {
    for (const Source_Line* line : checked.named("CONFIGURATION_FIELDS", "FIELD_#_RC"))
        if (line->table)
            report(*line, "field " + numberText(line->keyNumber) + " has its table already",
                   "Write one FIELD_#_RC line a field.");
}

void checkBeforeSize(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (!line.keyKnown || !isFieldSection(line) || line.table) continue;
        if (line.sectionNumber < 0 || line.sectionNumber > highestField) continue;
        const std::string size = "FIELD_" + numberText(line.sectionNumber) + "_RC";
        report(line, "field " + numberText(line.sectionNumber) + " has no table yet",
               "Write " + size + " in [CONFIGURATION_FIELDS], and that section in front of this one.");
    }
}

bool isUpperColumn(const Source_Line& line) {
    return line.in("CONFIGURATION_COLUMNS") && line.keyKnown && line.key.starts_with("COL_#_");
}

void checkBeforeCount(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines())
        if (isUpperColumn(line) && line.upperColumns == 0)
            report(line, "the upper grid has no columns yet",
                   "Write CONFIGURATION_NC in front of the COL lines.");
}

std::string outside(std::string_view noun, std::int32_t number, std::int32_t last) {
    return std::string(noun) + " " + numberText(number) + " isn't there: " + std::string(noun) +
           "s go from 1 to " + numberText(last);
}

/// What a line says that lies outside its table; empty when nothing does.
std::string outsideTable(const Source_Line& line) {
    if (!line.keyKnown || !isFieldSection(line) || !line.table || line.section == "FIELD_#_MESSAGES")
        return "";
    const bool column = line.key.starts_with("COL_#_");
    const std::int32_t last = column ? line.table->columns : line.table->rows;
    if (line.keyNumber >= 1 && line.keyNumber <= last) return "";
    return outside(column ? "column" : "row", line.keyNumber, last);
}

std::string outsideFields(const Checked_Template& checked, const Source_Line& line) {
    const auto field = fieldNamedBy(line);
    if (!field || *field > highestField) return "";
    const std::int32_t last = checked.document().Field_Count;
    const bool upperTexts = line.section == "CONFIGURATION_DEFAULT" && *field > last;
    return *field < 1 || upperTexts ? outside("field", *field, last) : "";
}

void checkRanges(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        std::string what = outsideFields(checked, line);
        if (what.empty()) what = outsideTable(line);
        if (isUpperColumn(line) && line.upperColumns > 0 &&
            (line.keyNumber < 1 || line.keyNumber > line.upperColumns))
            what = outside("column", line.keyNumber, line.upperColumns);
        if (!what.empty()) report(line, what, "Correct the number, or the count that it goes by.");
    }
}

bool isRowList(const Source_Line& line) {
    return line.keyKnown && (line.section == "FIELD_#_CONFIGURATION" || line.section == "FIELD_#_DEFAULT") &&
           line.table;
}

std::string itemsAndColumns(std::size_t items, std::int32_t columns) {
    return counted(static_cast<std::int64_t>(items), "item") + " for " + counted(columns, "column");
}

void checkLongLists(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        const bool upper = line.is("CONFIGURATION_DEFAULT", "FIELD_#");
        if (!upper && !isRowList(line)) continue;
        const std::int32_t columns = upper ? checked.document().Config_Column_Count : line.table->columns;
        const auto items = line.items();
        if (std::cmp_greater(items.size(), columns))
            report(line, itemsAndColumns(items.size(), columns),
                   "Take out what is too much. A text can't hold a comma, quotation marks or not.");
    }
}

/// Lists that should say something of every column. Formats and limits may end early.
bool isWholeRow(const Source_Line& line) {
    return isRowList(line) &&
           (line.key == "ROWADDRESS_#" || line.key == "ROWASCIIRANGE_#" || line.key == "ROW_#");
}

/// Addresses may stand in two lines: then one of them has to reach the last column.
bool reachedByAnother(const Checked_Template& checked, const Source_Line& line, std::int32_t columns) {
    if (line.section != "FIELD_#_CONFIGURATION") return false;
    const std::string_view other = line.key == "ROWADDRESS_#" ? "ROWASCIIRANGE_#" : "ROWADDRESS_#";
    const auto lines = checked.named(line.section, line.sectionNumber, other, line.keyNumber);
    return std::any_of(lines.begin(), lines.end(), [&](const Source_Line* each) {
        return std::cmp_greater_equal(each->items().size(), columns);
    });
}

void checkShortLists(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (!isWholeRow(line)) continue;
        const std::int32_t columns = line.table->columns;
        const auto items = line.items();
        if (std::cmp_less(items.size(), columns) && !reachedByAnother(checked, line, columns))
            report(line, itemsAndColumns(items.size(), columns),
                   "Write one item for each column, empty ones too: a comma more for each.");
    }
}

void checkUpperTexts(const Checked_Template& checked, const Report& report) {
    const std::int32_t columns = checked.document().Config_Column_Count;
    if (columns < 1) return;
    const std::string advice = "Write one text for each column, empty ones too, in [CONFIGURATION_DEFAULT].";
    std::set<std::int32_t> fields;
    for (const Source_Line* line : checked.named("CONFIGURATION_DEFAULT", "FIELD_#")) {
        fields.insert(line->keyNumber);
        const auto items = line->items();
        if (std::cmp_less(items.size(), columns))
            report(*line, itemsAndColumns(items.size(), columns) + " of the upper grid", advice);
    }
    for (const Source_Line* line : checked.named("CONFIGURATION_FIELDS", "FIELD_#_DESC"))
        if (!fields.contains(line->keyNumber))
            report(*line, "field " + numberText(line->keyNumber) + " has no texts for the upper grid",
                   advice);
}

/// The numbers from 1 to `count` that aren't given.
std::vector<std::int32_t> missingFrom(const std::set<std::int32_t>& given, std::int32_t count) {
    std::vector<std::int32_t> missing;
    for (std::int32_t column = 1; column <= count; ++column)
        if (!given.contains(column)) missing.push_back(column);
    return missing;
}

void reportWidths(const Report& report, const Source_Line& line, const std::vector<std::int32_t>& missing) {
    if (missing.empty()) return;
    report(line, "no width for " + listed("column", missing),
           "Write COL_" + numberText(missing.front()) +
               "_WIDTH= in twips: 1440 to the inch. 0 hides a column on purpose.");
}

void checkMissingWidths(const Checked_Template& checked, const Report& report) {
    std::map<std::int32_t, std::set<std::int32_t>> given;
    std::set<std::int32_t> upper;
    for (const Source_Line& line : checked.lines()) {
        if (!line.keyKnown || line.key != "COL_#_WIDTH") continue;
        (isFieldSection(line) ? given[line.sectionNumber] : upper).insert(line.keyNumber);
    }
    for (const Source_Line* line : checked.named("CONFIGURATION_COLUMNS", "CONFIGURATION_NC"))
        reportWidths(report, *line, missingFrom(upper, checked.document().Config_Column_Count));
    std::set<std::int32_t> done;
    for (const Source_Line* line : checked.named("CONFIGURATION_FIELDS", "FIELD_#_RC")) {
        const std::int32_t field = line->keyNumber;
        if (field < 1 || field > highestField || !done.insert(field).second) continue;
        reportWidths(report, *line, missingFrom(given[field], checked.document().Fields(field).Columns));
    }
}

void checkEmptyRows(const Checked_Template& checked, const Report& report) {
    std::map<std::int32_t, std::set<std::int32_t>> spoken;
    for (const Checked_Cell& cell : checked.cells())
        spoken[cell.field].insert(cell.row);
    std::set<std::int32_t> done;
    for (const Source_Line* line : checked.named("CONFIGURATION_FIELDS", "FIELD_#_RC")) {
        const std::int32_t field = line->keyNumber;
        if (field < 1 || field > highestField || !done.insert(field).second) continue;
        const auto rows = missingFrom(spoken[field], checked.document().Fields(field).Rows);
        if (!rows.empty())
            report(*line, "no line speaks of " + listed("row", rows),
                   "Write its ROWADDRESS_" + numberText(rows.front()) + " and ROW_" +
                       numberText(rows.front()) + ", or lower the number of rows.");
    }
}

constexpr std::array layoutRuleTable = {
    Rule{"field-limit", Severity::Error, "a field above 100",
         "Reading stops there, and the rest of the file isn't read.", checkFieldLimit},
    Rule{"field-repeated", Severity::Error, "a field's number that was given already",
         "Every line counts one field more, whatever its number: the upper grid gets a row too many.",
         checkRepeatedFields},
    Rule{"field-missing", Severity::Error, "a gap in the numbers of the fields, or a field without a name",
         "The upper grid has as many rows as there are names, so the last fields are never shown.",
         checkMissingFields},
    Rule{"field-size", Severity::Error, "a field without a table, or with a size that can't be read",
         "Without its table a field has no cells.", checkFieldSizes},
    Rule{"field-emptied", Severity::Warning, "a second FIELD_#_RC of a field",
         "It makes the table again and empties it.", checkEmptiedFields},
    Rule{"before-size", Severity::Error, "a line about a field's cells or columns in front of its FIELD_#_RC",
         "The field has no cells yet: reading stops there, or the line has no effect.", checkBeforeSize},
    Rule{"before-count", Severity::Error, "a column of the upper grid in front of CONFIGURATION_NC",
         "The columns aren't there yet: reading stops at this line.", checkBeforeCount},
    Rule{"out-of-range", Severity::Error, "a row, column or field that isn't there",
         "Reading stops there, or what is said of it shows nowhere.", checkRanges},
    Rule{"list-long", Severity::Error, "a list with more items than there are columns",
         "Reading stops there, or the items that are too many are lost.", checkLongLists},
    Rule{"list-short", Severity::Warning,
         "a row's list of addresses or values that ends before the last column",
         "The cells after its end stay as they were: without an address, or without a value.",
         checkShortLists},
    Rule{"upper-texts", Severity::Warning, "a field with too few texts for the upper grid, or none",
         "Unless a document brings them, the upper grid can't be filled and nothing can be saved.",
         checkUpperTexts},
    Rule{"width-missing", Severity::Warning, "a column without a width",
         "Its width is 0, so it isn't to be seen.", checkMissingWidths},
    Rule{"row-empty", Severity::Warning, "a row of a field that no line speaks of",
         "It shows as an empty row.", checkEmptyRows},
};

} // namespace

std::span<const Rule> layoutRules() { return layoutRuleTable; }

} // namespace zorvane::checker
