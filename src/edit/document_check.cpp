// SPDX-License-Identifier: MIT
#include "edit/document_check.h"

#include "cells/cell_names.h"
#include "cells/format/cell_limits.h"
#include "checker/checker.h"
#include "checker/wording.h"
#include "edit/named_cells.h"
#include "edit/wanted_value.h"
#include "grids/rules/typed_entry.h"
#include "grids/rules/value_findings.h"
#include "template/pro_interpreta_linea.h"
#include "template/sections/messages.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"
#include "values/times.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>

namespace zorvane::edit {

namespace {

using checker::counted;
using checker::Finding;
using checker::quoted;
using checker::Severity;
using checker::Source_Line;

constexpr std::array<Document_Rule, 10> rules = {{
    {"text-comma", Severity::Error, "a text with a comma, which makes a row too long",
     "A comma ends a value. Reading stops in this line: its other values and all lines after it aren't "
     "read."},
    {"row-long", Severity::Error, "a row with more values than its page has columns",
     "Reading stops in this line: its other values and all lines after it aren't read."},
    {"row-cut", Severity::Error, "a row that a \";\" cuts",
     "What stands after the \";\" isn't read, and the next save drops it."},
    {"row-short", Severity::Warning, "a row with fewer values than its page has columns",
     "The columns that are missing keep the template's values."},
    {"row-unknown", Severity::Error, "a row that its page doesn't have",
     "The values aren't read, and the next save drops them."},
    {"page-unknown", Severity::Error, "a page that the template doesn't have",
     "Reading stops in this line: all lines after it aren't read either."},
    {"texts-short", Severity::Error, "a page with fewer texts than the upper grid has columns",
     "The upper grid can't be filled, and a save of the document fails."},
    {"value-limits", Severity::Error, "a value outside its limits",
     "It is read all the same, and a download writes it; at the window nobody could enter it."},
    {"value-list", Severity::Error, "a text that isn't in the list of its cell",
     "It is read as code 0, and the next save writes the text of that code."},
    {"value-form", Severity::Error, "a text where a number or a time must stand",
     "A download takes its beginning as far as that is a number, else 0."},
}};

const Document_Rule& rule(std::string_view code) {
    return *std::find_if(rules.begin(), rules.end(),
                         [code](const Document_Rule& each) { return each.code == code; });
}

/// A document says nothing to the link.
class No_Link final : public Link_Notice {
  public:
    void SetTimings(std::int32_t, std::int32_t) override {}
    void SetHoldingRegisters(std::int16_t, double, bool, std::int16_t) override {}
    void SetAddressBase(std::int32_t) override {}
};

bool isText(const Cell_Rec& definition, const Cell_Rec& cell) {
    return !cell.Has_Messages && !holdsNumbers(definition, cell);
}

/// Whether a text is no number and no time where its cell wants one. Plain seconds are a time in a file.
bool isMalformed(const Cell_Rec& definition, const Cell_Rec& cell, std::string_view item) {
    if (cell.Has_Messages || trimBlanks(item).empty() || isNumeric(item)) return false;
    const Entry_Kind kind = typedEntry(definition, cell, item).kind;
    return kind == Entry_Kind::Bad_Time || kind == Entry_Kind::Not_Numeric;
}

/// Whether a cell can take an item of a file as what it is. Where nobody can edit, any text may stand: a
/// name.
bool suits(const Cell_Rec& definition, const Cell_Rec& cell, std::string_view item) {
    if (trimBlanks(item).empty() || (!definition.Modifiable && !cell.Has_Messages)) return true;
    if (cell.Has_Messages) return listedCode(cell, item).has_value();
    return !isMalformed(definition, cell, item);
}

/// The limits of a cell's numbers or times as they are written in a file.
Limits writtenLimits(const Cell_Rec& definition, const Cell_Rec& cell) {
    if (isTime(cell.Value)) return {timeText(longValue(cell.Min_Value)), timeText(longValue(cell.Max_Value))};
    if (!fitsRegister(cell.Value, registerWidth(cell)) || !checksLimits(definition))
        return registerWidth(cell);
    return namedLimits(filledLimits(definition, cell));
}

/// Reads a file line by line into the document and notes what is to be known of it.
class Document_Checker {
  public:
    Document_Checker(Declara_Zorvane& document, std::string_view text)
        : document_(document), lines_("", text) {}

