// SPDX-License-Identifier: MIT
#include "commission/folder/state_folder.h"
#include "commission/record/qt/record_file.h"
#include "ctl/calls/qt/painted_calls.h"
#include "ctl/calls/qt/record_head_question.h"
#include "ctl/calls/qt/run_folder.h"
#include "ctl/document/given_value.h"
#include "ctl/document/notices.h"
#include "ctl/text/json_text.h"
#include "ctl/text/terminal.h"
#include "template/services/native_files.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace zorvane::ctl {

namespace {

using commission::Record;
using commission::Record_Head;

class Record_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        arguments.add_option("RUN", run_, "The run: a folder's name, a path, or \"last\"")->required();
        arguments
            .add_option(
                "--out", out_,
                "The file to write: .pdf (PDF/A-1b, a .json beside it), .json, .xls, .rtf, .txt, .tif "
                "or .html")
            ->required()
            ->type_name("FILE");
        arguments.add_option("--site", head_.site, "Where the controller is");
        arguments.add_option("--panel", head_.panel, "In which panel");
        arguments.add_option("--order", head_.order, "By which order");
        arguments.add_option("--tested-by", head_.testedBy, "Who did it");
        arguments.add_option("--witnessed-by", head_.witnessedBy, "Who saw it");
        arguments.add_option("--checks", checks_, "A text file: each line is something to be ticked by hand")
            ->type_name("FILE")
            ->check(givenValue());
    }

    int run(const Call_Context& context) override {
        const auto format = commission::recordFormatOf(out_);
        if (!format) {
            tell(context.err,
                 "The file's ending tells the format: .pdf, .json, .xls, .rtf, .txt, .tif or .html.");
            return Exit_Usage;
        }
        if (const char* const option = head_.unheld(); option != nullptr) {
            tell(context.err, std::string(option) + ": " + noRecordHolds);
            return finish(context, "");
        }
        std::optional<Record> record = made(context);
        if (!record) return finish(context, "");
        std::string hash;
        const auto failure = failureOf([&] { hash = commission::writeRecord(*record, out_, *format); });
        if (failure)
            tellFailure(context.err, printablePath(pathFromNative(out_)) + " could not be written", *failure);
        return finish(context, failure ? "" : hash);
    }

  private:
    /// The record, but for what couldn't be read, which is told.
    std::optional<Record> made(const Call_Context& context) {
        const Run_Folder_Name named = runFolderOf(context.stateFolder, run_);
        const commission::Record_Place place{context.files, context.applicationFolder, named.folder};
        auto record = commission::recordFrom(place, named.name);
        if (!record) {
            tell(context.err, "There is no run \"" + run_ + "\" in " + named.folder + ".");
            return std::nullopt;
        }
        name_ = named.name;
        if (!addChecks(context, *record)) return std::nullopt;
        record->head = headFor(context, place, named.name);
        return record;
    }

    bool addChecks(const Call_Context& context, Record& record) const {
        if (checks_.empty()) return true;
        const auto text = context.files.bytes(pathFromNative(checks_));
        if (text) record.checks = commission::checksOf(*text);
        if (!text) tell(context.err, printablePath(pathFromNative(checks_)) + " can't be read.");
        return text.has_value();
    }

    /// What the command line says, else what the run's folder keeps, else what is kept of the site; where
    /// nothing of it is there a terminal is asked. What comes of it is kept in both places.
    Record_Head headFor(const Call_Context& context, const commission::Record_Place& place,
                        const std::string& name) const {
        const std::string kept = commission::sitesFile(context.stateFolder);
        const std::string site = head_.site ? fromUtf8(*head_.site) : "";
        Record_Head head = head_.over(commission::headFor(place, name, kept, site));
        if (head == Record_Head{} && standardInputIsTerminal()) askForHead(context, head);
        if (head == Record_Head{}) return head;
        if (!commission::keepHead(place, name, kept, head))
            tell(context.err, "The head of the record can't be kept for the next one.");
        return head;
    }

    /// Tells what was written; `hash` is empty when nothing was.
    int finish(const Call_Context& context, const std::string& hash) const {
        const bool done = !hash.empty();
        if (context.json)
            printJson(context.out, {{"run", name_.empty() ? run_ : name_},
                                    {"output", done ? jsonPath(pathFromNative(out_)) : Json()},
                                    {"record", done ? Json(hash) : Json()}});
        else if (done)
            context.out << "Written: " << printablePath(pathFromNative(out_)) << ", record " << hash << '\n';
        return done ? Exit_Success : Exit_Failed;
    }

    std::string run_;
    std::string name_; ///< of the folder that it means
    std::string out_;
    std::string checks_;
    Head_Arguments head_;
};

} // namespace

std::unique_ptr<Subcommand> makeRecordSubcommand() { return std::make_unique<Record_Subcommand>(); }

} // namespace zorvane::ctl
