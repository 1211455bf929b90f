// SPDX-License-Identifier: MIT
#include "ctl/calls/document_calls.h"

namespace zorvane::ctl {

std::vector<Subcommand_Entry> documentCalls() {
    return {
        {"models", "List the controller models of the application folder", makeModelsSubcommand},
        {"check", "Tell what a template's author should know of it", makeCheckSubcommand},
        {"dump", "Show what a template and a configuration say", makeDumpSubcommand},
        {"show", "Show the table of a field, offline or on a register image", makeShowSubcommand},
        {"set", "Commit an entry in a cell, as the window's editor would", makeSetSubcommand},
        {"save", "Read a configuration and write it again", makeSaveSubcommand},
        {"update", "Rewrite a configuration of the older KVRT generation", makeUpdateSubcommand},
        {"apply", "Fill a document from a saved register image", makeApplySubcommand},
        {"plan", "Show every write that a download would make", makePlanSubcommand},
        {"export", "Write a document's values to a file for a spreadsheet", makeExportSubcommand},
        {"import", "Take values from a spreadsheet's file into a document", makeImportSubcommand},
        {"recover", "List kept copies of documents, or fetch one to a file", makeRecoverSubcommand},
    };
}

} // namespace zorvane::ctl
