#include "checker/checker.h"
#include "ctl/call.h"
#include "ctl/json_text.h"
#include "ctl/notices.h"
#include "ctl/opened_document.h"
#include "ctl/text_table.h"
#include "template/file_names.h"
#include "template/native_files.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace zorvane {

namespace {

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

class Check_Call : public Call {
  public:
    void addArguments(CLI::App& arguments) override {
        auto* const files = arguments.add_option("TEMPLATE", templates_, "The templates (.ZTP) to check");
        auto* const list = arguments.add_flag("--list", list_, "List all codes instead");
        files->excludes(list);
        arguments.callback([this] {
            if (templates_.empty() && !list_) throw CLI::RequiredError("TEMPLATE");
        });
    }

    int run(const Surroundings& surroundings) override {
        if (list_) return listCodes(surroundings);
        Json all = Json::array();
        std::int64_t errors = 0;
        std::int64_t warnings = 0;
        bool readable = true;
        for (const std::string& name : templates_) {
            const std::string path = pathFromNative(name);
            const auto text = read(surroundings, path);
            readable = readable && text;
            if (!text) continue;
            for (const Finding& finding : checkTemplate(splitPath(path).name, *text)) {
                ++(finding.severity == Severity::Error ? errors : warnings);
                if (surroundings.json)
                    all.push_back(findingJson(path, finding));
                else
                    printFinding(surroundings.out, path, finding);
            }
        }
        if (surroundings.json)
            printJson(surroundings.out, all);
        else if (readable || errors + warnings > 0)
            surroundings.out << errors << (errors == 1 ? " error, " : " errors, ") << warnings
                             << (warnings == 1 ? " warning\n" : " warnings\n");
        return errors == 0 && readable ? Exit_Success : Exit_Failed;
    }

  private:
    /// The file's bytes; nothing, and a notice, when it can't be read.
    static std::optional<std::string> read(const Surroundings& surroundings, const std::string& path) {
        std::optional<std::string> text;
        const auto failure = failureOf([&] { text = surroundings.files.read(path); });
        if (failure) tellFailure(surroundings.err, printablePath(path), *failure);
        return text;
    }

    static int listCodes(const Surroundings& surroundings) {
        if (surroundings.json) {
            Json codes = Json::array();
            for (const Rule& rule : allRules())
                codes.push_back({{"code", rule.code},
                                 {"severity", severityWord(rule.severity)},
                                 {"text", jsonText(rule.meaning)}});
            printJson(surroundings.out, codes);
            return Exit_Success;
        }
        Text_Table table;
        table.add({"Code", "Severity", "Meaning"});
        for (const Rule& rule : allRules())
            table.add({std::string(rule.code), severityWord(rule.severity), std::string(rule.meaning)});
        table.print(surroundings.out, 0);
        return Exit_Success;
    }

    std::vector<std::string> templates_;
    bool list_ = false;
};

} // namespace

std::unique_ptr<Call> makeCheckCall() { return std::make_unique<Check_Call>(); }

} // namespace zorvane
