// SPDX-License-Identifier: MIT
#include "commission/folder/digests.h"
#include "commission/folder/native_runs.h"
#include "commission/record/record_deviations.h"
#include "commission/record/record_head.h"
#include "commission/record/record_json.h"
#include "commission/record/record_of_run.h"
#include "commission/record/record_report.h"
#include "ctl/calls/qt/painted_calls.h"
#include "ctl/calls/qt/record_head_question.h"
#include "ctl/calls/qt/run_folder.h"
#include "ctl/document/notices.h"
#include "ctl/document/opened_document.h"
#include "ctl/text/json_text.h"
#include "ctl/text/terminal.h"
#include "reports/export/byte_file.h"
#include "reports/export/export_format.h"
#include "reports/qt/qt_archive_pdf.h"
#include "reports/qt/qt_page_exporters.h"
#include "reports/qt/qt_report_fonts.h"
#include "template/services/native_files.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <ostream>

namespace zorvane::ctl {

namespace {

using commission::Native_Runs;
using commission::Record;
using commission::Record_Head;

/// A format as the file's ending names it; nothing for JSON.
struct Record_Format {
    bool known = false;
    std::optional<Export_Format> painted;
};

Record_Format formatOf(const std::string& path) {
    std::string ending = lowerCase(std::filesystem::path(path).extension().string());
    if (!ending.empty()) ending.erase(0, 1);
    if (ending == "json") return {true, {}};
    if (ending == "htm") ending = "html";
    if (ending == "tiff") ending = "tif";
    const auto format = formatOfName(ending);
    return {format.has_value(), format};
}

/// "2026-11-22T07:40:05.123Z" to the second.
std::string toTheSecond(const std::string& utc) {
    return utc.size() >= 19 ? utc.substr(0, 19) + "Z" : "1970-01-01T00:00:00Z";
}

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
            ->type_name("FILE");
    }

    int run(const Call_Context& context) override {
        const Record_Format format = formatOf(out_);
        if (!format.known) {
            tell(context.err,
                 "The file's ending tells the format: .pdf, .json, .xls, .rtf, .txt, .tif or .html.");
            return Exit_Usage;
        }
        std::optional<Record> record = made(context);
        if (!record) return finish(context, "");
        const std::string json = commission::recordJson(*record);
        const auto failure = failureOf([&] { write(*record, json, format); });
        if (failure)
            tellFailure(context.err, printablePath(pathFromNative(out_)) + " could not be written", *failure);
        return finish(context, failure ? "" : json);
    }

  private:
    /// The record, but for what couldn't be read, which is told.
    std::optional<Record> made(const Call_Context& context) {
        const Run_Folder_Name place = runFolderOf(userStateFolder(), run_);
        Native_Runs runs(place.folder);
        auto record = commission::recordOfRun(runs, place.name);
        if (!record) {
            tell(context.err, "There is no run \"" + run_ + "\" in " + place.folder + ".");
            return std::nullopt;
        }
        if (!addChecks(context, *record)) return std::nullopt;
        record->head = headFor(context, runs, place.name);
        record->deviations = deviationsOf(context, *record, place);
        return record;
    }

    /// Nothing where the template isn't what it was for the run, or a file can't be read to its end.
    static std::optional<std::vector<commission::Record_Deviation>>
    deviationsOf(const Call_Context& context, const Record& record, const Run_Folder_Name& place) {
        const commission::Record_File& used = record.files.front();
        const auto bytes = context.files.bytes(used.path);
        if (!bytes || commission::sha256(*bytes) != used.sha256 || record.document.empty())
            return std::nullopt;
        const std::string before =
            pathFromNative(place.folder + "/" + place.name + "/") + record.documentName;
        const Opened_Document factory =
            openDocument({context.files, context.applicationFolder, used.path, std::nullopt, nullptr});
        const Opened_Document had =
            openDocument({context.files, context.applicationFolder, used.path, before, nullptr});
        if (!factory.readToTheEnd() || !had.readToTheEnd()) return std::nullopt;
        return commission::deviationsFrom(factory.document, had.document, readIdentity(*bytes), record.rows);
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
    Record_Head headFor(const Call_Context& context, Native_Runs& runs, const std::string& name) const {
        const std::string keptFile = userStateFolder() + "/sites.json";
        commission::Kept_Heads kept =
            commission::keptOfJson(context.files.bytes(pathFromNative(keptFile)).value_or(""));
        const auto ofRun = commission::headOfJson(runs.read(name, commission::headFile).value_or(""));
        const std::string site = head_.site ? fromUtf8(*head_.site) : "";
        Record_Head head =
            head_.over(ofRun && (site.empty() || site == ofRun->site) ? *ofRun : kept.of(site));
        if (head == Record_Head{} && standardInputIsTerminal()) askForHead(context, head);
        if (head == Record_Head{} || head == ofRun) return head;
        kept.keep(head);
        const auto run = runs.open(name);
        const bool keptByRun = run.folder && run.folder->put(commission::headFile, headJson(head)).empty();
        const auto failure = failureOf([&] { writeByteFile(keptFile, keptJson(kept)); });
        if (!keptByRun || failure)
            tell(context.err, "The head of the record can't be kept for the next one.");
        return head;
    }

    void write(const Record& record, const std::string& json, const Record_Format& format) const {
        if (!format.painted) return writeByteFile(out_, json);
        const Qt_Text_Metrics metrics;
        commission::Record_Report report(metrics, record, commission::shortHash(json));
        if (*format.painted != Export_Format::Pdf)
            return writeByteFile(out_, exportReport(report, *format.painted, Qt_Page_Exporters()));
        report.Run();
        const Archive_Stamp stamp{toUtf8(report.Caption), "Zorvane", toTheSecond(record.started.utc),
                                  commission::sha256(json).substr(0, 32)};
        writeByteFile(std::filesystem::path(out_).replace_extension(".json").string(), json);
        writeByteFile(out_, archivePdf(report.Pages.document, stamp));
    }

    /// Tells what was written; `json` is empty when nothing was.
    int finish(const Call_Context& context, const std::string& json) const {
        const bool done = !json.empty();
        const std::string hash = done ? commission::shortHash(json) : "";
        if (context.json)
            printJson(context.out, {{"run", run_},
                                    {"output", done ? jsonPath(pathFromNative(out_)) : Json()},
                                    {"record", done ? Json(hash) : Json()}});
        else if (done)
            context.out << "Written: " << printablePath(pathFromNative(out_)) << ", record " << hash << '\n';
        return done ? Exit_Success : Exit_Failed;
    }

    std::string run_;
    std::string out_;
    std::string checks_;
    Head_Arguments head_;
};

} // namespace

std::unique_ptr<Subcommand> makeRecordSubcommand() { return std::make_unique<Record_Subcommand>(); }

} // namespace zorvane::ctl
