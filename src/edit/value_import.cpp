// SPDX-License-Identifier: MIT
#include "edit/value_import.h"

#include "edit/csv_text.h"
#include "edit/named_cells.h"
#include "edit/plain_number.h"
#include "edit/value_columns.h"
#include "grids/rules/value_findings.h"
#include "template/line_scanner.h"
#include "values/code_page.h"
#include "values/numbers.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace zorvane::edit {

namespace {

constexpr std::string_view separators = ",;\t|";
const std::string unclosedQuote =
    "a quote begins in the line that is never closed, and takes the rest of the file";
const std::string tooManyValues =
    "the line has more values than there are headings: one with the separator in it needs quotes";
const std::string noCharacter = "a character of the text is none that a file holds (Windows-1252)";

// Columns.

/// Where the columns that decide stand in a record.
struct Columns {
    std::size_t field = 0;
    std::size_t row = 0;
    std::size_t column = 0;
    std::size_t value = 0;
};

/// Whether a field is the heading `name`, in any letter case.
auto isHeading(std::string_view name) {
    return [name](const std::string& field) { return lowerCase(trimBlanks(field)) == name; };
}

std::optional<std::size_t> indexOf(const Csv_Record& headings, std::string_view wanted) {
    const auto found = std::find_if(headings.fields.begin(), headings.fields.end(), isHeading(wanted));
    if (found == headings.fields.end()) return std::nullopt;
    return static_cast<std::size_t>(found - headings.fields.begin());
}

std::optional<Columns> columnsOf(const Csv_Record& headings) {
    const auto field = indexOf(headings, value_columns[0]);
    const auto row = indexOf(headings, value_columns[1]);
    const auto column = indexOf(headings, value_columns[2]);
    const auto value = indexOf(headings, value_columns.back());
    if (!field || !row || !column || !value) return std::nullopt;
    return Columns{*field, *row, *column, *value};
}

/// What is wrong with headings of which one that decides stands twice; "" when none does.
std::string doubledHeading(const Csv_Record& headings) {
    for (const std::string_view name :
         {value_columns[0], value_columns[1], value_columns[2], value_columns.back()})
        if (std::count_if(headings.fields.begin(), headings.fields.end(), isHeading(name)) > 1)
            return "the heading " + std::string(name) + " stands twice";
    return "";
}

bool isEmpty(const Csv_Record& record) {
    return std::all_of(record.fields.begin(), record.fields.end(),
                       [](const std::string& field) { return trimBlanks(field).empty(); });
}

/// The headings are the first line with a text. Some spreadsheets write "sep=;" above them.
std::size_t headingsAt(const std::vector<Csv_Record>& records) {
    std::size_t at = 0;
    const auto skipEmpty = [&] {
        while (at < records.size() && isEmpty(records[at]))
            ++at;
    };
    skipEmpty();
    if (at == records.size() || !lowerCase(records[at].fields[0]).starts_with("sep=")) return at;
    ++at;
    skipEmpty();
    return at;
}

// Rows.

std::string fieldOf(const Csv_Record& record, std::size_t index) {
    return index < record.fields.size() ? record.fields[index] : std::string();
}

std::optional<std::int32_t> countedFromOne(std::string_view text) {
    constexpr std::size_t longest = 9;
    const std::string_view digits = trimBlanks(text);
    const bool number =
        !digits.empty() && digits.size() <= longest &&
        std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!number) return std::nullopt;
    const std::int32_t value = longValue(digits);
    return value > 0 ? std::optional(value) : std::nullopt;
}

std::optional<Cell_Place> placeOf(std::string_view field, std::string_view row, std::string_view column) {
    const auto f = countedFromOne(field);
    const auto r = countedFromOne(row);
    const auto c = countedFromOne(column);
    if (!f || !r || !c) return std::nullopt;
    return Cell_Place{*f, *r, *c};
}

/// Whether a text stands after the last heading's column.
bool goesBeyond(const Csv_Record& record, std::size_t headings) {
    const std::size_t within = std::min(headings, record.fields.size());
    return std::any_of(record.fields.begin() + static_cast<std::ptrdiff_t>(within), record.fields.end(),
                       [](const std::string& field) { return !trimBlanks(field).empty(); });
}

Wanted_Value wantedValue(const Csv_Record& record, const Columns& columns, std::size_t headings) {
    Wanted_Value wanted;
    wanted.line = record.line;
    const auto place = placeOf(fieldOf(record, columns.field), fieldOf(record, columns.row),
                               fieldOf(record, columns.column));
    bool whole = true;
    wanted.text = unguarded(fromUtf8(fieldOf(record, columns.value), &whole));
    if (record.unclosed)
        wanted.problem = unclosedQuote;
    else if (goesBeyond(record, headings))
        wanted.problem = tooManyValues;
    else if (!place)
        wanted.problem = "field, row and column are no numbers from 1";
    else if (record.fields.size() <= columns.value)
        wanted.problem = "the line ends before its value";
    else if (!whole)
        wanted.problem = noCharacter;
    wanted.place = place.value_or(Cell_Place{});
    return wanted;
}

Value_File valuesOf(const std::vector<Csv_Record>& records, std::size_t headingsAt, const Columns& columns,
                    char separator) {
    Value_File file;
    file.separator = separator;
    file.problem = doubledHeading(records[headingsAt]);
    const std::size_t headings = records[headingsAt].fields.size();
    for (std::size_t i = headingsAt + 1; file.problem.empty() && i < records.size(); ++i)
        if (records[i].unclosed || !isEmpty(records[i]))
            file.values.push_back(wantedValue(records[i], columns, headings));
    return file;
}

