// SPDX-License-Identifier: MIT
#include "ctl/calls/values/commit_values.h"

#include "ctl/document/document_arguments.h"
#include "ctl/document/notices.h"
#include "ctl/text/json_text.h"
#include "template/services/native_files.h"

#include <ostream>

namespace zorvane::ctl {

namespace {

using edit::Import_Check;
using edit::Left_Out;

std::string counted(std::size_t count) { return std::to_string(count) + (count == 1 ? " value" : " values"); }

Json resultJson(std::size_t taken, const std::vector<Left_Out>& leftOut) {
    Json left = Json::array();
    for (const Left_Out& each : leftOut)
        left.push_back({{"line", each.line}, {"why", jsonText(each.why)}});
    return {{"taken", taken}, {"left_out", std::move(left)}};
}

void tellLeftOut(const Call_Context& context, const std::string& path, const std::vector<Left_Out>& leftOut) {
    for (const Left_Out& each : leftOut)
        tell(context.err,
             printablePath(path) + ", line " + std::to_string(each.line) + ": " + printable(each.why) + ".");
}

/// How the file was understood, where that was found in it.
void tellStyle(const Call_Context& context, const std::string& path, char separator, char decimalSign) {
    if (separator == '\0') return;
    const std::string between = separator == '\t' ? "tabs" : "\"" + std::string(1, separator) + "\"";
    const std::string sign = decimalSign == '\0' ? "not needed" : "\"" + std::string(1, decimalSign) + "\"";
    tell(context.err,
         printablePath(path) + ": columns are separated by " + between + "; decimal sign: " + sign + ".");
}

/// Whether the document may be saved with what was taken.
bool maySave(const Call_Context& context, const Import_Check& check, bool allThatFit) {
    if (check.leftOut.empty()) return true;
    if (allThatFit && !check.taken.empty()) return true;
    tell(context.err, std::to_string(check.taken.size()) + " of " +
                          counted(check.taken.size() + check.leftOut.size()) + " fit; none was taken.");
    return false;
}

void printResult(const Call_Context& context, const std::string& out, std::size_t taken,
                 std::size_t changed) {
    context.out << counted(taken) << " taken, " << changed << " changed.";
    if (!out.empty() && taken > 0) context.out << " Written: " << printablePath(pathFromNative(out));
    context.out << '\n';
}

} // namespace

int commitNothing(const Call_Context& context) {
    if (context.json) printJson(context.out, resultJson(0, {}));
    return Exit_Failed;
}

int commitValues(const Call_Context& context, Opened_Document& opened, const Values_To_Commit& values) {
    if (!values.file.problem.empty()) {
        tell(context.err, printablePath(values.path) + ": " + printable(values.file.problem) + ".");
        return commitNothing(context);
    }
    if (!opened.readToTheEnd()) { // what its cells take can't be told
        tell(context.err, "The document was not read to its end, so no value was taken.");
        return commitNothing(context);
    }
    if (!values.out.empty() && isSameFile(values.path, values.out)) {
        tell(context.err,
             printablePath(values.path) + " has the values. Choose another file for the document.");
        return commitNothing(context);
    }
    const Import_Check check = edit::checkImport(opened.document, values.file.values, values.style);
    tellStyle(context, values.path, values.file.separator, check.decimalSign);
    tellLeftOut(context, values.path, check.leftOut);
    bool saved = maySave(context, check, values.allThatFit);
    std::int32_t changed = 0;
    if (saved) {
        changed = edit::apply(opened.document, check.taken);
        saved = values.out.empty() || saveDocument(context, opened, values.out).empty();
    }
    const std::size_t taken = saved ? check.taken.size() : 0;
    if (context.json)
        printJson(context.out, resultJson(taken, check.leftOut));
    else if (saved)
        printResult(context, values.out, taken, static_cast<std::size_t>(changed));
    if (!saved) return Exit_Failed;
    return check.leftOut.empty() ? Exit_Success : Exit_Partly;
}

} // namespace zorvane::ctl
