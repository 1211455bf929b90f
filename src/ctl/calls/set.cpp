// SPDX-License-Identifier: MIT
#include "ctl/calls/document_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/field_argument.h"
#include "ctl/document/lower_grid.h"
#include "ctl/document/model_json.h"
#include "ctl/document/notices.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

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
        save->type_name("OUT");
        arguments.add_flag("--accept", accept_, "Write it also with a limit or 0 in place of the text")
            ->needs(save);
    }

    [[nodiscard]] bool endsInText() const override { return true; }

    int run(const Call_Context& context) override {
        bool whole = true;
        const std::string text = fromUtf8(text_, &whole);
        if (!whole) {
            tell(context.err, "The text has a character that no cell can hold (Windows-1252).");
            return Exit_Failed;
        }
        Opened_Document opened = files_.open(context);
        const Entry_Note note = commitEntry(opened.document, place_, text);
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
    /// A document that doesn't hold what was typed is written only to somebody who accepts that.
    [[nodiscard]] bool save(const Call_Context& context, Opened_Document& opened,
                            const Entry_Note& note) const {
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
};

} // namespace

std::unique_ptr<Subcommand> makeSetSubcommand() { return std::make_unique<Set_Subcommand>(); }

} // namespace zorvane::ctl