// Lines.

/// The cell that a line names, by numbers or by its name.
void findPlace(const Declara_Zorvane& document, std::string_view name, Wanted_Value& wanted) {
    const std::vector<Csv_Record> parts = csvRecords(name, ',');
    if (parts.size() == 1 && parts[0].fields.size() == 3) {
        const auto place = placeOf(parts[0].fields[0], parts[0].fields[1], parts[0].fields[2]);
        if (place) {
            wanted.place = *place;
            return;
        }
    }
    const std::vector<Cell_Place> places = cellsNamed(document, name);
    if (places.size() == 1)
        wanted.place = places.front();
    else
        wanted.problem = nameProblem(document, name, places);
}

bool saysNothing(std::string_view line) {
    const std::string_view text = trimBlanks(line);
    return text.empty() || text[0] == '#' || text[0] == ';';
}

Wanted_Value wantedValue(const Declara_Zorvane& document, std::string_view utf8, std::int32_t number) {
    Wanted_Value wanted;
    wanted.line = number;
    bool whole = true;
    const std::string line = fromUtf8(utf8, &whole);
    const std::size_t equals = line.find('=');
    if (!whole)
        wanted.problem = noCharacter;
    else if (equals == std::string::npos)
        wanted.problem = "the line is not NAME = TEXT";
    else
        findPlace(document, trimBlanks(std::string_view(line).substr(0, equals)), wanted);
    if (equals != std::string::npos) wanted.text = trimBlanks(std::string_view(line).substr(equals + 1));
    return wanted;
}

// The check.

char decimalSignOf(const Declara_Zorvane& document, const std::vector<Wanted_Value>& values) {
    std::vector<std::string_view> numbers;
    for (const Wanted_Value& wanted : values) {
        if (!wanted.problem.empty() || !hasCell(document, wanted.place)) continue;
        const Cell_Table& cells = document.Fields(wanted.place.field).Cells;
        const Cell_Rec& cell = cells(wanted.place.row, wanted.place.column);
        if (!cell.Has_Messages && holdsNumbers(cells(0, wanted.place.column), cell))
            numbers.emplace_back(wanted.text);
    }
    return provenDecimalSign(numbers);
}

/// A cell by its name, and one that isn't there by its numbers.
std::string cellText(const Declara_Zorvane& document, const Cell_Place& place) {
    if (hasCell(document, place)) return cellPath(document, place);
    return "field " + numberText(place.field) + ", row " + numberText(place.row) + ", column " +
           numberText(place.column);
}

std::string whyNot(const Declara_Zorvane& document, const Wanted_Value& wanted, const Refusal& refusal) {
    return cellText(document, wanted.place) + ": \"" + wanted.text + "\" is " + refusal.why;
}

/// Sorts the values of a file, each cell once.
class Import_Checker {
  public:
    Import_Checker(const Declara_Zorvane& document, const Reading_Style& style)
        : document_(document), style_(style) {}

    void add(const Wanted_Value& wanted) {
        if (!wanted.problem.empty()) return leaveOut(wanted, wanted.problem);
        const auto [earlier, first] = texts_.try_emplace(wanted.place, wanted);
        if (!first && earlier->second.text != wanted.text)
            return leaveOut(wanted, cellText(document_, wanted.place) + ": line " +
                                        numberText(earlier->second.line) + " has another value for it, \"" +
                                        earlier->second.text + "\"");
        Verdict verdict = judged(document_, wanted.place, wanted.text, style_);
        if (const auto* const refusal = std::get_if<Refusal>(&verdict))
            leaveOut(wanted, whyNot(document_, wanted, *refusal));
        else
            check.taken.push_back(std::get<Taken_Value>(std::move(verdict)));
    }

    Import_Check check;

  private:
    void leaveOut(const Wanted_Value& wanted, std::string why) {
        check.leftOut.push_back({wanted.line, std::move(why)});
    }

    const Declara_Zorvane& document_;
    const Reading_Style& style_;
    std::map<Cell_Place, Wanted_Value> texts_;
};

} // namespace

Value_File readValueFile(std::string_view bytes) {
    const Decoded_Text text = asUtf8(bytes);
    Value_File file;
    file.problem = text.problem;
    if (!file.problem.empty()) return file;
    for (const char separator : separators) {
        const std::vector<Csv_Record> records = csvRecords(text.utf8, separator);
        const std::size_t at = headingsAt(records);
        const auto columns = at < records.size() ? columnsOf(records[at]) : std::nullopt;
        if (columns) return valuesOf(records, at, *columns, separator);
    }
    file.problem = "its first line doesn't have the headings field, row, column and value";
    return file;
}

Value_File readValueLines(const Declara_Zorvane& document, std::string_view bytes) {
    const Decoded_Text text = asUtf8(bytes);
    Value_File file;
    file.problem = text.problem;
    std::string_view rest = text.utf8;
    std::int32_t number = 0;
    while (const auto line = takeLine(rest)) {
        ++number;
        if (!saysNothing(*line)) file.values.push_back(wantedValue(document, *line, number));
    }
    return file;
}

Import_Check checkImport(const Declara_Zorvane& document, const std::vector<Wanted_Value>& values,
                         const Reading_Style& style) {
    Reading_Style found = style;
    if (!style.asTyped) found.decimalSign = decimalSignOf(document, values);
    Import_Checker checker(document, found);
    for (const Wanted_Value& wanted : values)
        checker.add(wanted);
    checker.check.decimalSign = style.asTyped ? '\0' : found.decimalSign;
    return std::move(checker.check);
}

} // namespace zorvane::edit
