// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/painted_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/field_argument.h"
#include "ctl/document/notices.h"
#include "ctl/text/json_stream.h"
#include "ctl/text/progress_printer.h"
#include "ctl/text/terminal.h"
#include "reports/documents/main_rep_kvrt.h"
#include "reports/export/byte_file.h"
#include "reports/export/export_format.h"
#include "reports/qt/qt_page_exporters.h"
#include "reports/qt/qt_report_clock.h"
#include "reports/qt/qt_report_fonts.h"
#include "template/services/native_files.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace zorvane::ctl {

namespace {

/// The texts of a field's table as a report prints them, row by row up to a failure.
std::optional<Failure_Note> writeRows(Json_Stream& json, const Declara_Zorvane& document,
                                      std::int32_t field) {
    return failureOf([&] {
        const Field_Rec& shown = document.Fields(field);
        for (std::int32_t row = 1; row <= shown.Rows; ++row) {
            Json texts = Json::array();
            for (const std::string& text : reportRowTexts(shown, row))
                texts.push_back(jsonText(text));
            json.value(texts);
        }
    });
}

class Report_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addConfiguration(arguments);
        arguments.add_option("FIELD", field_, "The field's number, from 1 (default: all fields)")
            ->check(countedFromOne());
        arguments.add_option("--format", format_, "The format of the file")
            ->check(CLI::IsMember(formatNames()));
        CLI::Option* const out = arguments.add_option("--out", out_, "The file to write");
        out->type_name("FILE")->needs("--format");
        arguments.add_flag("--grid", grid_, "Draw rules around the cells");
        arguments.add_option("--font-size", fontSize_, "Size of the text in points")
            ->check(CLI::Range(4.0, 72.0))
            ->capture_default_str();
    }

    int run(const Call_Context& context) override {
        if (!out_.empty()) return runExport(context);
        if (context.json && field_ > 0) return printRows(context);
        tell(context.err, "Name a file with --format and --out, or a FIELD with --json.");
        return Exit_Usage;
    }

  private:
    int printRows(const Call_Context& context) {
        const Opened_Document opened = files_.open(context);
        Json_Stream json(context.out);
        json.openObject();
        json.name("rows");
        json.openList();
        const auto missing = whatIsMissing(opened);
        const auto failure = missing ? missing : writeRows(json, opened.document, field_);
        json.close();
        json.member("failure", jsonFailure(failure));
        json.close();
        if (failure && !opened.fileMissing()) {
            tellFailure(context.err, "The field could not be printed whole", *failure);
            tellMissingField(context.err, opened, field_);
        }
        return opened.whole() && !failure ? Exit_Success : Exit_Failed;
    }

    int runExport(const Call_Context& context) {
        const Opened_Document opened = files_.open(context);
        const auto missing = whatIsMissing(opened);
        Progress_Printer progress(context.err, true);
        const auto failure = missing ? missing : failureOf([&] { writeReport(opened.document, progress); });
        progress.end();
        const std::string path = printablePath(pathFromNative(out_));
        if (context.json)
            printJson(context.out,
                      {{"output", jsonPath(pathFromNative(out_))}, {"failure", jsonFailure(failure)}});
        else if (!failure)
            context.out << "Written: " << path << '\n';
        if (missing && !opened.fileMissing())
            tellMissingField(context.err, opened, field_);
        else if (!missing && failure)
            tellFailure(context.err, path + " could not be written", *failure);
        return opened.whole() && !failure ? Exit_Success : Exit_Failed;
    }

    /// Why there is nothing to print: a missing file, which was told on reading, or a missing field.
    [[nodiscard]] std::optional<Failure_Note> whatIsMissing(const Opened_Document& opened) const {
        if (opened.fileMissing()) return noteOf(Failure::FileNotFound);
        if (!hasField(opened, field_)) return noteOf(Failure::Subscript);
        return std::nullopt;
    }

    /// Whoever watches a terminal sees how many of the painted pages are done.
    [[nodiscard]] static Qt_Page_Exporters watchedPages(Progress_Printer& progress) {
        if (!standardErrorIsTerminal()) return Qt_Page_Exporters();
        return Qt_Page_Exporters({}, [&progress](std::size_t done, std::size_t total) {
            progress.progress(static_cast<std::int32_t>(done), static_cast<std::int32_t>(total));
        });
    }

    void writeReport(const Declara_Zorvane& document, Progress_Printer& progress) const {
        const Qt_Text_Metrics metrics;
        No_Report_Windows host;
        MainRepKVRT report({document, metrics}, presentTime, host);
        report.OnePage = field_ > 0;
        report.Opcion = field_;
        report.HaveGrid = grid_;
        report.FontSize = fontSize_;
        const Page_Settings& paper = report.PageSettings;
        report.PrintWidth = paper.PaperWidth - (paper.LeftMargin + paper.RightMargin);
        writeByteFile(out_, exportReport(report, formatOfName(format_).value(), watchedPages(progress)));
    }

    Document_Arguments files_;
    std::int32_t field_ = 0;
    std::string format_;
    std::string out_;
    bool grid_ = false;
    double fontSize_ = 8.25;
};

} // namespace

std::vector<Subcommand_Entry> paintedCalls() {
    return {{"report", "Print a document, or one of its fields, to a file", makeReportSubcommand},
            {"record", "Write down what a send did, from its run alone", makeRecordSubcommand}};
}

std::unique_ptr<Subcommand> makeReportSubcommand() { return std::make_unique<Report_Subcommand>(); }

} // namespace zorvane::ctl
