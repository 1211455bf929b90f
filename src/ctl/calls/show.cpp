// SPDX-License-Identifier: MIT
#include "ctl/calls/document_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/field_argument.h"
#include "ctl/document/lower_grid.h"
#include "ctl/document/notices.h"
#include "ctl/document/register_argument.h"
#include "ctl/text/json_stream.h"
#include "ctl/text/text_table.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iterator>
#include <ostream>

namespace zorvane::ctl {

namespace {

Json jsonTexts(const std::vector<std::string>& texts) {
    Json list = Json::array();
    for (const std::string& text : texts)
        list.push_back(jsonText(text));
    return list;
}

void writeTable(std::ostream& out, const Shown_Grid& shown) {
    Json_Stream json(out);
    json.openObject();
    json.member("headings", jsonTexts(shown.table.headings));
    json.name("grid");
    json.openList();
    for (const std::vector<std::string>& row : shown.table.grid)
        json.value(jsonTexts(row));
    json.close();
    json.member("failure", jsonFailure(shown.failure));
    json.close();
}

std::vector<std::string> printableRow(const std::vector<std::string>& texts) {
    std::vector<std::string> row;
    std::transform(texts.begin(), texts.end(), std::back_inserter(row),
                   [](const std::string& text) { return printable(text); });
    return row;
}

void printTable(std::ostream& out, const Settings_Table& shown) {
    Text_Table table;
    table.add(printableRow(shown.headings));
    for (const std::vector<std::string>& row : shown.grid)
        table.add(printableRow(row));
    table.print(out, 0);
}

class Show_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addConfiguration(arguments);
        addField(arguments, field_);
        CLI::Option* const registers =
            arguments.add_option("--registers", registers_,
                                 "Show the field online, on this register image: {\"address\": value, ...}");
        registers->type_name("FILE");
        CLI::Option* const request =
            arguments.add_option("--request", request_, "The request word of the blocks now scanned");
        request->type_name("WORD")->needs(registers);
        registers->needs(request);
        arguments.add_flag("--lost", lost_, "The link is lost")->needs(registers);
    }

    int run(const Call_Context& context) override {
        std::optional<Online_Scene> scene;
        if (!registers_.empty()) {
            const auto registers = readRegisterFile(context, registers_);
            if (!registers) return Exit_Failed;
            scene = Online_Scene{*registers, fromUtf8(request_), lost_};
        }
        Opened_Document opened = files_.open(context);
        if (opened.fileMissing()) return showNothing(context, Failure::FileNotFound);
        if (!hasField(opened, field_)) {
            tellMissingField(context.err, opened, field_);
            return showNothing(context, Failure::Subscript);
        }
        const Shown_Grid shown = showField(opened.document, field_, scene);
        if (shown.failure) tellFailure(context.err, "The field could not be shown whole", *shown.failure);
        if (context.json)
            writeTable(context.out, shown);
        else
            printTable(context.out, shown.table);
        return opened.readToTheEnd() && !shown.failure ? Exit_Success : Exit_Failed;
    }

  private:
    /// The factory values of a template are not those of a document that isn't there.
    static int showNothing(const Call_Context& context, Failure failure) {
        if (context.json) writeTable(context.out, Shown_Grid{{}, noteOf(failure)});
        return Exit_Failed;
    }

    Document_Arguments files_;
    std::int32_t field_ = 0;
    std::string registers_;
    std::string request_;
    bool lost_ = false;
};

} // namespace

std::unique_ptr<Subcommand> makeShowSubcommand() { return std::make_unique<Show_Subcommand>(); }

} // namespace zorvane::ctl
