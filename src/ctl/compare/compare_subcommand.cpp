// SPDX-License-Identifier: MIT
#include "ctl/compare/compare_subcommand.h"

#include "compare/comparison_words.h"
#include "ctl/compare/comparison_text.h"
#include "ctl/compare/looked_at.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/notices.h"
#include "ctl/document/register_argument.h"
#include "template/services/native_files.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <utility>

namespace zorvane::ctl {

namespace {

std::string filterComplaint(const std::string& words) {
    return toUtf8(compare::Filter::fault(fromUtf8(words)));
}

/// What a comparison came to, or why there is none.
struct Compared_Sides {
    compare::Comparison comparison;
    Side_Names names;
    std::string fault; ///< whole sentences; empty when all was compared
};

class Compare_Subcommand : public Subcommand {
  public:
    explicit Compare_Subcommand(Make_Controller_Line makeLine) : makeLine_(std::move(makeLine)) {}

    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addConfiguration(arguments);
        arguments.add_option("--with", with_, "Compare with another configuration file of the template")
            ->type_name("FILE");
        arguments.add_flag("--factory", factory_, "Compare with the template's own values");
        arguments.add_option("--registers", registers_, "Compare with a JSON file {\"address\": value, ...}")
            ->type_name("FILE");
        port_.addOptional(arguments);
        arguments
            .add_option("--filter", filter_,
                        "List only rows with these words: is:differs, is:missing, is:readonly, "
                        "reg:40010-40020, page:NAME, or texts")
            ->check(filterComplaint, "WORDS");
        arguments.add_flag("--all", all_, "List also what is equal");
    }

    int run(const Call_Context& context) override {
        if (const std::string wrong = usageFault(); !wrong.empty()) {
            tell(context.err, wrong);
            return Exit_Usage;
        }
        const Compared_Sides sides = compareSides(context);
        print(context, sides);
        return sides.fault.empty() ? comparisonExit(sides.comparison.counts) : static_cast<int>(Exit_Failed);
    }

  private:
    [[nodiscard]] std::string usageFault() const {
        const int sides = (with_.empty() ? 0 : 1) + (factory_ ? 1 : 0) + (registers_.empty() ? 0 : 1) +
                          (port_.named() ? 1 : 0);
        if (sides != 1)
            return "Name one thing to compare with: --with FILE, --factory, --registers FILE or --port PORT.";
        return port_.named() ? port_.fault() : std::string();
    }

    [[nodiscard]] Compared_Sides compareSides(const Call_Context& context) const {
        Compared_Sides sides;
        sides.names.left = pathFromNative(files_.configurationPath);
        const std::unique_ptr<Controller_Line> line =
            port_.named() ? makeLine_(port_.settings()) : std::unique_ptr<Controller_Line>();
        const Opened_Document opened = openFor(context, files_, port_, line.get());
        sides.fault = documentFault(opened);
        const Identity_Section section = identitySectionOf(context, opened);
        if (line)
            compareWithController(context, opened, section, *line, sides);
        else if (!registers_.empty())
            compareWithRegisters(context, opened, section, sides);
        else
            compareWithFile(context, opened, section, sides);
        return sides;
    }

    void compareWithFile(const Call_Context& context, const Opened_Document& opened,
                         const Identity_Section& section, Compared_Sides& sides) const {
        Document_Arguments other = files_;
        other.configurationPath = with_;
        sides.names.right = factory_ ? "factory values" : pathFromNative(with_);
        if (!sides.fault.empty()) return;
        const Opened_Document theirs = other.openQuietly(context);
        sides.fault = documentFault(theirs);
        if (!sides.fault.empty()) return;
        tellNoValues(context, opened); // or it would pass for one that equals the template
        tellNoValues(context, theirs);
        const compare::Document_Side left(opened.document);
        const compare::Document_Side right(theirs.document);
        sides.comparison = compare::comparisonOf({opened.document, section, left, right});
    }

    void compareWithRegisters(const Call_Context& context, const Opened_Document& opened,
                              const Identity_Section& section, Compared_Sides& sides) const {
        sides.names.right = pathFromNative(registers_);
        if (!sides.fault.empty()) return;
        const Register_File file = registerFile(context, registers_);
        sides.fault = file.fault;
        if (!sides.fault.empty()) return;
        const compare::Controller_Registers registers(file.values);
        const compare::Document_Side left(opened.document);
        const compare::Controller_Side right(opened.document, section, registers);
        sides.comparison = compare::comparisonOf({opened.document, section, left, right});
    }

    void compareWithController(const Call_Context& context, const Opened_Document& opened,
                               const Identity_Section& section, Controller_Line& line,
                               Compared_Sides& sides) const {
        const Port_Settings settings = port_.settings();
        sides.names.right = compare::controllerText(fromUtf8(settings.port), settings.slave);
        if (sides.fault.empty()) sides.fault = line.open();
        if (!sides.fault.empty()) return;
        const compare::Looked_At seen =
            compare::lookAt({opened.document, section, line.reader(), settings.slave});
        const compare::Twice_Read& read = seen.read;
        if (!read.latest.done()) {
            sides.fault = readingFault(settings.port, read.latest.end, read.latest.fault);
            return;
        }
        if (!read.latest.answered) tell(context.err, nobodyAnswers);
        tell(context.err, printable(compare::identitySentence(seen.identity))); // a note, whatever it is
        const compare::Document_Side left(opened.document);
        const compare::Controller_Side right(opened.document, section, read.latest.registers, &read.earlier);
        sides.comparison = compare::comparisonOf({opened.document, section, left, right});
    }

    void print(const Call_Context& context, const Compared_Sides& sides) const {
        if (!sides.fault.empty()) tell(context.err, sides.fault);
        const Listed_Rows listed{compare::Filter(fromUtf8(filter_)), all_};
        if (!context.json) {
            if (sides.fault.empty()) printComparison(context.out, sides.comparison, sides.names, listed);
            return;
        }
        Json json = comparisonJson(sides.comparison, sides.names, listed);
        if (!sides.fault.empty()) json["failure"] = sides.fault;
        printJson(context.out, json);
    }

    Make_Controller_Line makeLine_;
    Document_Arguments files_;
    std::string with_;
    bool factory_ = false;
    std::string registers_;
    Port_Arguments port_;
    std::string filter_;
    bool all_ = false;
};

} // namespace

std::unique_ptr<Subcommand> makeCompareSubcommand(Make_Controller_Line makeLine) {
    return std::make_unique<Compare_Subcommand>(std::move(makeLine));
}

} // namespace zorvane::ctl
