// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/opened_document.h"
#include "ctl/document/subcommand.h"

#include <string>
#include <string_view>

namespace zorvane::ctl {

/// The two files of a document, as most calls take them.
struct Document_Arguments {
    std::string templatePath; ///< UTF-8, as on the command line
    std::string configurationPath;

    void addTemplate(CLI::App& arguments);
    void addConfiguration(CLI::App& arguments);
    void addOptionalConfiguration(CLI::App& arguments);

    /// Reads the files; an empty configuration path reads the template alone. What goes wrong is told to
    /// people.
    [[nodiscard]] Opened_Document open(const Call_Context& context, Link_Notice* link = nullptr) const;
    /// The same once more, without a word.
    [[nodiscard]] Opened_Document openQuietly(const Call_Context& context, Link_Notice* link = nullptr) const;
};

/// Tells of a document whose file has no line of values: one that was cut off when it was written, or that is
/// of another kind. All its values are the template's own.
void tellNoValues(const Call_Context& context, const Opened_Document& opened);

/// Keeps the bytes of a file that is about to be written over with `text`. What can't be kept is told, and
/// the save goes on. `model` is the controller's, `type` the name of the template, without ".ZTP".
void keepFileBefore(const Call_Context& context, const std::string& path, std::string_view text,
                    const std::string& type, const std::string& model);

/// The path of a template as a call names it: one without a folder is of this folder, else one of those
/// beside the program.
[[nodiscard]] std::string templateFile(const Call_Context& context, const std::string& given);

/// Whether both paths lead to one file: `path` as the programs have it, `outPath` in UTF-8.
[[nodiscard]] bool isSameFile(const std::string& path, const std::string& outPath);

/// Writes the document to a file (UTF-8 path). The result is empty, or the reason why it couldn't be written.
/// Refused without touching the file: a document one of whose files is missing, and a document that was not
/// read to its end over its own configuration file, which would lose the rest.
[[nodiscard]] std::string saveDocument(const Call_Context& context, Opened_Document& opened,
                                       const std::string& outPath);

} // namespace zorvane::ctl
