// SPDX-License-Identifier: MIT
// The built program: exit codes, ports that can't be used, Ctrl+C, and transfers with the simulated
// controller.

#include "ctl/testing/built_programs.h"
#include "ctl/testing/ctl_bench.h"
#include "ctl/testing/small_model.h"
#include "ctl/testing/spawned_program_linux.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdlib.h>
#include <unistd.h>

namespace zorvane::ctl {
namespace {

using doubles::ctl;
using doubles::Ctl_Bench;
using doubles::Ctl_Run;
using doubles::lines;
using doubles::sim;
using doubles::Spawned_Program;
using nlohmann::json;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

std::vector<std::string> command(const std::string& program, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), program);
    return arguments;
}

Ctl_Run runCtl(const std::vector<std::string>& arguments, uid_t user = 0) {
    Spawned_Program program(command(ctl, arguments), user);
    const int code = program.finish();
    return {code, program.out(), program.err()};
}

TEST(Program, TellsItsUsage) {
    EXPECT_EQ(runCtl({}).code, 2);
    EXPECT_EQ(runCtl({"--help"}).code, 0);
    EXPECT_THAT(runCtl({"--help"}).out, HasSubstr("upload"));
    EXPECT_EQ(runCtl({"upload", "A.ZTP", "b.A"}).code, 2);
    EXPECT_THAT(runCtl({"upload", "A.ZTP", "b.A"}).err, HasSubstr("--port is required"));
}