    std::vector<Finding> run() {
        document_.Unlisted.clear();
        checkLines();
        for (const Source_Line& line : lines_.lines()) {
            if (line.kind == checker::Line_Kind::Key)
                check(line);
            else if (line.failure)
                addStop(line, *line.failure);
        }
        checkValues();
        std::stable_sort(findings_.begin(), findings_.end(),
                         [](const Finding& a, const Finding& b) { return a.line < b.line; });
        return std::move(findings_);
    }

  private:
    void add(const Source_Line& line, std::string_view code, std::string what, std::string instead) {
        const Document_Rule& found = rule(code);
        findings_.push_back({line.number, found.severity, found.code, std::string(line.text), std::move(what),
                             std::string(found.why), std::move(instead)});
    }

    /// What the checker of templates knows of lines. A ";" is told of with its row.
    void checkLines() {
        for (const auto set : {checker::lineRules(), checker::keyRules()})
            for (const checker::Rule& each : set)
                if (each.code != "semicolon") each.check(lines_, checker::Report(each, findings_));
    }

    void check(const Source_Line& line) {
        if (line.is("FIELD_#_DEFAULT", "ROW_#")) checkRow(line);
        if (line.is("CONFIGURATION_DEFAULT", "FIELD_#")) checkTexts(line);
        bool ok = true;
        std::int32_t number = line.sectionNumber;
        try {
            PRO_Interpreta_Linea(document_, link_, line.section, line.rawKey, line.value, number, ok);
        } catch (const Run_Time_Failure& failure) {
            addStop(line, {failure.number(), failure.description()});
        }
    }

    /// The reader stops here; says so unless an error of the line has told it.
    void addStop(const Source_Line& line, const checker::Line_Failure& failure) {
        const bool told = std::any_of(findings_.begin(), findings_.end(), [&line](const Finding& finding) {
            return finding.line == line.number && finding.severity == Severity::Error;
        });
        if (told) return;
        findings_.push_back(checker::readingStop(line, failure));
        findings_.back().why = "The rest of the file isn't read.";
    }

    void checkTexts(const Source_Line& line) {
        checkCut(line);
        const std::size_t texts = line.items().size();
        const bool known = line.keyNumber >= 1 && line.keyNumber <= document_.Field_Count;
        if (!known || texts >= static_cast<std::size_t>(document_.Config_Column_Count)) return;
        add(line, "texts-short",
            counted(static_cast<std::int64_t>(texts), "text") + ", where the upper grid has " +
                counted(document_.Config_Column_Count, "column"),
            "Write a text for each column, empty ones too: a comma more for each.");
    }

    void checkCut(const Source_Line& line) {
        const std::size_t cut = line.text.find(';', line.text.find('='));
        if (cut == std::string_view::npos) return;
        add(line, "row-cut", "the row ends at its \";\": " + quoted(line.text.substr(cut)) + " is lost",
            "Write another sign in place of the \";\".");
    }

    void checkRow(const Source_Line& line) {
        checkCut(line);
        const std::int32_t last = document_.Field_Count;
        if (line.sectionNumber < 1 || line.sectionNumber > last)
            return add(line, "page-unknown",
                       "page " + numberText(line.sectionNumber) + ", which the template doesn't have",
                       last == 0 ? "Choose the template that the file was written for."
                                 : "Its pages are 1 to " + numberText(last) +
                                       ". Choose the template that the file was written for.");
        const Field_Rec& field = document_.Fields(line.sectionNumber);
        const std::vector<std::string_view> items = line.items();
        if (items.size() > static_cast<std::size_t>(field.Columns)) return addLong(line, field, items);
        if (line.keyNumber < 1 || line.keyNumber > field.Rows)
            return add(line, "row-unknown", "row " + numberText(line.keyNumber) + " of " + pageOf(line),
                       "The page has " + counted(field.Rows, "row") +
                           ". Choose the template that the file was written for.");
        if (items.size() < static_cast<std::size_t>(field.Columns)) addShort(line, field, items);
        noteItems(line, field, items);
    }

    void addLong(const Source_Line& line, const Field_Rec& field,
                 const std::vector<std::string_view>& items) {
        const std::string counts = counted(static_cast<std::int64_t>(items.size()), "value") + ", where " +
                                   pageOf(line) + " has " + counted(field.Columns, "column");
        if (const auto text = textWithComma(line, field, items))
            return add(line, "text-comma", counts + ": the text " + quoted(*text) + " has a comma in it",
                       "Write another sign in place of the comma: a file can't hold one.");
        add(line, "row-long", counts,
            "Choose the template that the file was written for, or take out what is too much.");
    }

