#include "ctl/calls/document_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/notices.h"
#include "ctl/text/json_text.h"
#include "template/services/native_files.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace zorvane {

namespace {

class Save_Call : public Call {
  public:
    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addConfiguration(arguments);
        arguments.add_option("OUT", out_, "The file to write")->required();
    }

    int run(const Surroundings& surroundings) override {
        Opened_Document opened = files_.open(surroundings);
        const std::string result = saveDocument(surroundings, opened, out_);
        if (surroundings.json)
            printJson(surroundings.out,
                      {{"Save_Failed", opened.document.Save_Failed}, {"result", jsonText(result)}});
        else if (result.empty())
            surroundings.out << "Written: " << printablePath(pathFromNative(out_)) << '\n';
        return result.empty() && opened.readToTheEnd() ? Exit_Success : Exit_Failed;
    }

  private:
    Document_Arguments files_;
    std::string out_;
};

} // namespace

std::unique_ptr<Call> makeSaveCall() { return std::make_unique<Save_Call>(); }

} // namespace zorvane
