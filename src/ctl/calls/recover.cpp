// SPDX-License-Identifier: MIT
#include "ctl/calls/document_calls.h"
#include "ctl/document/notices.h"
#include "ctl/text/json_text.h"
#include "ctl/text/text_table.h"
#include "recovery/native_recovery_folder.h"
#include "recovery/recovery.h"
#include "template/services/native_files.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <ostream>

namespace zorvane::ctl {

namespace {

const std::string newest = "last";

Json copiesJson(const std::vector<Recovery_Entry>& entries) {
    Json copies = Json::array();
    for (const Recovery_Entry& entry : entries)
        copies.push_back({{"copy", jsonPath(entry.file)},
                          {"time", entry.time},
                          {"document", jsonPath(entry.name)},
                          {"model", jsonText(entry.model)},
                          {"why", jsonText(entry.why)}});
    return {{"copies", std::move(copies)}};
}

void printCopies(std::ostream& out, const std::vector<Recovery_Entry>& entries) {
    if (entries.empty()) {
        out << "No copies are kept.\n";
        return;
    }
    Text_Table table;
    table.add({"Copy", "Time", "Document", "Model", "Kept because"});
    for (const Recovery_Entry& entry : entries)
        table.add({printablePath(entry.file), printable(entry.time), printablePath(entry.name),
                   printable(entry.model), printable(entry.why)});
    table.print(out, 0);
}

std::string whyNotMade(int error) {
    if (error == EEXIST) return "there is such a file already. Choose another name.";
    return std::string(failureText(writingFailure(error))) + ". Choose another file, or correct the cause.";
}

class Recover_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        auto* const copy =
            arguments.add_option("COPY", copy_, "The copy to fetch, as listed; \"last\" is the newest");
        auto* const out = arguments.add_option("--out", out_, "The file to make of it")->type_name("FILE");
        copy->needs(out);
        out->needs(copy);
    }

    int run(const Call_Context& context) override {
        std::vector<Recovery_Entry> entries;
        if (context.recovery != nullptr) entries = context.recovery->list();
        if (!copy_.empty()) return fetch(context, entries);
        if (context.json)
            printJson(context.out, copiesJson(entries));
        else
            printCopies(context.out, entries);
        return Exit_Success;
    }

  private:
    [[nodiscard]] int fetch(const Call_Context& context, const std::vector<Recovery_Entry>& entries) const {
        const bool made = fetched(context, entries);
        if (context.json)
            printJson(context.out, {{"output", made ? jsonPath(pathFromNative(out_)) : Json(nullptr)}});
        else if (made)
            context.out << "Written: " << printablePath(pathFromNative(out_)) << '\n';
        return made ? Exit_Success : Exit_Failed;
    }

    [[nodiscard]] bool fetched(const Call_Context& context,
                               const std::vector<Recovery_Entry>& entries) const {
        const auto entry = std::find_if(entries.begin(), entries.end(), [this](const Recovery_Entry& each) {
            return copy_ == newest || pathToNative(each.file) == copy_;
        });
        const std::optional<std::string> bytes =
            entry == entries.end() ? std::nullopt : context.files.bytes(context.recovery->path(*entry));
        if (!bytes) {
            tell(context.err, printablePath(pathFromNative(copy_)) +
                                  ": there is no such copy. \"zorvanectl recover\" lists them.");
            return false;
        }
        const int error = makeFile(out_, keptBytes(*bytes));
        if (error != 0) tell(context.err, printablePath(pathFromNative(out_)) + ": " + whyNotMade(error));
        return error == 0;
    }

    std::string copy_;
    std::string out_; ///< UTF-8, as on the command line
};

} // namespace

std::unique_ptr<Subcommand> makeRecoverSubcommand() { return std::make_unique<Recover_Subcommand>(); }

} // namespace zorvane::ctl
