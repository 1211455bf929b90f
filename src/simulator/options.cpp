// SPDX-License-Identifier: MIT
#include "simulator/options.h"

#include "simulator/controller/device_identification.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <utility>

namespace zorvane::simulator {

namespace {

constexpr int usageError = 2;

/// The options as texts, before they are understood.
struct Texts {
    std::string settings = "9600,n,8,1";
    int pace = 0;
    std::vector<std::string> faults;
    std::vector<std::string> quirks;
    std::vector<std::string> objects;
};

std::string settingsComplaint(const std::string& text) {
    if (parseLineSettings(text)) return {};
    return "\"" + text +
           "\" are no line settings; they look like 9600,n,8,1 (300 to 921600 baud; n, e or o; 7 or 8 "
           "data bits; 1 or 2 stop bits)";
}

/// What `parse` says against a rule; empty for a good one.
template <class Parse> std::string ruleComplaint(const std::string& text, Parse parse) {
    try {
        (void)parse(text);
        return {};
    } catch (const Bad_Rule& bad) {
        return bad.what();
    }
}

std::string faultComplaint(const std::string& text) { return ruleComplaint(text, parseFault); }
std::string quirkComplaint(const std::string& text) { return ruleComplaint(text, parseQuirk); }

/// The number and the text of an object, such as 0=Maker; nothing for any other text.
std::optional<std::pair<std::uint8_t, std::string>> parseObject(const std::string& text) {
    unsigned number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || number > 0xFF || rest == end || *rest != '=') return std::nullopt;
    if (static_cast<std::size_t>(end - rest - 1) > longestObject) return std::nullopt;
    return std::pair(static_cast<std::uint8_t>(number), std::string(rest + 1, end));
}

std::string objectComplaint(const std::string& text) {
    if (parseObject(text)) return {};
    return "\"" + text + "\" is no object; it looks like 1=KVRT207D (number 0 to 255, a text of at most " +
           std::to_string(longestObject) + " bytes)";
}

void addExchange(CLI::App& app, Exchange_Options& exchange) {
    app.add_option("--exchange-after", exchange.after,
                   "After so many requests another controller is in its place")
        ->check(CLI::Range(1, 1'000'000));
    app.add_option("--exchange-template", exchange.templateFile, "Its template (default: the same)");
    app.add_option("--exchange-config", exchange.configuration, "Its configuration file");
    app.add_option("--exchange-registers", exchange.registers, "JSON file of its registers to set or add");
}

void addRegisters(CLI::App& app, Options& options) {
    app.add_option("--template", options.templateFile, "Template whose registers the controller has")
        ->required();
    app.add_option("--config", options.configuration, "Configuration file whose values they hold");
    app.add_option("--registers", options.registers,
                   "JSON file {\"address\": value, ...} of registers to set or add");
    app.add_option("--slave", options.slave, "Slave number, 1 to 247")
        ->check(CLI::Range(1, 247))
        ->capture_default_str();
}

void addLine(CLI::App& app, Options& options, Texts& texts) {
    auto* const line =
        app.add_option_group("Line", "where clients find the controller: exactly one of these");
    line->add_option("--pty", options.ptyLink, "Link to make to a new pseudo-terminal");
    line->add_option("--port", options.device, "Serial port to use");
    auto* const tcp = line->add_option("--tcp", options.tcpPort,
                                       "Modbus TCP at this port of the loopback; 0 takes a free one")
                          ->check(CLI::Range(0, 65535));
    line->require_option(1);
    app.add_option("--listen", options.listenAddress, "With --tcp: the address to listen at")
        ->needs(tcp)
        ->capture_default_str();
    app.add_flag("--rtu-over-tcp", options.rtuOverTcp,
                 "With --tcp: the frames of a serial line instead of Modbus TCP's")
        ->needs(tcp);
    app.add_option("--settings", texts.settings, "Line settings")
        ->check(settingsComplaint, "SETTINGS")
        ->capture_default_str();
    app.add_option("--pace", texts.pace, "Let bytes pass as on a line of so many baud")
        ->check(CLI::Range(300, 921600));
}

void addBehaviour(CLI::App& app, Options& options, Texts& texts) {
    app.add_option("--turnaround", options.turnaroundMs,
                   "Ms from a request to its answer, on top of the line's silence")
        ->check(CLI::Range(0, 60000))
        ->capture_default_str();
    app.add_option("--seed", options.seed, "Seed of faults and live values")->capture_default_str();
    app.add_option("--fault", texts.faults, "What goes wrong; may be given more than once")
        ->check(faultComplaint, "SPEC")
        ->allow_extra_args(false);
    app.add_option("--quirk", texts.quirks, "What the controller does otherwise; may be given more than once")
        ->check(quirkComplaint, "SPEC")
        ->allow_extra_args(false);
    app.add_option(
           "--object", texts.objects,
           "Text of function 43, type 14; 0 maker, 1 product, 2 revision; may be given more than once")
        ->check(objectComplaint, "NUMBER=TEXT")
        ->allow_extra_args(false);
}

void addStorage(CLI::App& app, Options& options) {
    app.add_option(
        "--storage", options.storage,
        "JSON file of what outlasts a power cut and this program; read at the start if it is there");
    app.add_option("--store-after", options.storeAfterMs, "Ms from a write until it outlasts a power cut")
        ->check(CLI::Range(0, 3'600'000))
        ->capture_default_str();
}

/// In the order in which the help lists them.
void addOptions(CLI::App& app, Options& options, Texts& texts) {
    addRegisters(app, options);
    addLine(app, options, texts);
    addBehaviour(app, options, texts);
    addStorage(app, options);
    addExchange(app, options.exchange);
    app.add_option("--log", options.log, "File for a line of JSON per frame; - is standard output");
    app.footer(faultHelp() + "\n" + quirkHelp());
}

std::string exchangeComplaint(const Exchange_Options& exchange) {
    const bool described =
        !exchange.templateFile.empty() || !exchange.configuration.empty() || !exchange.registers.empty();
    if (exchange.after == 0 && described) return "an exchange needs a number of requests (--exchange-after)";
    if (exchange.after > 0 && !described)
        return "--exchange-after needs --exchange-template, --exchange-config or --exchange-registers";
    return {};
}

/// Frames of Modbus TCP have no check sum, and nobody echoes on a network.
std::string networkComplaint(const Options& options) {
    const bool needsLine =
        std::any_of(options.faults.begin(), options.faults.end(), [](const Fault_Rule& fault) {
            return fault.kind == Fault_Kind::Crc || fault.kind == Fault_Kind::Echo;
        });
    if (!needsLine || !speaksModbusTcp(options)) return {};
    return "crc and echo need the frames of a serial line: leave them out, or add --rtu-over-tcp";
}

/// Empty when the options fit together.
std::string combinationComplaint(const Options& options) {
    const bool unplugs =
        std::any_of(options.faults.begin(), options.faults.end(),
                    [](const Fault_Rule& fault) { return fault.kind == Fault_Kind::Unplug; });
    if (unplugs && options.ptyLink.empty() && !options.tcpPort)
        return "unplug needs a pseudo-terminal (--pty)";
    if (options.ptyLink.empty() && options.device.empty() && !options.tcpPort)
        return "--pty and --port need a name";
    if (std::string complaint = networkComplaint(options); !complaint.empty()) return complaint;
    return exchangeComplaint(options.exchange);
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
    for (const std::string& text : texts.quirks)
        options.quirks.push_back(parseQuirk(text));
    for (const std::string& text : texts.objects)
        options.objects.insert(*parseObject(text));
    const std::string complaint = combinationComplaint(options);
    if (complaint.empty()) return options;
    complaints << complaint << "\nRun with --help for more information.\n";
    return usageError;
}

Line_Pace paceOf(const Options& options) {
    return options.pace ? Line_Pace(*options.pace, bitsPerCharacter(options.settings)) : Line_Pace();
}

} // namespace zorvane::simulator
