// SPDX-License-Identifier: MIT
#include "ctl/calls/plan.h"

#include "ctl/calls/document_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/notices.h"
#include "ctl/document/register_argument.h"
#include "ctl/document/rehearsal.h"
#include "ctl/text/text_table.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <ostream>

namespace zorvane::ctl {

namespace {

/// "FIELD,GRIDROW,GRIDCOLUMN", three whole numbers.
std::optional<Grid_Selection> parseSelection(const std::string& text) {
    std::int32_t numbers[3] = {};
    const char* at = text.data();
    const char* const end = at + text.size();
    for (int i = 0; i < 3; ++i) {
        if (i > 0 && (at == end || *at++ != ',')) return std::nullopt;
        const auto [stop, error] = std::from_chars(at, end, numbers[i]);
        if (error != std::errc{}) return std::nullopt;
        at = stop;
    }
    if (at != end || numbers[0] < 1 || numbers[1] < 0 || numbers[2] < 0) return std::nullopt;
    return Grid_Selection{numbers[0], numbers[1], numbers[2]};
}

std::string selectionComplaint(const std::string& text) {
    return parseSelection(text) ? "" : "\"" + text + "\" is not FIELD,GRIDROW,GRIDCOLUMN, as in 1,4,2";
}

Json planJson(const Download_Plan& plan) {
    Json writes = Json::array();
    for (const Planned_Write& write : plan.writes)
        writes.push_back(
            {{"function", write.function}, {"address", write.address}, {"values", Json(write.values)}});
    Json panel4 = Json::array();
    for (const std::string& text : plan.panel4)
        panel4.push_back(jsonText(text));
    return {{"writes", writes}, {"panel4", panel4}, {"failure", jsonFailure(plan.failure)}};
}

void printPlan(std::ostream& out, const Download_Plan& plan) {
    Text_Table table;
    table.add({"Function", "Register", "Values"});
    for (const Planned_Write& write : plan.writes) {
        std::string values;
        for (const std::uint16_t value : write.values)
            values.append(values.empty() ? 0 : 1, ' ').append(std::to_string(value));
        table.add({std::to_string(write.function), std::to_string(write.address), values});
    }
    if (!plan.writes.empty()) table.print(out, 0);
    out << plan.writes.size() << " writes\n";
}

} // namespace

void Plan_Subcommand::addArguments(CLI::App& arguments) {
    files_.addTemplate(arguments);
    files_.addConfiguration(arguments);
    arguments.add_option("REGISTERS", registers_, "JSON file {\"address\": value, ...}")
        ->required(needsRegisters());
    arguments.add_option("--selection", selection_, "Current field of the upper grid, cell of the lower one")
        ->check(selectionComplaint, "FIELD,GRIDROW,GRIDCOLUMN");
}

int Plan_Subcommand::run(const Call_Context& context) {
    if (const std::string wrong = complaint(!registers_.empty()); !wrong.empty()) {
        tell(context.err, wrong);
        return Exit_Usage;
    }
    return registers_.empty() ? runByPort(context, files_) : runOnRegisters(context);
}

int Plan_Subcommand::runOnRegisters(const Call_Context& context) const {
    const auto registers = readRegisterFile(context, registers_);
    if (!registers) return Exit_Failed;
    Opened_Document opened = files_.open(context);
    const auto chosen = parseSelection(selection_);
    const Download_Plan plan =
        planDownload(opened.document, *registers, chosen ? *chosen : freshSelection(opened.document));
    if (plan.failure) tellFailure(context.err, "The download would stop", *plan.failure);
    if (context.json)
        printJson(context.out, planJson(plan));
    else
        printPlan(context.out, plan);
    return opened.readToTheEnd() && !plan.failure ? Exit_Success : Exit_Failed;
}

std::unique_ptr<Subcommand> makePlanSubcommand() { return std::make_unique<Plan_Subcommand>(); }

} // namespace zorvane::ctl
