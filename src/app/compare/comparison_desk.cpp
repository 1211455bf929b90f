// SPDX-License-Identifier: MIT
#include "app/compare/comparison_desk.h"

#include "app/compare/other_document.h"
#include "app/edit/edit_state.h"
#include "app/edit/history_commands.h"
#include "compare/comparison_words.h"
#include "compare/other_version.h"
#include "compare/register_file.h"
#include "edit/history/history.h"
#include "template/services/file_names.h"
#include "values/code_page.h"

#include <algorithm>
#include <utility>

namespace zorvane::app {

namespace {

std::string openName(const Declara_Zorvane& document) {
    return lowerCase(document.File_Stem) + "." + lowerCase(document.File_Extension);
}

/// The runs whose template is that of the open document.
std::vector<commission::Run_Entry> runsOf(const commission::Run_Store& store, const std::string& model) {
    std::vector<commission::Run_Entry> all = commission::listRuns(store);
    std::erase_if(all, [&](const commission::Run_Entry& run) {
        return upperTrimmed(fromUtf8(run.head.model)) != upperTrimmed(model);
    });
    return all;
}

} // namespace

Comparison_Desk::Comparison_Desk(const App_Context& app, const commission::Run_Store& runs)
    : app_(app), store_(runs),
      section_(
          readIdentity(app.files.bytes(templateOfType(app, app.state.documentType)).value_or(std::string()))),
      runs_(runsOf(runs, app.document().Controller_Model)) {}

void Comparison_Desk::choose(Place_Of_Side place, Side_Choice choice) {
    choices_[index(place)] = std::move(choice);
}

bool Comparison_Desk::chosen(Side_Kind kind) const {
    return std::any_of(choices_.begin(), choices_.end(),
                       [kind](const Side_Choice& choice) { return choice.kind == kind; });
}

std::string Comparison_Desk::nameOf(Place_Of_Side place) const {
    const Side_Choice& choice = choices_[index(place)];
    switch (choice.kind) {
    case Side_Kind::Document:
        return openName(app_.document());
    case Side_Kind::Controller:
        return look_ ? look_->name + ", read at " + look_->time : "controller";
    case Side_Kind::Factory:
        return "factory values";
    case Side_Kind::Run:
        if (const commission::Run_Entry* const entry = run(choice.path))
            return "before the send of " + fromUtf8(entry->head.startedLocal);
        break;
    case Side_Kind::File:
    case Side_Kind::Registers:
        break;
    }
    return choice.path.empty() ? "no file yet" : choice.path;
}

compare::Identity_Question Comparison_Desk::question(Unit_Reader& reader, std::int32_t unit) const {
    return {app_.document(), section_, reader, unit};
}

std::string Comparison_Desk::identityText() const {
    return look_ && wantsController() ? compare::identitySentence(look_->seen.identity) : "";
}

void Comparison_Desk::setMiddle(bool on) {
    if (on == middle_) return;
    middle_ = on;
    const auto isDocument = [](const Side_Choice& choice) { return choice.kind == Side_Kind::Document; };
    if (!on && !chosen(Side_Kind::Document)) choices_[0] = {Side_Kind::Document};
    if (on && isDocument(choices_[0])) choices_[0] = {Side_Kind::Factory};
    if (on && isDocument(choices_[1])) choices_[1] = {Side_Kind::Controller};
}

Desk_Comparison Comparison_Desk::compare() const {
    if (middle_ && chosen(Side_Kind::Document))
        return {{}, {}, "The document stands in the middle. Choose something else to its left and right."};
    const Made_Side left = make(choices_[0]);
    if (left.side == nullptr) return {{}, {}, left.why};
    const Made_Side right = make(choices_[1]);
    if (right.side == nullptr) return {{}, {}, right.why};
    const Declara_Zorvane& shape = app_.document();
    if (!middle_) return {compare::comparisonOf({shape, section_, *left.side, *right.side}), {}, ""};
    const compare::Document_Side document(shape);
    return {compare::comparisonOf({shape, section_, document, *right.side}),
            compare::comparisonOf({shape, section_, *left.side, document}), ""};
}

Comparison_Desk::Made_Side Comparison_Desk::make(const Side_Choice& choice) const {
    Made_Side made;
    switch (choice.kind) {
    case Side_Kind::Document:
        made.side = std::make_unique<compare::Document_Side>(app_.document());
        return made;
    case Side_Kind::Controller:
        return makeController();
    case Side_Kind::Factory:
        return makeFile("");
    case Side_Kind::Run:
        if (const commission::Run_Entry* const entry = run(choice.path))
            return makeFile(documentOfRun(*entry));
        made.why = "Choose a send.";
        return made;
    case Side_Kind::Registers:
        if (!choice.path.empty()) return makeRegisters(choice.path);
        made.why = "Choose a file of registers.";
        return made;
    case Side_Kind::File:
        break;
    }
    if (!choice.path.empty()) return makeFile(choice.path);
    made.why = "Choose a file.";
    return made;
}

Comparison_Desk::Made_Side Comparison_Desk::makeController() const {
    Made_Side made;
    if (look_)
        made.side = std::make_unique<compare::Controller_Side>(
            app_.document(), section_, look_->seen.read.latest.registers, &look_->seen.read.earlier);
    else
        made.why = "The controller hasn't been read yet. Nothing is written by reading it.";
    return made;
}

/// The factory values are those of no file. A file of another type is read over its own template.
Comparison_Desk::Made_Side Comparison_Desk::makeFile(const std::string& path) const {
    Made_Side made;
    const std::string& own = app_.state.documentType;
    const std::string type = path.empty() ? own : lastExtension(path);
    Other_Document other = readOther(app_, templateOfType(app_, type), path);
    made.why = std::move(other.fault);
    made.document = std::move(other.document);
    if (made.document == nullptr) return made;
    if (upperTrimmed(type) == upperTrimmed(own))
        made.side = std::make_unique<compare::Document_Side>(*made.document);
    else
        made.side = std::make_unique<compare::Other_Version_Side>(app_.document(), *made.document);
    return made;
}

Comparison_Desk::Made_Side Comparison_Desk::makeRegisters(const std::string& path) const {
    Made_Side made;
    const auto bytes = app_.files.bytes(path);
    if (!bytes) {
        made.why = path + " can't be read. Choose another file.";
        return made;
    }
    try {
        made.registers = compare::Controller_Registers(compare::parseRegisters(*bytes));
    } catch (const compare::Bad_Register_File& bad) {
        made.why = path + ": " + fromUtf8(bad.what()) + ". Choose another file.";
        return made;
    }
    made.side = std::make_unique<compare::Controller_Side>(app_.document(), section_, made.registers);
    return made;
}

const commission::Run_Entry* Comparison_Desk::run(const std::string& name) const {
    const auto found = std::find_if(runs_.begin(), runs_.end(),
                                    [&](const commission::Run_Entry& entry) { return entry.name == name; });
    return found == runs_.end() ? nullptr : &*found;
}

std::string Comparison_Desk::documentOfRun(const commission::Run_Entry& run) const {
    return fromUtf8(store_.place()) + folderSeparator + run.name + folderSeparator + "controller." +
           app_.state.documentType;
}

std::optional<compare::Taken_Side> Comparison_Desk::takenSide() const {
    if (middle_)
        return chosen(Side_Kind::Document) ? std::nullopt : std::optional(compare::Taken_Side::Right);
    const bool left = choices_[0].kind == Side_Kind::Document;
    if (left == (choices_[1].kind == Side_Kind::Document)) return std::nullopt;
    return left ? compare::Taken_Side::Right : compare::Taken_Side::Left;
}

std::string Comparison_Desk::whyNotTake() const {
    if (!takenSide()) return "One of the sides has to be the document, and the other one something else.";
    return whyNoEditing(app_);
}

std::string Comparison_Desk::whyNotSend() const {
    return middle_ || chosen(Side_Kind::Document)
               ? ""
               : "One of the sides has to be the document: its values are sent.";
}

std::optional<Compared_With> Comparison_Desk::comparedWith() const {
    const auto side = takenSide();
    if (!side) return std::nullopt;
    const Place_Of_Side place =
        side == compare::Taken_Side::Left ? Place_Of_Side::Left : Place_Of_Side::Right;
    const Made_Side made = make(choice(place));
    if (made.side == nullptr) return std::nullopt;
    return Compared_With{nameOf(place), section_, compare::Kept_Side(app_.document(), *made.side),
                         Document_Mark(app_.document())};
}

compare::Comparison_Head Comparison_Desk::head(const std::string& filter) const {
    return {openName(app_.document()),
            nameOf(Place_Of_Side::Left),
            nameOf(Place_Of_Side::Right),
            identityText(),
            filter,
            app_.mainForm.timeOfDay()};
}

void takeIntoDocument(const App_Context& app, const compare::Taking& taking) {
    takeValues(app, taking.taken, edit::stepName("take", taking.changes()));
}

} // namespace zorvane::app
