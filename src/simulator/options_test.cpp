#include "simulator/options.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

namespace zorvane::simulator {
namespace {

struct Parsed {
    std::variant<Options, int> result;
    std::string out;
    std::string complaints;

    [[nodiscard]] int exitCode() const { return std::get<int>(result); }
    [[nodiscard]] const Options& options() const { return std::get<Options>(result); }
};

Parsed parse(const std::vector<const char*>& words) {
    std::vector<const char*> arguments{"zorvane-sim"};
    for (const char* word : words)
        arguments.push_back(word);
    std::ostringstream out;
    std::ostringstream complaints;
    auto result = parseOptions(static_cast<int>(arguments.size()), arguments.data(), out, complaints);
    return {std::move(result), out.str(), complaints.str()};
}

TEST(Options, NeedATemplateAndALine) {
    const Parsed parsed = parse({"--template", "T.ZTP", "--pty", "line"});
    EXPECT_EQ(parsed.options().templateFile, "T.ZTP");
    EXPECT_EQ(parsed.options().ptyLink, "line");
    EXPECT_EQ(parsed.options().slave, 1);
    EXPECT_EQ(parsed.options().settings, (Line_Settings{9600, 'N', 8, 1}));
    EXPECT_FALSE(paceOf(parsed.options()).paced());
    EXPECT_EQ(parse({"--pty", "line"}).exitCode(), 2);
    EXPECT_EQ(parse({"--template", "T.ZTP"}).exitCode(), 2);
    EXPECT_EQ(parse({"--template", "T.ZTP", "--pty", "line", "--port", "dev"}).exitCode(), 2);
    EXPECT_EQ(parse({"--template", "T.ZTP", "--pty", ""}).exitCode(), 2);
    EXPECT_NE(parse({"--template", "T.ZTP", "--pty", ""}).complaints.find("--pty and --port need a name"),
              std::string::npos);
}

TEST(Options, AllTogether) {
    const Parsed parsed =
        parse({"--template", "T.ZTP",  "--config",     "a.T",        "--registers", "r.json",
               "--slave",    "17",     "--port",       "dev",        "--settings",  "19200,e,8,1",
               "--pace",     "19200",  "--turnaround", "5",          "--seed",      "99",
               "--fault",    "crc:5%", "--fault",      "late=300:2", "--log",       "l.json"});
    const Options& options = parsed.options();
    EXPECT_EQ(options.configuration, "a.T");
    EXPECT_EQ(options.registers, "r.json");
    EXPECT_EQ(options.slave, 17);
    EXPECT_EQ(options.device, "dev");
    EXPECT_EQ(options.turnaroundMs, 5);
    EXPECT_EQ(options.seed, 99U);
    ASSERT_EQ(options.faults.size(), 2U);
    EXPECT_EQ(options.faults[1].kind, Fault_Kind::Late);
    EXPECT_EQ(options.log, "l.json");
    EXPECT_EQ(paceOf(options).wireTime(1), std::chrono::nanoseconds(572'917)); // 11 bits
}

TEST(Options, ABadFaultIsNamedAndEndsWith2) {
    const Parsed parsed = parse({"--template", "T.ZTP", "--pty", "line", "--fault", "loud:5%"});
    EXPECT_EQ(parsed.exitCode(), 2);
    EXPECT_NE(parsed.complaints.find("fault \"loud:5%\": no such kind of fault"), std::string::npos);
}

TEST(Options, BadNumbersAndSettingsEndWith2) {
    const auto exitCode = [](const char* option, const char* value) {
        return parse({"--template", "T.ZTP", "--pty", "line", option, value}).exitCode();
    };
    EXPECT_EQ(exitCode("--slave", "0"), 2);
    EXPECT_EQ(exitCode("--slave", "248"), 2);
    EXPECT_EQ(exitCode("--settings", "9600"), 2);
    EXPECT_EQ(exitCode("--pace", "299"), 2);
    EXPECT_EQ(exitCode("--turnaround", "-1"), 2);
    EXPECT_EQ(exitCode("--seed", "x"), 2);
    EXPECT_EQ(exitCode("--nonsense", "x"), 2);
    EXPECT_NE(parse({"--template", "T.ZTP", "--pty", "line", "--settings", "9600"})
                  .complaints.find(
                      "\"9600\" are no line settings; they look like 9600,n,8,1 (300 to 921600 baud; n, "
                      "e or o; 7 or 8 data bits; 1 or 2 stop bits)"),
              std::string::npos);
}

TEST(Options, AnUnplugNeedsAPseudoTerminal) {
    const Parsed parsed = parse({"--template", "T.ZTP", "--port", "dev", "--fault", "unplug:1"});
    EXPECT_EQ(parsed.exitCode(), 2);
    EXPECT_EQ(parsed.complaints,
              "unplug needs a pseudo-terminal (--pty)\nRun with --help for more information.\n");
}

/// A text with each run of blanks and line ends as one blank.
std::string inOneLine(const std::string& text) {
    std::istringstream words(text);
    std::string line;
    for (std::string word; words >> word;)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

TEST(Options, HelpIsNoFailure) {
    const Parsed parsed = parse({"--help"});
    EXPECT_EQ(parsed.exitCode(), 0);
    std::ifstream file(SIMULATOR_HELP);
    const std::string expected((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    EXPECT_EQ(inOneLine(parsed.out), inOneLine(expected));
}

} // namespace
} // namespace zorvane::simulator
