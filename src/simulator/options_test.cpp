// SPDX-License-Identifier: MIT
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

TEST(Options, ANetworkIsAThirdKindOfLine) {
    const auto options = [](std::vector<const char*> more) {
        std::vector<const char*> arguments{"--template", "T.ZTP"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return std::get<Options>(parse(arguments).result);
    };
    EXPECT_EQ(options({"--tcp", "0"}).tcpPort, 0);
    EXPECT_EQ(options({"--tcp", "0"}).listenAddress, "127.0.0.1");
    EXPECT_TRUE(speaksModbusTcp(options({"--tcp", "502", "--listen", "::1"})));
    EXPECT_EQ(options({"--tcp", "502", "--listen", "::1"}).listenAddress, "::1");
    EXPECT_FALSE(speaksModbusTcp(options({"--tcp", "502", "--rtu-over-tcp"})));
    EXPECT_FALSE(speaksModbusTcp(options({"--pty", "line"})));
    EXPECT_EQ(options({"--tcp", "0", "--fault", "unplug", "--fault", "noise=3"}).faults.size(), 2U);
    EXPECT_EQ(options({"--tcp", "0", "--rtu-over-tcp", "--fault", "crc"}).faults.size(), 1U);
}

TEST(Options, WhatANetworkCannotDoEndsWith2) {
    const auto complaints = [](std::vector<const char*> more) {
        std::vector<const char*> arguments{"--template", "T.ZTP"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Parsed parsed = parse(arguments);
        EXPECT_EQ(std::get<int>(parsed.result), 2);
        return parsed.complaints;
    };
    for (const char* fault : {"crc", "echo:5%"})
        EXPECT_EQ(complaints({"--tcp", "0", "--fault", fault}),
                  "crc and echo need the frames of a serial line: leave them out, or add --rtu-over-tcp\n"
                  "Run with --help for more information.\n");
    EXPECT_NE(complaints({"--tcp", "65536"}), "");
    EXPECT_NE(complaints({"--tcp", "x"}), "");
    EXPECT_NE(complaints({"--tcp", "0", "--pty", "line"}), "");
    EXPECT_NE(complaints({"--pty", "line", "--listen", "::1"}), "");
    EXPECT_NE(complaints({"--pty", "line", "--rtu-over-tcp"}), "");
}

TEST(Options, QuirksObjectsStorageAndAnExchange) {
    const Parsed parsed = parse({"--template",
                                 "T.ZTP",
                                 "--pty",
                                 "line",
                                 "--quirk",
                                 "forgets:5%",
                                 "--quirk",
                                 "rounds=10@7",
                                 "--object",
                                 "0=Maker",
                                 "--object",
                                 "128=",
                                 "--storage",
                                 "s.json",
                                 "--store-after",
                                 "50",
                                 "--exchange-after",
                                 "30",
                                 "--exchange-template",
                                 "U.ZTP",
                                 "--exchange-config",
                                 "a.U",
                                 "--exchange-registers",
                                 "u.json"});
    const Options& options = parsed.options();
    ASSERT_EQ(options.quirks.size(), 2U);
    EXPECT_EQ(options.quirks[1].kind, Quirk_Kind::Rounds);
    EXPECT_EQ(options.objects, (Device_Objects{{0, "Maker"}, {128, ""}}));
    EXPECT_EQ(options.storage, "s.json");
    EXPECT_EQ(options.storeAfterMs, 50);
    EXPECT_EQ(options.exchange.after, 30);
    EXPECT_EQ(options.exchange.templateFile, "U.ZTP");
    EXPECT_EQ(options.exchange.configuration, "a.U");
    EXPECT_EQ(options.exchange.registers, "u.json");
}

TEST(Options, ABadQuirkOrObjectEndsWith2) {
    const auto complaints = [](const char* option, const std::string& value) {
        const Parsed parsed = parse({"--template", "T.ZTP", "--pty", "line", option, value.c_str()});
        EXPECT_EQ(parsed.exitCode(), 2) << value;
        return parsed.complaints;
    };
    EXPECT_NE(complaints("--quirk", "sulks").find("quirk \"sulks\": no such kind of quirk"),
              std::string::npos);
    for (const std::string& object :
         {std::string("Maker"), std::string("256=x"), std::string("=x"), "1=" + std::string(245, 'x')})
        EXPECT_NE(complaints("--object", object)
                      .find("\"" + object +
                            "\" is no object; it looks like 1=KVRT207D (number 0 to 255, a text of at most "
                            "244 bytes)"),
                  std::string::npos);
}

TEST(Options, AnExchangeNeedsANumberOfRequestsAndAnotherController) {
    EXPECT_EQ(parse({"--template", "T.ZTP", "--pty", "line", "--exchange-registers", "u.json"}).complaints,
              "an exchange needs a number of requests (--exchange-after)\n"
              "Run with --help for more information.\n");
    EXPECT_EQ(parse({"--template", "T.ZTP", "--pty", "line", "--exchange-after", "3"}).complaints,
              "--exchange-after needs --exchange-template, --exchange-config or --exchange-registers\n"
              "Run with --help for more information.\n");
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
