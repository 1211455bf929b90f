// SPDX-License-Identifier: MIT
#pragma once

#include "template/services/files.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace zorvane {
class Recovery;
} // namespace zorvane

namespace zorvane::ctl {

/// How the program ends.
enum Exit_Code : int {
    Exit_Success = 0,
    Exit_Failed = 1,           ///< the operation failed
    Exit_Usage = 2,            ///< the command line can't be understood
    Exit_Differs = 3,          ///< two sides differ
    Exit_Partly = 4,           ///< some of it was done
    Exit_Wrong_Controller = 5, ///< the controller isn't the template's
    Exit_Stale = 6,            ///< the plan no longer fits what is there
    Exit_Cant_Tell = 7,        ///< something that the answer needs wasn't read
};

/// What a call works with besides its own arguments.
struct Call_Context {
    Files& files;
    std::ostream& out;             ///< the result
    std::ostream& err;             ///< notices for people
    std::string applicationFolder; ///< the system's text, without a separator at its end
    bool json = false;             ///< the result is one JSON document
    Recovery* recovery = nullptr;  ///< keeps what a save writes over; null: nothing is kept
    std::string stateFolder{};     ///< where runs are kept; UTF-8, without a separator at its end
};

/// What stands on a command line after the name of its call.
struct Command_Line {
    std::vector<std::string> words;
    std::vector<std::size_t> plain; ///< the places of the words that are neither options nor their values

    /// The word of a plain argument. REQUIRES: there are so many.
    [[nodiscard]] const std::string& argument(std::size_t index) const { return words[plain[index]]; }
};

/// One call of the program: its arguments, and what it does with them.
class Subcommand {
  public:
    virtual ~Subcommand() = default;
    virtual void addArguments(CLI::App& arguments) = 0;
    /// Whether its last argument is a text of any kind, one that begins like an option too.
    [[nodiscard]] virtual bool endsInText() const { return false; }
    /// For a call with several forms: takes those words out of the line that the declared arguments have no
    /// place for, and says which of these aren't required then. May throw the parser's errors.
    virtual void takeForm(CLI::App& /*arguments*/, Command_Line& /*line*/) {}
    /// The exit code.
    [[nodiscard]] virtual int run(const Call_Context& context) = 0;
};

/// A line of the list of calls.
struct Subcommand_Entry {
    const char* name;
    const char* description;
    std::unique_ptr<Subcommand> (*make)();
};

} // namespace zorvane::ctl
