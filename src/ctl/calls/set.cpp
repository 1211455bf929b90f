// SPDX-License-Identifier: MIT
#include "ctl/calls/document_calls.h"
#include "ctl/calls/values/commit_values.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/field_argument.h"
#include "ctl/document/given_value.h"
#include "ctl/document/lower_grid.h"
#include "ctl/document/model_json.h"
#include "ctl/document/notices.h"
#include "ctl/document/text_file.h"
#include "edit/named_cells.h"
#include "edit/wanted_value.h"
#include "grids/rules/value_findings.h"
#include "template/services/native_files.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <ostream>
#include <string>

namespace zorvane::ctl {

namespace {

Json entryJson(const Entry_Note& note) {
    const Entry_Outcome& outcome = note.outcome;
    return {{"refused", outcome.refused ? jsonText(*outcome.refused) : Json()},
            {"Value", jsonText(outcome.Value)},
            {"Min_Value", jsonText(outcome.Min_Value)},
            {"Max_Value", jsonText(outcome.Max_Value)},
            {"grid", jsonText(outcome.grid)},
            {"messages", messagesJson(note.messages)},
            {"Dirty", note.Dirty},
            {"failure", jsonFailure(note.failure)}};
}

void tellEntry(std::ostream& err, const Entry_Note& note) {
    for (const Message_Note& message : note.messages)
        tell(err, printable(message.text));
    if (note.outcome.refused)
        tell(err, "The cell can't be edited: " + printable(*note.outcome.refused) + ".");
    if (note.failure) tellFailure(err, "The entry could not be committed", *note.failure);
}

/// The entries of a list as they are typed here, and what they mean.
void tellEntries(std::ostream& err, const Cell_Rec& cell) {
    std::string entries;
    for (std::int32_t i = 1; i <= cell.Messages.upperBound(); ++i)
        entries += (i > 1 ? ", " : "") + std::to_string(i - 1) + " " + printable(cell.Messages(i).Text);
    tell(err, "The cell is a list. Give the number of an entry: " + entries + ".");
}

/// What a failed entry was for, where the failure alone says too little.
void tellPlace(std::ostream& err, const Opened_Document& opened, const Cell_Place& place) {
    const Declara_Zorvane& document = opened.document;
    tellMissingField(err, opened, place.field);
    if (place.field > document.Field_Count) return; // which has been told
    const Field_Rec& field = document.Fields(place.field);
    if (place.row > field.Rows || place.column > field.Columns)
        return tell(err, "Field " + std::to_string(place.field) + " has " + std::to_string(field.Rows) +
                             " rows and " + std::to_string(field.Columns) + " columns.");
    const Cell_Rec& cell = field.Cells(place.row, place.column);
    if (cell.Has_Messages) tellEntries(err, cell);
}

/// A list's text, committed as reading a file does: the cell takes the code of the entry.
Entry_Note commitListText(Declara_Zorvane& document, const Cell_Place& place, const std::string& text) {
    Entry_Note note;
    const edit::Verdict verdict = edit::judged(document, place, text, {});
    const auto* const taken = std::get_if<edit::Taken_Value>(&verdict);
    if (taken == nullptr)
        note.outcome.refused = "\"" + text + "\" is " + std::get<edit::Refusal>(verdict).why;
    else
        edit::apply(document, {*taken});
    const Cell_Rec& cell = document.Fields(place.field).Cells(place.row, place.column);
    note.outcome.Value = cell.Value;
    note.outcome.Min_Value = cell.Min_Value;
    note.outcome.Max_Value = cell.Max_Value;
    note.outcome.grid = edit::valueText(cell);
    note.Dirty = taken != nullptr;
    return note;
}

bool isList(const Declara_Zorvane& document, const Cell_Place& place) {
    return hasCell(document, place) &&
           document.Fields(place.field).Cells(place.row, place.column).Has_Messages;
}

const char* const forms =
    "Other forms:\n"
    "  set TEMPLATE CONFIG NAME TEXT          NAME is PAGE/ROW or PAGE/ROW/HEADING, as in \"Regulation/Set "
    "point\"\n"
    "  set TEMPLATE CONFIG NAME --text TEXT   TEXT is the text of a list's entry, not its number; also with\n"
    "                                         FIELD ROW COLUMN\n"
    "  set TEMPLATE CONFIG --from FILE        all lines NAME = TEXT of a file, or a file of \"export\": all "
    "or none";

class Set_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addConfiguration(arguments);
        addField(arguments, place_.field);
        arguments.add_option("ROW", place_.row, "The row's number, from 1")
            ->required()
            ->check(countedFromOne());
        arguments.add_option("COLUMN", place_.column, "The column's number, from 1")
            ->required()
            ->check(countedFromOne());
        arguments
            .add_option("TEXT", text_,
                        "What the user types; in a list cell the entry's number, from 0. After \"--\" if it "
                        "is an option's name")
            ->required();
        CLI::Option* const save =
            arguments.add_option("--save", out_, "Write the changed document to this file");
        save->type_name("OUT")->check(givenValue());
        CLI::Option* const accept =
            arguments.add_flag("--accept", accept_, "Write it also with a limit or 0 in place of the text");
        accept->needs(save);
        // Taken out of the line by `takeForm`.
        arguments.add_option("--text", "The text of a list's entry in place of its number")
            ->type_name("TEXT")
            ->expected(0, 1);
        arguments.add_option("--from", from_, "Commit all values of this file, or none")
            ->type_name("FILE")
            ->check(givenValue())
            ->excludes(accept);
        arguments.footer(forms);
    }

