#include "ctl/calls/document_calls.h"

namespace zorvane {

std::vector<Call_Entry> documentCalls() {
    return {
        {"models", "List the controller models of the application folder", makeModelsCall},
        {"check", "Tell what a template's author should know of it", makeCheckCall},
        {"dump", "Show what a template and a configuration say", makeDumpCall},
        {"show", "Show the table of a field, offline or on a register image", makeShowCall},
        {"set", "Commit an entry in a cell, as the window's editor would", makeSetCall},
        {"save", "Read a configuration and write it anew", makeSaveCall},
        {"update", "Rewrite a configuration of the older KVRT generation", makeUpdateCall},
        {"apply", "Fill a document from a saved register image", makeApplyCall},
        {"plan", "Show every write that a download would make", makePlanCall},
        {"recover", "List kept copies of documents, or fetch one to a file", makeRecoverCall},
    };
}

} // namespace zorvane
