// SPDX-License-Identifier: MIT
#include "checker/checker.h"
#include "ctl/calls/document_calls.h"
#include "ctl/document/notices.h"
#include "ctl/document/opened_document.h"
#include "ctl/text/json_text.h"
#include "ctl/text/text_table.h"
#include "template/services/file_names.h"
#include "template/services/native_files.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

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

/// The findings of a file. One that can't be read is told to people.
std::vector<Finding> findingsOf(const Call_Context& context, const std::string& path) {
    std::string text;
    const auto failure = failureOf([&] { text = context.files.read(path); });
    if (!failure) return checker::checkTemplate(splitPath(path).name, text);
    tellFailure(context.err, printablePath(path), *failure);
    return {checker::unreadable(failure->description)};
}

class Check_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        auto* const files = arguments.add_option("TEMPLATE", templates_, "The templates (.ZTP) to check");
        auto* const list = arguments.add_flag("--list", list_, "List all codes instead");
        files->excludes(list);
        arguments.callback([this] {
            if (templates_.empty() && !list_) throw CLI::RequiredError("TEMPLATE");
        });
    }

    int run(const Call_Context& context) override {
        if (list_) return listCodes(context);
        Finding_Printer printer(context);
        for (const std::string& name : templates_) {
            const std::string path = pathFromNative(name);
            for (const Finding& finding : findingsOf(context, path))
                printer.add(path, finding);
        }
        printer.finish();
        return printer.anyError() ? Exit_Failed : Exit_Success;
    }

  private:
    static int listCodes(const Call_Context& context) {
        if (context.json) {
            Json codes = Json::array();
            for (const Rule& rule : checker::allRules())
                codes.push_back({{"code", rule.code},
                                 {"severity", severityWord(rule.severity)},
                                 {"text", jsonText(rule.meaning)}});
            printJson(context.out, codes);
            return Exit_Success;
        }
        Text_Table table;
        table.add({"Code", "Severity", "Meaning"});
        for (const Rule& rule : checker::allRules())
            table.add({std::string(rule.code), severityWord(rule.severity), std::string(rule.meaning)});
        table.print(context.out, 0);
        return Exit_Success;
    }

    std::vector<std::string> templates_;
    bool list_ = false;
};

} // namespace

std::unique_ptr<Subcommand> makeCheckSubcommand() { return std::make_unique<Check_Subcommand>(); }

} // namespace zorvane::ctl
