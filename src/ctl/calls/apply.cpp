#include "ctl/calls/document_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/model_json.h"
#include "ctl/document/model_text.h"
#include "ctl/document/notices.h"
#include "ctl/document/register_argument.h"
#include "ctl/document/rehearsal.h"

#include <CLI/CLI.hpp>

namespace zorvane {

namespace {

class Apply_Call : public Call {
  public:
    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addConfiguration(arguments);
        arguments.add_option("REGISTERS", registers_, "JSON file {\"address\": value, ...}")->required();
        arguments.add_option("--save", out_, "Write the document, filled, to this file")->type_name("OUT");
    }

    int run(const Surroundings& surroundings) override {
        const auto registers = readRegisterFile(surroundings, registers_);
        if (!registers) return Exit_Failed;
        Opened_Document opened = files_.open(surroundings);
        const auto failure = applyRegisters(opened.document, *registers);
        if (failure) tellFailure(surroundings.err, "The registers could not all be applied", *failure);
        const bool saved = out_.empty() || save(surroundings, opened, !failure);
        print(surroundings, opened, failure);
        return opened.readToTheEnd() && !failure && saved ? Exit_Success : Exit_Failed;
    }

  private:
    /// A document that was filled in part only is not written.
    [[nodiscard]] bool save(const Surroundings& surroundings, Opened_Document& opened, bool filled) const {
        if (filled) return saveDocument(surroundings, opened, out_).empty();
        tell(surroundings.err, "The document was not written.");
        return false;
    }

    static void print(const Surroundings& surroundings, const Opened_Document& opened,
                      const std::optional<Failure_Note>& failure) {
        if (!surroundings.json) return printModel(surroundings.out, opened);
        Json_Stream json(surroundings.out);
        json.openObject();
        json.member("failure", jsonFailure(failure));
        writeModel(json, opened);
        json.close();
    }

    Document_Arguments files_;
    std::string registers_;
    std::string out_;
};

} // namespace

std::unique_ptr<Call> makeApplyCall() { return std::make_unique<Apply_Call>(); }

} // namespace zorvane
