// SPDX-License-Identifier: MIT
#include "ctl/calls/document_calls.h"
#include "ctl/document/notices.h"
#include "ctl/text/json_text.h"
#include "ctl/text/text_table.h"
#include "template/services/native_files.h"
#include "template/services/offered_models.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <ostream>
#include <system_error>

namespace zorvane::ctl {

namespace {

bool isFolder(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_directory(pathToNative(path), error);
}

void printModels(std::ostream& out, const std::vector<Offered_Model>& models) {
    if (models.empty()) return;
    Text_Table table;
    table.add({"Model", "Template", "Its files"});
    for (const Offered_Model& model : models)
        table.add({printablePath(model.stem), printablePath(model.file), printablePath("*." + model.stem)});
    table.print(out, 0);
}

Json modelsJson(const std::vector<Offered_Model>& models) {
    Json list = Json::array();
    for (const Offered_Model& model : models)
        list.push_back({{"file", jsonPath(model.file)},
                        {"stem", jsonPath(model.stem)},
                        {"filter", jsonPath(model.filter)}});
    return list;
}

class Models_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App&) override {}

    int run(const Call_Context& context) override {
        const std::string& folder = context.applicationFolder;
        const std::vector<Offered_Model> models = offeredModels(context.files, folder);
        if (context.json)
            printJson(context.out, modelsJson(models));
        else
            printModels(context.out, models);
        if (!isFolder(folder)) {
            tell(context.err, printablePath(folder) + ": there is no such folder. Check --app-dir.");
            return Exit_Failed;
        }
        if (models.empty())
            tell(context.err, "Does not exist any .ZTP file in this directory: " + printablePath(folder));
        return Exit_Success;
    }
};

} // namespace

std::unique_ptr<Subcommand> makeModelsSubcommand() { return std::make_unique<Models_Subcommand>(); }

} // namespace zorvane::ctl
