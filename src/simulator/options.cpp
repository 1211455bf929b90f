#include "simulator/options.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace zorvane::simulator {

namespace {

constexpr int usageError = 2;

/// The options as texts, before they are understood.
struct Texts {
    std::string settings = "9600,n,8,1";
    int pace = 0;
    std::vector<std::string> faults;
};

std::string settingsComplaint(const std::string& text) {
    if (parseLineSettings(text)) return {};
    return "\"" + text +
           "\" are no line settings; they look like 9600,n,8,1 (300 to 921600 baud; n, e or o; 7 or 8 "
           "data bits; 1 or 2 stop bits)";
}

std::string faultComplaint(const std::string& text) {
    try {
        (void)parseFault(text);
        return {};
    } catch (const Bad_Fault& bad) {
        return bad.what();
    }
}

void addOptions(CLI::App& app, Options& options, Texts& texts) {
    app.add_option("--template", options.templateFile, "Template whose registers the controller has")
        ->required();
    app.add_option("--config", options.configuration, "Configuration file whose values they hold");
    app.add_option("--registers", options.registers,
                   "JSON file {\"address\": value, ...} of registers to set or add");
    app.add_option("--slave", options.slave, "Slave number, 1 to 247")
        ->check(CLI::Range(1, 247))
        ->capture_default_str();
    auto* const line =
        app.add_option_group("Line", "where clients find the controller: exactly one of these");
    line->add_option("--pty", options.ptyLink, "Link to make to a new pseudo-terminal");
    line->add_option("--port", options.device, "Serial port to use");
    line->require_option(1);
    app.add_option("--settings", texts.settings, "Line settings")
        ->check(settingsComplaint, "SETTINGS")
        ->capture_default_str();
    app.add_option("--pace", texts.pace, "Let bytes pass as on a line of so many baud")
        ->check(CLI::Range(300, 921600));
    app.add_option("--turnaround", options.turnaroundMs,
                   "Ms from a request to its answer, on top of the line's silence")
        ->check(CLI::Range(0, 60000))
        ->capture_default_str();
    app.add_option("--seed", options.seed, "Seed of faults and live values")->capture_default_str();
    app.add_option("--fault", texts.faults, "What goes wrong; may be given more than once")
        ->check(faultComplaint, "SPEC")
        ->allow_extra_args(false);
    app.add_option("--log", options.log, "File for a line of JSON per frame; - is standard output");
    app.footer(faultHelp());
}

/// Empty when the options fit together.
std::string combinationComplaint(const Options& options) {
    const bool unplugs =
        std::any_of(options.faults.begin(), options.faults.end(),
                    [](const Fault_Rule& fault) { return fault.kind == Fault_Kind::Unplug; });
    if (unplugs && options.ptyLink.empty()) return "unplug needs a pseudo-terminal (--pty)";
    if (options.ptyLink.empty() && options.device.empty()) return "--pty and --port need a name";
    return {};
}

} // namespace

std::variant<Options, int> parseOptions(int argc, const char* const* argv, std::ostream& out,
                                        std::ostream& complaints) {
    Options options;
    Texts texts;
    CLI::App app(
        "Simulated Modbus RTU controller: answers functions 3, 6 and 16 from a template's registers.",
        "zorvane-sim");
    addOptions(app, options, texts);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error, out, complaints) == 0 ? 0 : usageError;
    }
    options.settings = *parseLineSettings(texts.settings);
    if (texts.pace > 0) options.pace = texts.pace;
    for (const std::string& text : texts.faults)
        options.faults.push_back(parseFault(text));
    const std::string complaint = combinationComplaint(options);
    if (complaint.empty()) return options;
    complaints << complaint << "\nRun with --help for more information.\n";
    return usageError;
}

Line_Pace paceOf(const Options& options) {
    return options.pace ? Line_Pace(*options.pace, bitsPerCharacter(options.settings)) : Line_Pace();
}

} // namespace zorvane::simulator