    void takeForm(CLI::App& arguments, Command_Line& line) override {
        const std::size_t hasText = takeText(arguments, line) ? 1 : 0;
        const std::size_t given = line.plain.size() + hasText;
        const bool fromFile = hasWord(line, "--from");
        if (fromFile && given != 2) throw CLI::ExcludesError("--from", "a cell and its text");
        const auto notRequired = [&arguments](const std::vector<const char*>& names) {
            for (const char* const name : names)
                arguments.get_option(name)->required(false);
        };
        if (given == 4 && line.argument(2).find('/') != std::string::npos) {
            name_ = line.argument(2);
            if (hasText == 0) text_ = line.argument(3);
            while (line.plain.size() > 2)
                takeLast(line);
            notRequired({"FIELD", "ROW", "COLUMN", "TEXT"});
        } else if (hasText == 1) {
            notRequired({"TEXT"});
        } else if (fromFile) {
            notRequired({"FIELD", "ROW", "COLUMN", "TEXT"});
        }
    }

    [[nodiscard]] bool endsInText() const override { return true; }

    int run(const Call_Context& context) override {
        if (!from_.empty()) return runFile(context);
        bool whole = true;
        const std::string text = fromUtf8(text_, &whole);
        if (!whole) {
            Entry_Note note;
            note.outcome.refused = "the text has a character that no cell can hold (Windows-1252)";
            tell(context.err, "The text has a character that no cell can hold (Windows-1252).");
            if (context.json) printJson(context.out, resultJson(note, false));
            return Exit_Failed;
        }
        Opened_Document opened = files_.open(context);
        if (!name_.empty() && !findNamed(context, opened)) return Exit_Failed;
        const bool asText = asText_ && isList(opened.document, place_);
        const Entry_Note note = asText ? commitListText(opened.document, place_, text)
                                       : commitEntry(opened.document, place_, text);
        tellEntry(context.err, note);
        if (note.failure) tellPlace(context.err, opened, place_);
        const bool saved = out_.empty() || save(context, opened, note);
        if (context.json)
            printJson(context.out, resultJson(note, saved));
        else
            context.out << printable(note.outcome.grid) << '\n';
        return opened.readToTheEnd() && note.committed() && saved ? Exit_Success : Exit_Failed;
    }

