// SPDX-License-Identifier: MIT
#include "app/edit/value_files.h"

#include "app/edit/edit_state.h"
#include "app/edit/history_commands.h"
#include "edit/named_cells.h"
#include "edit/value_import.h"
#include "template/services/file_names.h"

#include <algorithm>
#include <array>

namespace zorvane::app {

namespace {

const std::string filesTopic = "file of values";

void tellFile(const App_Context& app, Bar_Kind kind, const std::string& text) {
    app.mainForm.messageBar().tell({filesTopic, kind, text, {}});
}

std::string fileName(const std::string& path) { return std::string(splitPath(path).name); }

std::string inWords(char sign) {
    switch (sign) {
    case '\t':
        return "tabs";
    case ',':
        return "commas";
    case ';':
        return "semicolons";
    default:
        return "\"" + std::string(1, sign) + "\"";
    }
}

/// How the file was understood.
std::string understoodAs(const edit::Value_File& file, const edit::Import_Check& check) {
    const std::string sign = check.decimalSign == '\0'  ? "not needed"
                             : check.decimalSign == ',' ? "comma"
                                                        : "point";
    return "Columns separated by " + inWords(file.separator) + "; decimal sign: " + sign + ".";
}

/// "Regulation/Set point/Value: 1125 becomes 1200".
std::string changeLine(const Declara_Zorvane& document, const edit::Taken_Value& taken) {
    Cell_Rec cell = document.Fields(taken.place.field).Cells(taken.place.row, taken.place.column);
    const std::string before = edit::valueText(cell);
    cell.Value = taken.value;
    return edit::cellPath(document, taken.place) + ": " + before + " becomes " + edit::valueText(cell);
}

Fit_Question previewOf(const App_Context& app, const std::string& path, const edit::Value_File& file,
                       const edit::Import_Check& check) {
    const std::size_t all = check.taken.size() + check.leftOut.size();
    Fit_Question question{"Import values", {}, {}, check.taken.size(), {}, {}, true};
    for (const edit::Taken_Value& taken : check.taken)
        if (taken.changes) question.changes.push_back(changeLine(app.document(), taken));
    for (const edit::Left_Out& left : check.leftOut)
        question.leftOut.push_back("Line " + std::to_string(left.line) + ": " + left.why);
    question.summary = fileName(path) + ": " + std::to_string(check.taken.size()) + " of " +
                       std::to_string(all) + " fit, " + std::to_string(question.changes.size()) +
                       (question.changes.size() == 1 ? " of them changes" : " of them change");
    question.details = understoodAs(file, check);
    return question;
}

} // namespace

edit::Csv_Style exportStyle(int type) {
    constexpr std::array styles = {edit::Csv_Style{',', '.'}, edit::Csv_Style{';', ','},
                                   edit::Csv_Style{';', '.'}, edit::Csv_Style{'\t', '.'}};
    const auto at = static_cast<std::size_t>(std::clamp(type, 1, static_cast<int>(styles.size())) - 1);
    return styles.at(at);
}

/// The writer puts an end after each line, and the text has those already.
void exportValues(const App_Context& app, const std::string& path, const edit::Csv_Style& style) {
    const std::string text = edit::exportedValues(app.document(), style);
    std::string_view rest = text;
    try {
        const std::unique_ptr<Text_Writer> writer = app.files.create(path);
        while (!rest.empty()) {
            const std::size_t end = rest.find("\r\n");
            writer->writeLine(rest.substr(0, end));
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 2);
        }
        writer->close();
    } catch (const Run_Time_Failure& failure) {
        return tellFile(app, Bar_Kind::Warning,
                        path + " could not be written: " + std::string(failure.description()) + ".");
    }
    tellFile(app, Bar_Kind::Note, "The values were written to " + path + ".");
}

void importValues(const App_Context& app, const std::string& path, const Ask_Fit& ask) {
    const std::string why = whyNoEditing(app);
    if (!why.empty()) return tellFile(app, Bar_Kind::Note, "Nothing was imported. " + why);
    const std::optional<std::string> bytes = app.files.bytes(path);
    if (!bytes) return tellFile(app, Bar_Kind::Warning, path + " could not be read.");
    const edit::Value_File file = edit::readValueFile(*bytes);
    if (!file.problem.empty())
        return tellFile(app, Bar_Kind::Warning, fileName(path) + ": " + file.problem + ".");
    const edit::Import_Check check = edit::checkImport(app.document(), file.values, {});
    const Document_Mark document(app.document());
    if (!ask(previewOf(app, path, file, check))) return;
    // The question served events: nothing may have come between.
    if (!document.holds() || !whyNoEditing(app).empty()) return;
    app.mainForm.messageBar().withdraw(filesTopic);
    const auto changing = std::count_if(check.taken.begin(), check.taken.end(),
                                        [](const edit::Taken_Value& value) { return value.changes; });
    takeValues(app, check.taken, edit::stepName("import", static_cast<std::size_t>(changing)));
}

} // namespace zorvane::app