/// A text with each run of blanks and line ends as one blank.
std::string inOneLine(const std::string& text) {
    std::istringstream words(text);
    std::string line;
    for (std::string word; words >> word;)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

TEST(Program, TheHelpOfEachCallIsWhole) {
    std::string help = runCtl({"--help"}).out;
    for (const char* call : {"models", "check",    "dump",    "show",   "set",     "save",         "update",
                             "apply",  "plan",     "export",  "import", "recover", "upload",       "download",
                             "watch",  "identify", "compare", "send",   "resume",  "restore",      "verify",
                             "runs",   "find",     "listen",  "report", "record",  "verify-record"})
        help += "== " + std::string(call) + "\n" + runCtl({call, "--help"}).out;
    std::ifstream file(CTL_HELP);
    const std::string expected((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    EXPECT_EQ(inOneLine(help), inOneLine(expected));
}

TEST(Program, ItsApplicationFolderIsItsOwn) {
    const Ctl_Run models = runCtl({"models", "--json"});
    EXPECT_EQ(models.code, 0);
    bool found = false;
    for (const json& model : json::parse(models.out))
        found = found || model["file"] == "KVRT207D.ZTP";
    EXPECT_TRUE(found) << models.out;
}

TEST(Program, ItsApplicationFolderIsFoundThroughALink) {
    Ctl_Bench bench;
    std::filesystem::create_symlink(ctl, bench.path("linked"));
    Spawned_Program linked({bench.path("linked"), "models", "--json"});
    EXPECT_EQ(linked.finish(), 0);
    EXPECT_EQ(linked.out(), runCtl({"models", "--json"}).out);
}

TEST(Program, AFullDiskFailsTheOutput) {
    Spawned_Program program({"/bin/sh", "-c", "exec \"$0\" models --json >/dev/full", ctl});
    EXPECT_EQ(program.finish(), 1);
    EXPECT_EQ(program.err(), "zorvanectl: The output can't be written to its end. Has its disk room?\n");
}

int occurrences(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

/// A small document, and a simulated controller for it.
class Line : public ::testing::Test {
  protected:
    void startController(const std::vector<std::string>& options = {}) {
        std::vector<std::string> arguments = {"--template", ztp, "--config", held, "--pty", port};
        arguments.insert(arguments.end(), options.begin(), options.end());
        controller = std::make_unique<Spawned_Program>(command(sim, arguments));
        ASSERT_TRUE(controller->awaitOutput("ready")) << controller->err();
    }
    std::vector<std::string> transfer(const std::string& call, std::vector<std::string> options = {}) {
        std::vector<std::string> arguments = {call, ztp, config, "--json", "--port", port};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return arguments;
    }
    static json parsed(const Ctl_Run& run) { return json::parse(run.out, nullptr, false); }

    Ctl_Bench bench;
    std::string ztp = bench.file("ABC.ZTP", doubles::smallTemplate());
    std::string config = bench.file("site.ABC", lines({"[Configuration_Default]", "FIELD_1=,Outputs"}));
    std::string held = bench.file("held.ABC", doubles::smallConfiguration());
    std::string port = bench.path("port");
    std::unique_ptr<Spawned_Program> controller;
};

TEST_F(Line, AValueGoesUpChangesGoesDownAndComesUpAgain) {
    startController();
    const Ctl_Run up = runCtl(transfer("upload", {"--save", config, "--registers", bench.path("r.json")}));
    EXPECT_EQ(up.code, 0) << up.err;
    EXPECT_EQ(parsed(up)["outcome"], "finished");
    EXPECT_EQ(parsed(up)["passes"], 1);
    EXPECT_EQ(parsed(up)["errors"], json::array());
    EXPECT_EQ(parsed(up)["log"].size(), 1U);
    EXPECT_THAT(parsed(up)["log"][0]["End_Address"].get<std::string>(), StartsWith("Tx: 01 03 00 64 00 04"));
    EXPECT_EQ(parsed(up)["panel4"], "Ready");
    EXPECT_THAT(bench.bytes("site.ABC"), HasSubstr("ROW_1=10,On\r\nROW_2=-5,7\r\n"));
    EXPECT_EQ(json::parse(bench.bytes("r.json")),
              json::parse(R"({"100": 10, "101": 65531, "102": 1, "103": 7})"));

    bench.file("site.ABC", lines({"[Configuration_Default]", "FIELD_1=,Outputs", "[Field_1_Default]",
                                  "ROW_1=11,Off", "ROW_2=-6,50"}));
    const Ctl_Run down = runCtl(transfer("download"));
    EXPECT_EQ(down.code, 0) << down.err;
    EXPECT_EQ(parsed(down)["outcome"], "finished");
    EXPECT_EQ(parsed(down)["passes"], 0);

    const Ctl_Run again = runCtl(transfer("upload", {"--save", bench.path("again.ABC")}));
    EXPECT_EQ(again.code, 0) << again.err;
    EXPECT_THAT(bench.bytes("again.ABC"), HasSubstr("ROW_1=11,Off\r\nROW_2=-6,"));
    EXPECT_THAT(bench.bytes("again.ABC"), Not(HasSubstr("ROW_2=-6,50"))); // 103 isn't downloaded
    controller->signal(SIGTERM);
    EXPECT_EQ(controller->finish(), 0);
}

TEST_F(Line, PeopleSeeTheProgress) {
    startController();
    const Ctl_Run up = runCtl({"upload", ztp, config, "--port", port});
    EXPECT_EQ(up.code, 0);
    EXPECT_EQ(up.out, "Upload finished: 1 exchanges.\n");
    EXPECT_EQ(up.err, "Uploading data from the controller...\n100 % (1 of 1)\n");
}

TEST_F(Line, ASilentControllerFailsAndLeavesTheDocument) {
    startController({"--fault", "silent"});
    const Ctl_Run up = runCtl(transfer("upload", {"--retries", "1", "--timeout", "50", "--save", config}));
    EXPECT_EQ(up.code, 1);
    EXPECT_EQ(parsed(up)["outcome"], "failed");
    EXPECT_EQ(parsed(up)["errors"].size(), 2U);
    EXPECT_EQ(parsed(up)["errors"][1]["Response"], "No response");
    EXPECT_EQ(parsed(up)["panel4"], "Error. The controller does not respond.");
    EXPECT_THAT(up.err,
                EndsWith("zorvanectl: Error. The controller does not respond. Check the cable, the port, "
                         "its settings and the slave number.\n"));
    EXPECT_THAT(bench.bytes("site.ABC"), Not(HasSubstr("ROW_1")));
}

TEST_F(Line, AnAnswerIsAskedForAgain) {
    startController({"--fault", "crc:1"});
    const Ctl_Run up = runCtl(transfer("upload", {"--timeout", "200"}));
    EXPECT_EQ(up.code, 0) << up.err;
    EXPECT_EQ(parsed(up)["outcome"], "finished");
    EXPECT_EQ(parsed(up)["errors"].size(), 1U);
}

TEST_F(Line, ARefusedBlockFailsTheCallThoughTheUploadFinishes) {
    startController({"--fault", "exception=2"});
    const Ctl_Run up = runCtl(transfer("upload"));
    EXPECT_EQ(up.code, 1);
    EXPECT_EQ(parsed(up)["outcome"], "finished");
    EXPECT_THAT(up.err, HasSubstr("Registers 100-103 were not read: Illegal data address (exception 2)\n"));
}

TEST_F(Line, RefusedWritesFailTheCallThoughTheDownloadFinishes) {
    startController({"--fault", "exception=3"});
    bench.file("site.ABC", doubles::smallConfiguration());
    const Ctl_Run down = runCtl(transfer("download"));
    EXPECT_EQ(down.code, 1);
    EXPECT_EQ(parsed(down)["outcome"], "finished");
    EXPECT_THAT(down.err, HasSubstr("Write: 10 @100 ...Failed\n"));
}

TEST_F(Line, CtrlCCancelsAnUploadInOrder) {
    startController({"--fault", "silent"});
    Spawned_Program program(command(ctl, transfer("upload", {"--timeout", "60000", "--save", config})));
    ASSERT_TRUE(program.awaitNotice("Uploading data from the controller..."));
    program.signal(SIGINT);
    EXPECT_EQ(program.finish(), 1);
    EXPECT_EQ(json::parse(program.out())["outcome"], "cancelled");
    EXPECT_EQ(json::parse(program.out())["panel4"], "Upload cancelled...");
    EXPECT_THAT(program.err(), EndsWith("zorvanectl: Upload cancelled...\n"));
    EXPECT_THAT(bench.bytes("site.ABC"), Not(HasSubstr("ROW_1")));
}

TEST_F(Line, SigtermCancelsADownloadInOrder) {
    startController({"--fault", "silent"});
    bench.file("site.ABC", doubles::smallConfiguration());
    Spawned_Program program(command(ctl, transfer("download", {"--timeout", "60000"})));
    ASSERT_TRUE(program.awaitNotice("Transferring data to controller..."));
    program.signal(SIGTERM);
    EXPECT_EQ(program.finish(), 1);
    EXPECT_EQ(json::parse(program.out())["outcome"], "cancelled");
    EXPECT_EQ(json::parse(program.out())["panel4"], "Download cancelled...");
}

TEST_F(Line, ACancelledTransferLeavesThePortFree) {
    startController({"--fault", "silent:1"});
    Spawned_Program program(command(ctl, transfer("upload", {"--timeout", "60000"})));
    ASSERT_TRUE(program.awaitNotice("Uploading data from the controller..."));
    program.signal(SIGINT);
    EXPECT_EQ(program.finish(), 1);
    EXPECT_EQ(runCtl(transfer("upload", {"--timeout", "500"})).code, 0);
}

TEST_F(Line, AControllerThatGoesAwayFailsTheUpload) {
    startController({"--fault", "silent"});
    Spawned_Program program(command(ctl, transfer("upload", {"--timeout", "60000"})));
    ASSERT_TRUE(program.awaitNotice("Uploading data from the controller..."));
    controller->signal(SIGTERM);
    EXPECT_EQ(controller->finish(), 0);
    EXPECT_EQ(program.finish(), 1);
    EXPECT_EQ(json::parse(program.out())["outcome"], "failed");
}

TEST_F(Line, AMissingPortIsTold) {
    const std::string before = bench.bytes("site.ABC");
    for (const char* call : {"upload", "download"}) {
        const Ctl_Run missing = runCtl(transfer(call));
        EXPECT_EQ(missing.code, 1);
        EXPECT_EQ(parsed(missing)["outcome"], "failed");
        EXPECT_EQ(parsed(missing)["panel4"], "Error. The controller does not respond.");
        EXPECT_EQ(occurrences(missing.err, "can't be opened"), 1) << missing.err;
        EXPECT_THAT(missing.err, Not(HasSubstr(" % (")));
        EXPECT_THAT(missing.err, HasSubstr("zorvanectl: The serial port " + port +
                                           " can't be opened. No such port: plug the "
                                           "adapter in, or choose another port.\n"));
    }
    EXPECT_EQ(bench.bytes("site.ABC"), before);
}

TEST_F(Line, AFileIsNoPort) {
    port = bench.file("plain", "");
    const Ctl_Run plain = runCtl(transfer("upload"));
    EXPECT_EQ(plain.code, 1);
    EXPECT_THAT(plain.err, HasSubstr("Not a serial port: choose another port."));
}

TEST_F(Line, ABusyPortIsTold) {
    startController({"--fault", "silent", "--log", "-"});
    Spawned_Program holder(command(ctl, transfer("upload", {"--timeout", "60000"})));
    ASSERT_TRUE(controller->awaitOutput(R"("direction":"in")")); // so the port is open
    const Ctl_Run busy = runCtl(transfer("upload"));
    EXPECT_EQ(busy.code, 1);
    EXPECT_THAT(busy.err, HasSubstr("Busy: another program has the port open. Close that program and try "
                                    "again."));
    holder.signal(SIGINT);
    EXPECT_EQ(holder.finish(), 1);
}

TEST_F(Line, APortWithoutPermissionIsTold) {
    constexpr uid_t nobody = 65534;
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(terminal, 0);
    ASSERT_EQ(::grantpt(terminal), 0);
    ASSERT_EQ(::unlockpt(terminal), 0);
    port = ::ptsname(terminal);
    std::filesystem::permissions(port, std::filesystem::perms::none);
    std::filesystem::permissions(bench.path(""), std::filesystem::perms::all);
    const Ctl_Run denied = runCtl(transfer("upload"), ::geteuid() == 0 ? nobody : 0);
    ::close(terminal);
    constexpr int notStarted = 127;
    if (denied.code == notStarted) GTEST_SKIP() << "another user can't reach the folder of the programs";
    EXPECT_EQ(denied.code, 1);
    EXPECT_THAT(denied.err,
                HasSubstr("Permission denied: add your user to the group dialout and log in again."));
}

TEST_F(Line, AMissingConfigurationIsToldBeforeThePortIsTouched) {
    config = bench.path("gone.ABC");
    const Ctl_Run missing = runCtl(transfer("download"));
    EXPECT_EQ(missing.code, 1);
    EXPECT_EQ(missing.err, "zorvanectl: " + config +
                               ": there is no such configuration file. Check the path.\n"
                               "zorvanectl: Nothing was transferred.\n");
    EXPECT_EQ(parsed(missing), json::parse(R"({"outcome":"failed","passes":0,"errors":[],"log":[],"panel4":"",
                              "read":[],"refused":[],"unanswered":[],"not_read":[],"failed_writes":[],
                              "panel4_lines":[]})"));
}

TEST_F(Line, ARejectedConfigurationIsNotDownloaded) {
    config = bench.file("site.ABC", lines({"[Field_1_Default]", "ROW_1=1,2,3"}));
    EXPECT_THAT(runCtl(transfer("download")).err, EndsWith("zorvanectl: Nothing was transferred.\n"));
}

TEST_F(Line, BadPortOptionsAreWrongUsage) {
    const std::vector<std::vector<std::string>> wrong = {
        {"--slave", "0"},       {"--slave", "248"},        {"--slave", "one"},
        {"--settings", "9600"}, {"--settings", "9,n,8,1"}, {"--retries", "-1"},
        {"--timeout", "0"},     {"--rts", "maybe"},        {"--tx-delay", "99999"}};
    for (const auto& options : wrong)
        EXPECT_EQ(runCtl(transfer("upload", options)).code, 2) << options[0] << ' ' << options[1];
    EXPECT_THAT(runCtl(transfer("upload", {"--settings", "9600"})).err,
                HasSubstr("\"9600\" is not baud,parity,data bits,stop bits, as in 9600,n,8,1"));
    EXPECT_THAT(runCtl(transfer("upload", {"--rts", "maybe"})).err,
                HasSubstr("\"maybe\" is not none, rts or rs485"));
}

/// The relay model, whose field 5 has live readings.
class Live_Line : public Line {
  protected:
    Live_Line() {
        ztp = models() + "/KVRT207D.ZTP";
        config = models() + "/EXAMPLE.KVRT207D";
        held = config;
    }
    static std::string models() { return std::filesystem::path(ctl).parent_path().string(); }
    std::vector<std::string> watch(std::vector<std::string> options) {
        std::vector<std::string> arguments = {"watch", ztp, config, "FIELD", "--port", port};
        arguments[3] = std::to_string(liveField);
        arguments.insert(arguments.end(), options.begin(), options.end());
        return arguments;
    }
    int liveField = 5;
};

TEST_F(Live_Line, LiveValuesLive) {
    startController();
    const Ctl_Run live = runCtl(watch({"--json", "--count", "3"}));
    EXPECT_EQ(live.code, 0) << live.err;
    std::istringstream out(live.out);
    std::vector<json> refreshes;
    for (std::string line; std::getline(out, line);)
        refreshes.push_back(json::parse(line));
    ASSERT_EQ(refreshes.size(), 3U);
    EXPECT_EQ(refreshes[2]["refresh"], 3);
    EXPECT_EQ(refreshes[0]["lost"], false);
    EXPECT_FALSE(refreshes[0]["cells"].empty());
    EXPECT_NE(refreshes[0]["cells"], refreshes[2]["cells"]);
}

TEST_F(Live_Line, CtrlCEndsAWatchWithSuccess) {
    startController();
    Spawned_Program program(command(ctl, watch({"--json"})));
    ASSERT_TRUE(program.awaitOutput("\"refresh\":2"));
    program.signal(SIGINT);
    EXPECT_EQ(program.finish(), 0) << program.err();
}

TEST_F(Live_Line, AWatchSeesTheControllerGoAndComeBack) {
    startController({"--fault", "silent:4"});
    const Ctl_Run live = runCtl(watch({"--json", "--count", "4", "--timeout", "150", "--retries", "0"}));
    EXPECT_EQ(live.code, 0) << live.err;
    EXPECT_THAT(live.out, HasSubstr("\"lost\":true"));
    EXPECT_THAT(live.err, HasSubstr("zorvanectl: Lost communication to device...\n"
                                    "zorvanectl: The controller answers again.\n"));
}

TEST_F(Live_Line, AWatchOfAPortThatIsntThereFailsAtOnce) {
    const Ctl_Run live = runCtl(watch({}));
    EXPECT_EQ(live.code, 1);
    EXPECT_EQ(live.out, "");
    EXPECT_THAT(live.err, HasSubstr("No such port: plug the adapter in, or choose another port."));
}

TEST_F(Live_Line, AFieldWithoutLiveValuesIsRefused) {
    startController();
    liveField = 3;
    const Ctl_Run live = runCtl(watch({}));
    EXPECT_EQ(live.code, 1);
    EXPECT_EQ(live.err, "zorvanectl: Field 3 has no live column (ALWAYS): choose another field.\n");
}

} // namespace
} // namespace zorvane::ctl
