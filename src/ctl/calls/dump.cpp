#include "ctl/calls/document_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/model_json.h"
#include "ctl/document/model_text.h"

#include <CLI/CLI.hpp>

namespace zorvane {

namespace {

class Dump_Call : public Call {
  public:
    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addConfiguration(arguments, false);
    }

    int run(const Surroundings& surroundings) override {
        const Opened_Document opened = files_.open(surroundings);
        if (surroundings.json) {
            Json_Stream json(surroundings.out);
            json.openObject();
            writeModel(json, opened);
            json.close();
        } else {
            printModel(surroundings.out, opened);
        }
        return opened.whole() ? Exit_Success : Exit_Failed;
    }

  private:
    Document_Arguments files_;
};

} // namespace

std::unique_ptr<Call> makeDumpCall() { return std::make_unique<Dump_Call>(); }

} // namespace zorvane
