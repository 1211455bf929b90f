// SPDX-License-Identifier: MIT
#include "ctl/calls/document_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/notices.h"
#include "ctl/document/opened_document.h"
#include "ctl/text/json_text.h"
#include "template/pro_actualiza_archivo.h"
#include "template/services/file_names.h"
#include "template/services/native_files.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace zorvane::ctl {

namespace {

/// A file's path cut at the first dot of its name, in the file's own letter case.
struct Stem_And_Extension {
    std::string stemPath;
    std::string extension;
};

std::optional<Stem_And_Extension> cutAtFirstDot(const std::string& path) {
    const std::size_t start = splitPath(path).folder.size();
    const std::size_t dot = path.find('.', start);
    if (dot == std::string::npos) return std::nullopt;
    return Stem_And_Extension{path.substr(0, dot), path.substr(dot + 1)};
}

/// Whether the template of a document is there and reads it to its end: then it is not of the older
/// generation, and an update would only exchange its fields.
bool fitsItsTemplate(const Call_Context& context, const std::string& path) {
    const std::string ztp = templateFile(context, templateName(path));
    if (!context.files.exists(ztp)) return false;
    return openDocument({context.files, context.applicationFolder, ztp, path}).readToTheEnd();
}

class Update_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        arguments.add_option("CONFIG", config_, "The older configuration file; it stays as it is")
            ->required();
    }

    int run(const Call_Context& context) override {
        const std::optional<std::string> output = update(context);
        if (context.json)
            printJson(context.out, {{"output", output ? jsonPath(*output) : Json(nullptr)}});
        else if (output)
            context.out << "Written: " << printablePath(*output) << '\n';
        return output ? Exit_Success : Exit_Failed;
    }

  private:
    /// The file written, or nothing when that went wrong.
    [[nodiscard]] std::optional<std::string> update(const Call_Context& context) const {
        const std::string path = pathFromNative(config_);
        if (!context.files.exists(path)) {
            tell(context.err, printablePath(path) + ": there is no such configuration file. Check the path.");
            return std::nullopt;
        }
        const auto parts = cutAtFirstDot(path);
        if (!parts) {
            tell(context.err, printablePath(path) + ": a configuration file's name has an extension, which "
                                                    "names its template. Rename the file.");
            return std::nullopt;
        }
        if (fitsItsTemplate(context, path)) {
            tell(context.err, printablePath(path) + ": its template " + printablePath(templateName(path)) +
                                  " reads it whole. There is nothing to update.");
            return std::nullopt;
        }
        const std::string output = updatedPath(parts->stemPath, parts->extension);
        keepFileBefore(context, output, {}, lastExtension(output), "");
        const auto failure =
            failureOf([&] { PRO_Actualiza_Archivo(context.files, parts->stemPath, parts->extension); });
        if (!failure) return output;
        tellFailure(context.err, printablePath(output), *failure);
        return std::nullopt;
    }

    std::string config_;
};

} // namespace

std::unique_ptr<Subcommand> makeUpdateSubcommand() { return std::make_unique<Update_Subcommand>(); }

} // namespace zorvane::ctl