  private:
    /// Takes "--text" out of the line, with its text if that stands after it; whether it does.
    bool takeText(const CLI::App& arguments, Command_Line& line) {
        const auto isPlain = [&line](std::size_t place) {
            return std::find(line.plain.begin(), line.plain.end(), place) != line.plain.end();
        };
        for (std::size_t at = 0; at < line.words.size(); ++at) {
            if (line.words[at] != "--text" || isPlain(at)) continue;
            asText_ = true;
            const std::size_t next = at + 1;
            const bool hasText = next < line.words.size() && !isPlain(next) && line.words[next] != "--" &&
                                 arguments.get_option_no_throw(line.words[next]) == nullptr;
            if (hasText) text_ = line.words[next];
            takeOut(line, at, hasText ? 2 : 1);
            return hasText;
        }
        return false;
    }

    static void takeOut(Command_Line& line, std::size_t at, std::size_t count) {
        const auto first = line.words.begin() + static_cast<std::ptrdiff_t>(at);
        line.words.erase(first, first + static_cast<std::ptrdiff_t>(count));
        for (std::size_t& place : line.plain)
            if (place > at) place -= count;
    }

    static void takeLast(Command_Line& line) {
        const std::size_t at = line.plain.back();
        line.plain.pop_back();
        takeOut(line, at, 1);
    }

    static bool hasWord(const Command_Line& line, std::string_view word) {
        return std::any_of(line.words.begin(), line.words.end(),
                           [word](const std::string& each) { return each == word; });
    }

    /// The cell that the name stands for. False, with what is wrong, when it isn't one.
    bool findNamed(const Call_Context& context, const Opened_Document& opened) {
        const std::string name = fromUtf8(name_);
        const std::vector<Cell_Place> places = edit::cellsNamed(opened.document, name);
        if (places.size() == 1) {
            place_ = places.front();
            return true;
        }
        Entry_Note note;
        note.outcome.refused = edit::nameProblem(opened.document, name, places);
        tell(context.err, printable(*note.outcome.refused) + ".");
        if (context.json) printJson(context.out, resultJson(note, false));
        return false;
    }

    [[nodiscard]] int runFile(const Call_Context& context) const {
        const auto bytes = readFile(context, from_);
        if (!bytes) return commitNothing(context);
        Opened_Document opened = files_.open(context);
        Values_To_Commit values{pathFromNative(from_), edit::readValueFile(*bytes), {}, out_, false};
        if (!values.file.problem.empty() && values.file.separator == '\0') { // no table: a list
            values.file = edit::readValueLines(opened.document, *bytes);
            values.style = {true, '.', asText_ ? edit::List_Numbers::Codes : edit::List_Numbers::Entries};
        }
        return commitValues(context, opened, values);
    }

    /// A document that doesn't hold what was typed is written only to somebody who accepts that.
    [[nodiscard]] bool save(const Call_Context& context, Opened_Document& opened,
                            const Entry_Note& note) const {
        if (note.outcome.Value.find('\n') != std::string::npos) {
            tell(context.err, "The text has a line end, which no file holds. The document was not written.");
            return false;
        }
        if (note.taken() || (accept_ && note.committed())) return saveDocument(context, opened, out_).empty();
        if (note.committed())
            tell(context.err, "\"" + printable(fromUtf8(text_)) +
                                  "\" was not taken: the cell would be saved as \"" +
                                  printable(note.outcome.Value) + "\". Give another text, or --accept.");
        tell(context.err, "The document was not written.");
        return false;
    }

    [[nodiscard]] Json resultJson(const Entry_Note& note, bool saved) const {
        Json json = entryJson(note);
        if (!out_.empty()) json["saved"] = saved;
        return json;
    }

    Document_Arguments files_;
    Cell_Place place_;
    std::string text_;
    std::string out_;
    bool accept_ = false;
    std::string name_; ///< in place of the numbers; UTF-8, as on the command line
    bool asText_ = false;
    std::string from_;
};

} // namespace

std::unique_ptr<Subcommand> makeSetSubcommand() { return std::make_unique<Set_Subcommand>(); }

} // namespace zorvane::ctl
