// SPDX-License-Identifier: MIT
#include "ctl/document/document_arguments.h"

#include "ctl/document/given_value.h"
#include "ctl/document/notices.h"
#include "recovery/recovery.h"
#include "template/pro_escribe_archivo.h"
#include "template/services/file_names.h"
#include "template/services/native_files.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <system_error>

namespace zorvane::ctl {

namespace {

/// Why a document that was not read whole must not be written there; empty when it may.
std::string refusal(const Opened_Document& opened, const std::string& outPath) {
    if (opened.fileMissing()) return failureText(Failure::FileNotFound);
    if (opened.readToTheEnd() || !opened.configuration) return "";
    return isSameFile(opened.configuration->path, outPath)
               ? "The file was not read to its end, and writing it would lose the rest"
               : "";
}

/// The name of the document's template, without ".ZTP".
std::string typeOf(const Opened_Document& opened) {
    return upperCase(splitName(splitPath(opened.ztp.path).name).first);
}

} // namespace

std::string templateFile(const Call_Context& context, const std::string& given) {
    if (given.find(folderSeparator) != std::string::npos || context.files.exists(given)) return given;
    const std::string beside = context.applicationFolder + folderSeparator + given;
    return context.files.exists(beside) ? beside : given;
}

void Document_Arguments::addTemplate(CLI::App& arguments) {
    arguments.add_option("TEMPLATE", templatePath, "The controller's template (.ZTP)")->required();
}

void Document_Arguments::addConfiguration(CLI::App& arguments) {
    addOptionalConfiguration(arguments);
    // An empty name would stand for the template's own values, and be sent or saved as the document's.
    arguments.get_option("CONFIG")->required()->check(givenValue());
}

void Document_Arguments::addOptionalConfiguration(CLI::App& arguments) {
    arguments.add_option("CONFIG", configurationPath, "The configuration file");
}

Opened_Document Document_Arguments::openQuietly(const Call_Context& context, Link_Notice* link) const {
    Document_Source opening{context.files,
                            context.applicationFolder,
                            templateFile(context, pathFromNative(templatePath)),
                            {},
                            link};
    if (!configurationPath.empty()) opening.configurationPath = pathFromNative(configurationPath);
    return openDocument(opening);
}

Opened_Document Document_Arguments::open(const Call_Context& context, Link_Notice* link) const {
    Opened_Document opened = openQuietly(context, link);
    tellReadings(context.err, opened);
    return opened;
}

void tellNoValues(const Call_Context& context, const Opened_Document& opened) {
    if (!opened.configuration) return;
    const std::string text = "\n" + upperCase(context.files.bytes(opened.configuration->path).value_or(""));
    if (text.find("\nROW_") == std::string::npos)
        tell(context.err, printablePath(opened.configuration->path) +
                              " holds no values: all values are the template's own.");
}

bool isSameFile(const std::string& path, const std::string& outPath) {
    std::error_code error;
    return std::filesystem::equivalent(pathToNative(path), outPath, error) && !error;
}

void keepFileBefore(const Call_Context& context, const std::string& path, std::string_view text,
                    const std::string& type, const std::string& model) {
    if (context.recovery == nullptr) return;
    const std::optional<std::string> bytes = context.files.bytes(path);
    if (!bytes || bytes->empty() || *bytes == text) return;
    const std::string name(splitPath(path).name);
    if (!context.recovery->keepFile({name, type, model, *bytes}))
        tell(context.err,
             printablePath(path) + ": the file as it was before could not be kept for \"recover\".");
}

std::string saveDocument(const Call_Context& context, Opened_Document& opened, const std::string& outPath) {
    std::string result = refusal(opened, outPath);
    const std::string path = pathFromNative(outPath);
    if (result.empty()) {
        keepFileBefore(context, path, recoveryText(opened.document), typeOf(opened),
                       opened.document.Controller_Model);
        PRO_Escribe_Archivo(opened.document, context.files, path, result);
    } else
        opened.document.Save_Failed = true;
    if (!result.empty())
        tell(context.err, printablePath(path) + " could not be written: " + printable(result) +
                              ". Choose another file, or correct the cause.");
    return result;
}

} // namespace zorvane::ctl
