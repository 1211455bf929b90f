// SPDX-License-Identifier: MIT
#include "ctl/calls/document_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/given_value.h"
#include "ctl/document/notices.h"
#include "ctl/document/text_file.h"
#include "ctl/text/json_text.h"
#include "edit/value_export.h"
#include "template/services/native_files.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace zorvane::ctl {

namespace {

const std::string tab = "tab"; ///< which a shell makes hard to type

/// What is wrong with a separator; "" when nothing is.
std::string isSeparator(const std::string& text) {
    const bool one = text == "," || text == ";" || text == "|" || text == "\t" || text == tab;
    return one ? "" : "\"" + text + "\" is none of \",\", \";\", \"|\" and tab";
}

std::string isDecimalSign(const std::string& text) {
    return text == "." || text == "," ? "" : "\"" + text + "\" is neither \".\" nor \",\"";
}

class Export_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addConfiguration(arguments);
        arguments.add_option("--out", out_, "The file to write")
            ->type_name("F.csv")
            ->check(givenValue())
            ->required();
        arguments
            .add_option("--separator", separator_,
                        "What stands between columns: \",\", \";\", \"|\" or tab; \",\" unless given")
            ->type_name("C")
            ->check(isSeparator);
        arguments
            .add_option("--decimal", decimal_, "The decimal sign of numbers: \".\" unless given, or \",\"")
            ->type_name("C")
            ->check(isDecimalSign);
    }

    int run(const Call_Context& context) override {
        const Opened_Document opened = files_.open(context);
        const bool whole = opened.readToTheEnd(); // else some values would be the template's
        const bool written = whole && !isOwnFile(context, opened) &&
                             writeTextFile(context, out_, edit::exportedValues(opened.document, style()));
        const std::string path = pathFromNative(out_);
        if (!whole && !opened.fileMissing())
            tell(context.err, "The document was not read to its end, so nothing was written.");
        if (context.json)
            printJson(context.out, {{"output", written ? jsonPath(path) : Json(nullptr)}});
        else if (written)
            context.out << "Written: " << printablePath(path) << '\n';
        return written ? Exit_Success : Exit_Failed;
    }

  private:
    /// Whether a file of the document would be written over, which is told.
    [[nodiscard]] bool isOwnFile(const Call_Context& context, const Opened_Document& opened) const {
        const bool isTemplate = isSameFile(opened.ztp.path, out_);
        const bool isDocument = opened.configuration && isSameFile(opened.configuration->path, out_);
        if (!isTemplate && !isDocument) return false;
        tell(context.err, printablePath(pathFromNative(out_)) + " is the " +
                              (isTemplate ? "template" : "document") +
                              " itself. Choose another file for the values.");
        return true;
    }

    [[nodiscard]] edit::Csv_Style style() const {
        return {separator_ == tab ? '\t' : separator_[0], decimal_[0]};
    }

    Document_Arguments files_;
    std::string out_;
    std::string separator_ = ",";
    std::string decimal_ = ".";
};

} // namespace

std::unique_ptr<Subcommand> makeExportSubcommand() { return std::make_unique<Export_Subcommand>(); }

} // namespace zorvane::ctl
