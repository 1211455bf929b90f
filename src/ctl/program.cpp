// SPDX-License-Identifier: MIT
#include "ctl/program.h"

#include "ctl/command_line.h"
#include "template/services/native_files.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <ostream>

namespace zorvane::ctl {

namespace {

/// A call with the part of the command line that belongs to it.
struct Prepared_Subcommand {
    std::unique_ptr<Subcommand> call;
    CLI::App* arguments;
};

/// Options that every call has.
struct Common_Options {
    bool json = false;
    std::string applicationFolder;
};

void addCommonOptions(CLI::App& arguments, Common_Options& options) {
    arguments.add_flag("--json", options.json, "Print the result as one JSON document");
    arguments
        .add_option("--app-dir", options.applicationFolder,
                    "The application folder, where the templates lie (default: the program's own)")
        ->type_name("DIR");
}

std::vector<Prepared_Subcommand> prepareCalls(CLI::App& program, const std::vector<Subcommand_Entry>& calls,
                                              Common_Options& options) {
    std::vector<Prepared_Subcommand> prepared;
    for (const Subcommand_Entry& entry : calls) {
        CLI::App* const arguments = program.add_subcommand(entry.name, entry.description);
        prepared.push_back({entry.make(), arguments});
        prepared.back().call->addArguments(*arguments);
        addCommonOptions(*arguments, options);
    }
    return prepared;
}

/// The whole command line as the parser takes it.
std::vector<std::string> meantLine(const std::vector<Prepared_Subcommand>& prepared,
                                   const std::vector<std::string>& arguments) {
    const auto named =
        std::find_if(prepared.begin(), prepared.end(), [&arguments](const Prepared_Subcommand& each) {
            return !arguments.empty() && each.arguments->get_name() == arguments.front();
        });
    if (named == prepared.end()) return arguments;
    Command_Line line;
    line.words = meantArguments(*named->arguments, named->call->endsInText(),
                                {arguments.begin() + 1, arguments.end()});
    line.plain = plainArguments(*named->arguments, line.words);
    named->call->takeForm(*named->arguments, line);
    line.words.insert(line.words.begin(), arguments.front());
    return line.words;
}

} // namespace

std::string withoutEndSeparator(std::string folder) {
    while (folder.size() > 1 && folder.back() == '/')
        folder.pop_back();
    return folder;
}

int runProgram(const std::vector<Subcommand_Entry>& calls, const std::vector<std::string>& arguments,
               Call_Context context) {
    CLI::App program("Reads, changes and transfers the configuration of Modbus RTU controllers.",
                     "zorvanectl");
    program.set_version_flag("--version", "zorvanectl " ZORVANE_VERSION);
    program.require_subcommand(1);
    Common_Options options;
    const std::vector<Prepared_Subcommand> prepared = prepareCalls(program, calls, options);
    try {
        const std::vector<std::string> line = meantLine(prepared, arguments);
        program.parse(std::vector<std::string>(line.rbegin(), line.rend()));
    } catch (const CLI::ParseError& error) {
        const int code = program.exit(error, context.out, context.err);
        return code == 0 ? Exit_Success : Exit_Usage;
    }
    context.json = options.json;
    if (!options.applicationFolder.empty())
        context.applicationFolder = withoutEndSeparator(pathFromNative(options.applicationFolder));
    const auto chosen = std::find_if(prepared.begin(), prepared.end(), [](const Prepared_Subcommand& each) {
        return each.arguments->parsed();
    });
    return chosen->call->run(context);
}

} // namespace zorvane::ctl
