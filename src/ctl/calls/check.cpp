// SPDX-License-Identifier: MIT
#include "checker/checker.h"
#include "ctl/calls/document_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/notices.h"
#include "ctl/document/opened_document.h"
#include "ctl/text/json_text.h"
#include "ctl/text/text_table.h"
#include "edit/document_check.h"
#include "template/services/file_names.h"
#include "template/services/native_files.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <ostream>

namespace zorvane::ctl {

namespace {

using checker::Finding;
using checker::Rule;
using checker::Severity;

const char* severityWord(Severity severity) { return severity == Severity::Error ? "error" : "warning"; }

void printFinding(std::ostream& out, const std::string& path, const Finding& finding) {
    out << printablePath(path) << ':' << finding.line << ": " << severityWord(finding.severity) << ": "
        << printable(finding.what) << " [" << finding.code << "]\n";
    if (!finding.lineText.empty()) out << "    | " << printable(finding.lineText) << '\n';
    out << "    " << printable(finding.why) << '\n' << "    " << printable(finding.instead) << '\n';
}

Json findingJson(const std::string& path, const Finding& finding) {
    return {{"file", jsonPath(path)},
            {"line", finding.line},
            {"severity", severityWord(finding.severity)},
            {"code", finding.code},
            {"text", jsonText(finding.what + ". " + finding.why + " " + finding.instead)}};
}

/// Prints findings as they come, for people or as one JSON list, and counts them.
class Finding_Printer {
  public:
    explicit Finding_Printer(const Call_Context& context) : surroundings_(context) {}

    void add(const std::string& path, const Finding& finding) {
        ++(finding.severity == Severity::Error ? errors_ : warnings_);
        if (surroundings_.json)
            all_.push_back(findingJson(path, finding));
        else if (finding.line > 0) // a file without lines was told of already
            printFinding(surroundings_.out, path, finding);
    }

    void finish() const {
        if (surroundings_.json)
            printJson(surroundings_.out, all_);
        else
            surroundings_.out << errors_ << (errors_ == 1 ? " error, " : " errors, ") << warnings_
                              << (warnings_ == 1 ? " warning\n" : " warnings\n");
    }

    [[nodiscard]] bool anyError() const { return errors_ > 0; }

  private:
    const Call_Context& surroundings_;
    Json all_ = Json::array();
    std::int64_t errors_ = 0;
    std::int64_t warnings_ = 0;
};

/// A file's text. Nothing, which is told to people and is a finding, when it can't be read.
std::optional<std::string> textOf(const Call_Context& context, const std::string& path,
                                  Finding_Printer& printer) {
    std::string text;
    const auto failure = failureOf([&] { text = context.files.read(path); });
    if (!failure) return text;
    tellFailure(context.err, printablePath(path), *failure);
    printer.add(path, checker::unreadable(failure->description));
    return std::nullopt;
}

/// `path` as the call has it; one without a folder may be of a template beside the program.
void checkTemplate(const Call_Context& context, const std::string& given, Finding_Printer& printer) {
    const std::string path = templateFile(context, given);
    const auto text = textOf(context, path, printer);
    if (!text) return;
    for (const Finding& finding : checker::checkTemplate(splitPath(path).name, *text))
        printer.add(path, finding);
}

/// A document is checked over what its template says.
void checkDocument(const Call_Context& context, const std::string& templatePath, const std::string& path,
                   Finding_Printer& printer) {
    const auto text = textOf(context, path, printer);
    if (!text) return;
    Opened_Document opened = openDocument({context.files, context.applicationFolder,
                                           templateFile(context, templatePath), std::nullopt, nullptr});
    if (opened.fileMissing()) return; // which has been told
    for (const Finding& finding : edit::checkDocument(opened.document, *text))
        printer.add(path, finding);
}

bool isTemplateName(const std::string& path) { return upperCase(path).ends_with(".ZTP"); }

/// One line of the list of codes.
struct Listed_Code {
    std::string code;
    const char* severity;
    std::string meaning;
};

/// Those of templates, then those of documents.
std::vector<Listed_Code> allCodes() {
    std::vector<Listed_Code> codes;
    for (const Rule& rule : checker::allRules())
        codes.push_back({std::string(rule.code), severityWord(rule.severity), std::string(rule.meaning)});
    for (const edit::Document_Rule& rule : edit::documentRules())
        codes.push_back({std::string(rule.code), severityWord(rule.severity), std::string(rule.meaning)});
    return codes;
}

class Check_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        auto* const files = arguments.add_option(
            "TEMPLATE", names_,
            "The templates (.ZTP) to check; any other name after one is a document of it");
        auto* const list = arguments.add_flag("--list", list_, "List all codes instead");
        files->excludes(list);
        arguments.callback([this] {
            if (names_.empty() && !list_) throw CLI::RequiredError("TEMPLATE");
        });
    }

    int run(const Call_Context& context) override {
        if (list_) return listCodes(context);
        Finding_Printer printer(context);
        std::string templatePath;
        for (const std::string& name : names_) {
            const std::string path = pathFromNative(name);
            // A name in front of every template can't be a document.
            if (templatePath.empty() || isTemplateName(path))
                checkTemplate(context, path, printer);
            else
                checkDocument(context, templatePath, path, printer);
            if (isTemplateName(path)) templatePath = path;
        }
        printer.finish();
        return printer.anyError() ? Exit_Failed : Exit_Success;
    }

  private:
    static int listCodes(const Call_Context& context) {
        if (context.json) {
            Json codes = Json::array();
            for (const Listed_Code& each : allCodes())
                codes.push_back(
                    {{"code", each.code}, {"severity", each.severity}, {"text", jsonText(each.meaning)}});
            printJson(context.out, codes);
            return Exit_Success;
        }
        Text_Table table;
        table.add({"Code", "Severity", "Meaning"});
        for (const Listed_Code& each : allCodes())
            table.add({each.code, each.severity, each.meaning});
        table.print(context.out, 0);
        return Exit_Success;
    }

    std::vector<std::string> names_;
    bool list_ = false;
};

} // namespace

std::unique_ptr<Subcommand> makeCheckSubcommand() { return std::make_unique<Check_Subcommand>(); }

} // namespace zorvane::ctl