    /// The text that a comma cut, if all values fit their cells once it is whole again.
    std::optional<std::string> textWithComma(const Source_Line& line, const Field_Rec& field,
                                             const std::vector<std::string_view>& items) const {
        if (line.keyNumber < 1 || line.keyNumber > field.Rows) return std::nullopt;
        const std::size_t more = items.size() - static_cast<std::size_t>(field.Columns);
        for (std::int32_t c = field.Columns; c >= 1; --c) {
            if (!isText(field.Cells(0, c), field.Cells(line.keyNumber, c))) continue;
            const auto first = static_cast<std::size_t>(c) - 1;
            if (!restSuits(field, line.keyNumber, items, first, more)) continue;
            const char* const begin = items[first].data();
            const std::string_view end = items[first + more];
            return std::string(begin, end.data() + end.size());
        }
        return std::nullopt;
    }

    static bool restSuits(const Field_Rec& field, std::int32_t row,
                          const std::vector<std::string_view>& items, std::size_t first, std::size_t more) {
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (i >= first && i <= first + more) continue;
            const auto column = static_cast<std::int32_t>(i < first ? i : i - more) + 1;
            if (!suits(field.Cells(0, column), field.Cells(row, column), items[i])) return false;
        }
        return true;
    }

    void addShort(const Source_Line& line, const Field_Rec& field,
                  const std::vector<std::string_view>& items) {
        add(line, "row-short",
            counted(static_cast<std::int64_t>(items.size()), "value") + ", where " + pageOf(line) + " has " +
                counted(field.Columns, "column"),
            "Write a value for each column, with commas between them.");
    }

    /// Which line a cell has its value from, and whether that is what its cell wants.
    void noteItems(const Source_Line& line, const Field_Rec& field,
                   const std::vector<std::string_view>& items) {
        for (std::size_t i = 0; i < items.size(); ++i) {
            const auto column = static_cast<std::int32_t>(i) + 1;
            const Cell_Place place{line.sectionNumber, line.keyNumber, column};
            origins_[place] = {&line, std::string(items[i])};
            const Cell_Rec& definition = field.Cells(0, column);
            if (!definition.Modifiable || !isMalformed(definition, field.Cells(place.row, column), items[i]))
                continue;
            const bool time =
                typedEntry(definition, field.Cells(place.row, column), items[i]).kind == Entry_Kind::Bad_Time;
            malformed_.insert(place);
            add(line, "value-form", quoted(items[i]) + (time ? " is no time" : " is no number") + at(place),
                time ? "Write m:ss, such as 1:30." : "Write a number.");
        }
    }

    void checkValues() {
        for (const Stray_Value& stray : strayValues(document_)) {
            const auto origin = origins_.find(stray.place);
            if (origin == origins_.end()) continue; // the template's own value
            const Cell_Table& cells = document_.Fields(stray.place.field).Cells;
            const Cell_Rec& cell = cells(stray.place.row, stray.place.column);
            const Source_Line& line = *origin->second.line;
            if (!stray.outside && suits(cells(0, stray.place.column), cell, origin->second.item)) continue;
            if (stray.outside && malformed_.contains(stray.place)) continue; // told of already
            if (stray.outside)
                addOutside(line, stray.place, cells(0, stray.place.column), cell);
            else
                add(line, "value-list", quoted(origin->second.item) + " isn't in the list" + at(stray.place),
                    "Write one of these: " + listedTexts(cell) + ".");
        }
    }

    void addOutside(const Source_Line& line, const Cell_Place& place, const Cell_Rec& definition,
                    const Cell_Rec& cell) {
        Limits limits = registerWidth(cell);
        ignoringFailure([&] { limits = writtenLimits(definition, cell); });
        const std::string range = limits.low + " to " + limits.high;
        add(line, "value-limits", quoted(cell.Value) + " is outside the limits " + range + at(place),
            "Write a value from " + range + ".");
    }

    [[nodiscard]] std::string pageOf(const Source_Line& line) const {
        return pageName(document_, line.sectionNumber);
    }
    [[nodiscard]] std::string at(const Cell_Place& place) const {
        return " (" + cellPath(document_, place) + ")";
    }

    struct Origin {
        const Source_Line* line = nullptr;
        std::string item;
    };

    Declara_Zorvane& document_;
    const checker::Checked_Template lines_;
    No_Link link_;
    std::vector<Finding> findings_;
    std::map<Cell_Place, Origin> origins_;
    std::set<Cell_Place> malformed_;
};

} // namespace

std::span<const Document_Rule> documentRules() { return rules; }

std::vector<Finding> checkDocument(Declara_Zorvane& document, std::string_view text) {
    return Document_Checker(document, text).run();
}

} // namespace zorvane::edit
